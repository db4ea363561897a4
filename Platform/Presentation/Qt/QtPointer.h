// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef QtPointer_h
#define QtPointer_h

#include <Presentation/PresenterTypes.h>

namespace Host {

// The desktop's cursor over the program's windows.
class QtPointer
{
public:
    // The arrow leaves the cursor to the widgets.
    void Show(const PointerLook& theLook);

private:
    bool mIsOverriding = false;
};

} // namespace Host

#endif
