// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Toolbox_Cursors_h
#define Toolbox_Cursors_h

namespace Host {

class Presenter;

// Tells a presenter what the pointer looks like, where that is not what it looks like by itself.
void ReplayPointerLook(Presenter& thePresenter);

// The pointer has moved: an obscured one is seen again.
void ShowObscuredPointer();

} // namespace Host

#endif
