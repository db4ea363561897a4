// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Group boxes, and the pane that holds all controls of a window.

#include "ManagerTestSupport.h"

namespace {

using Containers = ManagerTest;

// The shapes of the controls that a presenter is told of, the outermost first.
std::vector<Host::ControlShape> Shapes()
{
    class ShapeReader : public Host::Presenter
    {
    public:
        void ControlLooks(const Host::ControlLook& theLook) override { mShapes.push_back(theLook.theShape); }
        std::vector<Host::ControlShape> mShapes;
    };
    ShapeReader theReader;
    Host::PresenterRegistry::ReplayLooks(theReader);
    return theReader.mShapes;
}

} // namespace

TEST_F(Containers, HoldOtherControlsAndTakeNoPress)
{
    ControlRef theBox = NewGroupBox();
    ControlRef theRoot = nullptr;
    ASSERT_EQ(GetRootControl(mWindow, &theRoot), noErr);
    for (ControlRef theContainer : {theBox, theRoot}) {
        UInt32 theFeatures = 0;
        EXPECT_EQ(GetControlFeatures(theContainer, &theFeatures), noErr);
        EXPECT_EQ(theFeatures, UInt32{kControlSupportsEmbedding});
    }
    Rect theBounds = MakeRect(0, 0, 0, 0);
    GetControlBounds(theBox, &theBounds);
    const Point theInside = {static_cast<short>(theBounds.top + 2), static_cast<short>(theBounds.left + 2)};
    EXPECT_EQ(TestControl(theBox, theInside), kControlNoPart);
    EXPECT_EQ(HIViewSimulateClick(theBox, kControlEntireControl, 0, nullptr), errInvalidPartCode);
}

TEST_F(Containers, AreShownAsPaneAndBox)
{
    NewGroupBox();
    EXPECT_EQ(Shapes(),
              (std::vector<Host::ControlShape>{Host::ControlShape::kPane, Host::ControlShape::kGroupBox}));
}
