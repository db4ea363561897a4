// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef QtTabs_h
#define QtTabs_h

#include "QtControl.h"

namespace Host {

class TabsWidget;

// Tabs along an edge of a frame. The tabs are as long as the managers think they are, so that a press hits
// the one that is seen; what stands in the frame are controls of their own.
class QtTabs : public QtControl
{
public:
    QtTabs(const ControlLook& theLook, QtInput& theInput, QWidget& theContent);

protected:
    void ShowState(const ControlLook& theLook) override;

private:
    TabsWidget& mTabs;
};

} // namespace Host

#endif
