// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Lines between other controls.

#include "ManagerTestSupport.h"

#include <Presentation/PresenterRegistry.h>

namespace {

class Separators : public ManagerTest
{
protected:
    ControlRef NewSeparator(const Rect& theBounds)
    {
        ControlRef theControl = nullptr;
        EXPECT_EQ(CreateSeparatorControl(mWindow, &theBounds, &theControl), noErr);
        return theControl;
    }
};

// What a presenter is told of the separators, in the order of their creation.
std::vector<Host::ControlLook> SeparatorLooks()
{
    class LookReader : public Host::Presenter
    {
    public:
        void ControlLooks(const Host::ControlLook& theLook) override
        {
            if (theLook.theShape == Host::ControlShape::kSeparator) {
                mLooks.push_back(theLook);
            }
        }
        std::vector<Host::ControlLook> mLooks;
    };
    LookReader theReader;
    Host::PresenterRegistry::ReplayLooks(theReader);
    return theReader.mLooks;
}

} // namespace

TEST_F(Separators, HoldNothingAndTakeNoPress)
{
    ControlRef theLine = NewSeparator(MakeRect(10, 50, 110, 55));
    UInt32 theFeatures = 1;
    EXPECT_EQ(GetControlFeatures(theLine, &theFeatures), noErr);
    EXPECT_EQ(theFeatures, 0u);
    EXPECT_EQ(TestControl(theLine, Point{52, 60}), kControlNoPart);
    EXPECT_EQ(HIViewSimulateClick(theLine, kControlEntireControl, 0, nullptr), errInvalidPartCode);
    EXPECT_EQ(EmbedControl(NewPushButton("OK"), theLine), errControlIsNotEmbedder);
}

TEST_F(Separators, AreNoStopOfTheTabKey)
{
    ControlRef theLine = NewSeparator(MakeRect(10, 50, 110, 55));
    EXPECT_EQ(SetKeyboardFocus(mWindow, theLine, kControlFocusNextPart), errCouldntSetFocus);
    EXPECT_EQ(AdvanceKeyboardFocus(mWindow), errCouldntSetFocus);
}

TEST_F(Separators, AreShownAsLinesWithTheirBounds)
{
    NewSeparator(MakeRect(10, 50, 110, 55));
    const std::vector<Host::ControlLook> theLooks = SeparatorLooks();
    ASSERT_EQ(theLooks.size(), 1u);
    EXPECT_EQ(theLooks[0].theBounds.theLeft, 10);
    EXPECT_EQ(theLooks[0].theBounds.theTop, 50);
    EXPECT_EQ(theLooks[0].theBounds.theRight, 110);
    EXPECT_EQ(theLooks[0].theBounds.theBottom, 55);
    EXPECT_EQ(theLooks[0].theTitle, "");
}
