// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The layout of the bindings: their members in order, and the virtual functions that they override. It is a
// part of the binary interface, because applications derive from them.

#include "ClassLayout.h"
#include "LmControlBinding.h"
#include "LmExampleBinding.h"
#include "LmMenuBinding.h"
#include "LmPreferenceBinding.h"
#include "LmWindowBinding.h"
#include "VirtualSlot.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

LM_REVEAL(ControlReference, &LmControlBinding::mControl);
LM_REVEAL(ControlHandler, &LmControlBinding::mEventHandler);
LM_REVEAL(ControlIsEditText, &LmControlBinding::mIsEditText);
LM_REVEAL(ControlIsStaticText, &LmControlBinding::mIsStaticText);
LM_REVEAL(ControlFlag, &LmControlBinding::mUpdateControl);
LM_REVEAL(MenuReference, &LmMenuBinding::mMenu);
LM_REVEAL(MenuItem, &LmMenuBinding::mMenuItem);
LM_REVEAL(MenuCommandCode, &LmMenuBinding::mCommand);
LM_REVEAL(MenuHandler, &LmMenuBinding::mEventHandler);
LM_REVEAL(MenuFlag, &LmMenuBinding::mUpdateMenu);
LM_REVEAL(WindowReference, &LmWindowBinding::mWindow);
LM_REVEAL(WindowHandler, &LmWindowBinding::mEventHandler);
LM_REVEAL(WindowFlag, &LmWindowBinding::mUpdateWindow);
LM_REVEAL(PreferenceDomain, &LmPreferenceBinding::mApplicationID);
LM_REVEAL(ExampleModel, &LmExampleBinding::mModel);
LM_REVEAL(ExampleFlag, &LmExampleBinding::mUpdateModel);

namespace {

// A member as the layout sees it.
struct Place
{
    std::size_t theDistance;
    std::size_t theSize;
    std::size_t theAlignment;
};

template <typename Object, typename Member>
Place PlaceOf(const Object& theObject, const Member& theMember)
{
    return {DistanceOf(theObject, theMember), sizeof(Member), alignof(Member)};
}

// Each member stands behind the one before it, as near as it can, and nothing comes after them.
void ExpectInOrder(const std::vector<Place>& thePlaces, std::size_t theObjectSize)
{
    std::size_t theEnd = sizeof(LmKeyValueBinding);
    const auto AlignEnd = [&theEnd](std::size_t theAlignment) {
        theEnd = (theEnd + theAlignment - 1) / theAlignment * theAlignment;
    };
    for (const Place& thePlace : thePlaces) {
        AlignEnd(thePlace.theAlignment);
        EXPECT_EQ(thePlace.theDistance, theEnd);
        theEnd += thePlace.theSize;
    }
    AlignEnd(alignof(LmKeyValueBinding));
    EXPECT_EQ(theObjectSize, theEnd);
}

} // namespace

static_assert(sizeof(MenuItemIndex) == 2 && sizeof(MenuCommand) == 4);

TEST(BindingLayout, OfAControlBinding)
{
    const LmControlBinding theBinding;
    ExpectInOrder({PlaceOf(theBinding, theBinding.*Reveal(ControlReference())),
                   PlaceOf(theBinding, theBinding.*Reveal(ControlHandler())),
                   PlaceOf(theBinding, theBinding.*Reveal(ControlIsEditText())),
                   PlaceOf(theBinding, theBinding.*Reveal(ControlIsStaticText())),
                   PlaceOf(theBinding, theBinding.*Reveal(ControlFlag()))},
                  sizeof theBinding);
    EXPECT_EQ(theBinding.*Reveal(ControlReference()), nullptr);
    EXPECT_EQ(theBinding.*Reveal(ControlHandler()), nullptr);
    EXPECT_FALSE(theBinding.*Reveal(ControlIsEditText()));
    EXPECT_FALSE(theBinding.*Reveal(ControlIsStaticText()));
    EXPECT_TRUE(theBinding.*Reveal(ControlFlag()));
}

static void ExpectNoCommand(const LmMenuBinding& theBinding)
{
    EXPECT_EQ(theBinding.*Reveal(MenuReference()), nullptr);
    EXPECT_EQ(theBinding.*Reveal(MenuItem()), 0);
    EXPECT_EQ(theBinding.*Reveal(MenuCommandCode()), 0U);
    EXPECT_EQ(theBinding.*Reveal(MenuHandler()), nullptr);
    EXPECT_TRUE(theBinding.*Reveal(MenuFlag()));
}

TEST(BindingLayout, OfAMenuBinding)
{
    const LmMenuBinding theBinding;
    ExpectInOrder({PlaceOf(theBinding, theBinding.*Reveal(MenuReference())),
                   PlaceOf(theBinding, theBinding.*Reveal(MenuItem())),
                   PlaceOf(theBinding, theBinding.*Reveal(MenuCommandCode())),
                   PlaceOf(theBinding, theBinding.*Reveal(MenuHandler())),
                   PlaceOf(theBinding, theBinding.*Reveal(MenuFlag()))},
                  sizeof theBinding);
    ExpectNoCommand(theBinding);
}

static void ExpectNoWindow(const LmWindowBinding& theBinding)
{
    EXPECT_EQ(theBinding.*Reveal(WindowReference()), nullptr);
    EXPECT_EQ(theBinding.*Reveal(WindowHandler()), nullptr);
    EXPECT_TRUE(theBinding.*Reveal(WindowFlag()));
}

TEST(BindingLayout, OfAWindowBinding)
{
    const LmWindowBinding theBinding;
    ExpectInOrder({PlaceOf(theBinding, theBinding.*Reveal(WindowReference())),
                   PlaceOf(theBinding, theBinding.*Reveal(WindowHandler())),
                   PlaceOf(theBinding, theBinding.*Reveal(WindowFlag()))},
                  sizeof theBinding);
    ExpectNoWindow(theBinding);
}

TEST(BindingLayout, OfAPreferenceBinding)
{
    const LmPreferenceBinding theBinding(CFSTR("com.example.layout"));
    ExpectInOrder({PlaceOf(theBinding, theBinding.*Reveal(PreferenceDomain()))}, sizeof theBinding);
    EXPECT_EQ(theBinding.*Reveal(PreferenceDomain()), CFSTR("com.example.layout"));
}

TEST(BindingLayout, OfAnExampleBinding)
{
    const LmExampleBinding theBinding;
    ExpectInOrder({PlaceOf(theBinding, theBinding.*Reveal(ExampleModel())),
                   PlaceOf(theBinding, theBinding.*Reveal(ExampleFlag()))},
                  sizeof theBinding);
    EXPECT_EQ(theBinding.*Reveal(ExampleModel()), nullptr);
    EXPECT_TRUE(theBinding.*Reveal(ExampleFlag()));
}

// Initialising forgets a handler without removing it, which is why only constructors may do so: here the
// handlers still delete their bindings when the menu and the window go.

TEST(BindingLayout, InitialisingAMenuBindingMakesItsMembersNew)
{
    MenuRef theMenu = nullptr;
    CreateNewMenu(128, 0, &theMenu);
    AppendMenuItemTextWithCFString(theMenu, CFSTR("Loud"), 0, 'loud', nullptr);
    InsertMenu(theMenu, 0);
    ReleaseMenu(theMenu);
    auto* const theBinding = new LmMenuBinding('loud');
    EXPECT_EQ(theBinding->*Reveal(MenuReference()), theMenu);
    EXPECT_EQ(theBinding->*Reveal(MenuItem()), 1);
    EXPECT_NE(theBinding->*Reveal(MenuHandler()), nullptr);
    theBinding->*Reveal(MenuFlag()) = false;
    theBinding->InitialiseSelf(0);
    ExpectNoCommand(*theBinding);
    DeleteMenu(128);
}

TEST(BindingLayout, InitialisingAWindowBindingMakesItsMembersNew)
{
    const Rect theBounds = {50, 50, 450, 450};
    WindowRef theWindow = nullptr;
    CreateNewWindow(kDocumentWindowClass, kWindowNoAttributes, &theBounds, &theWindow);
    auto* const theBinding = new LmWindowBinding(theWindow);
    EXPECT_NE(theBinding->*Reveal(WindowHandler()), nullptr);
    theBinding->*Reveal(WindowFlag()) = false;
    theBinding->InitialiseSelf(nullptr);
    ExpectNoWindow(*theBinding);
    DisposeWindow(theWindow);
}

// Detaching sets the flag, also in the midst of copying.

TEST(BindingLayout, ADetachedMenuBindingHasNeitherMenuNorItem)
{
    MenuRef theMenu = nullptr;
    CreateNewMenu(128, 0, &theMenu);
    AppendMenuItemTextWithCFString(theMenu, CFSTR("Loud"), 0, 'loud', nullptr);
    InsertMenu(theMenu, 0);
    ReleaseMenu(theMenu);
    LmMenuBinding theBinding('loud');
    theBinding.*Reveal(MenuFlag()) = false;
    theBinding.SetMenuCommand(0);
    ExpectNoCommand(theBinding);
    DeleteMenu(128);
}

TEST(BindingLayout, ADetachedWindowBindingHasNoWindow)
{
    LmWindowBinding theBinding;
    theBinding.*Reveal(WindowFlag()) = false;
    theBinding.SetWindow(nullptr);
    ExpectNoWindow(theBinding);
}

TEST(BindingLayout, ADetachedExampleBindingHasNoModel)
{
    int theModel = 0;
    LmExampleBinding theBinding;
    theBinding.SetModel(&theModel);
    theBinding.*Reveal(ExampleFlag()) = false;
    theBinding.SetModel(nullptr);
    EXPECT_EQ(theBinding.*Reveal(ExampleModel()), nullptr);
    EXPECT_TRUE(theBinding.*Reveal(ExampleFlag()));
}

// The flag is what keeps a copied value from being written into the model; the example's model shows nothing
// of it.
class FlagReader : public LmKeyValueObserver
{
public:
    explicit FlagReader(const LmExampleBinding& theBinding)
        : mBinding(theBinding)
    {
    }

    void ValueChanged(const LmKeyValueStore*, const LmString&) override
    {
        mFlags.push_back(mBinding.*Reveal(ExampleFlag()));
    }

    std::vector<bool> mFlags;

private:
    const LmExampleBinding& mBinding;
};

TEST(BindingLayout, TheFlagOfAnExampleBindingIsClearWhileItCopiesAndSetAfterwards)
{
    int theModel = 0;
    LmExampleBinding theBinding;
    FlagReader theReader(theBinding);
    theBinding.ObserveKeyPathValue("two", &theReader);
    theBinding.SetModel(&theModel);
    EXPECT_TRUE(theBinding.*Reveal(ExampleFlag()));
    theBinding.SetKeyPathValue("two", LmValue(5UL));
    theBinding.DoEventFromModel(2);
    EXPECT_TRUE(theBinding.*Reveal(ExampleFlag()));
    EXPECT_EQ(theReader.mFlags, (std::vector<bool>{false, true, false}))
        << "attaching, the test's own call, the model's event";
}

// Overriding does not move a function: each stands where the class that introduced it has it.
template <typename Binding>
class BindingSlots : public testing::Test
{
};

using Bindings =
    testing::Types<LmControlBinding, LmMenuBinding, LmWindowBinding, LmPreferenceBinding, LmExampleBinding>;

struct BindingNames
{
    template <typename Binding>
    static std::string GetName(int theIndex)
    {
        static const char* const kNames[] = {"Control", "Menu", "Window", "Preference", "Example"};
        return kNames[theIndex];
    }
};

TYPED_TEST_SUITE(BindingSlots, Bindings, BindingNames);

TYPED_TEST(BindingSlots, AreThoseOfTheBase)
{
    static_assert(std::has_virtual_destructor_v<TypeParam>);
    static_assert(std::is_base_of_v<LmKeyValueBinding, TypeParam>);
    using Description = LmString (TypeParam::*)() const;
    EXPECT_EQ(GetVirtualSlot(static_cast<Description>(&TypeParam::GetDebugInfo)), 2U);
    using Notification = void (TypeParam::*)(const LmKeyValueStore*, const LmString&);
    EXPECT_EQ(GetVirtualSlot(static_cast<Notification>(&TypeParam::ValueChanging)), 3U);
    EXPECT_EQ(GetVirtualSlot(static_cast<Notification>(&TypeParam::ValueChanged)), 4U);
    EXPECT_EQ(GetVirtualSlot(static_cast<bool (TypeParam::*)(const LmString&)>(&TypeParam::IsBindable)), 5U);
}

TEST(BindingLayout, TheOverridesOfAStoresFunctionsComeLast)
{
    EXPECT_EQ(GetVirtualSlot(&LmControlBinding::SetKeyValue), 6U);
    EXPECT_EQ(GetVirtualSlot(&LmMenuBinding::SetKeyValue), 6U);
    EXPECT_EQ(GetVirtualSlot(&LmWindowBinding::SetKeyValue), 6U);
    EXPECT_EQ(GetVirtualSlot(&LmExampleBinding::SetKeyValue), 6U);
    EXPECT_EQ(GetVirtualSlot(&LmPreferenceBinding::GetKeyValue), 6U);
    EXPECT_EQ(GetVirtualSlot(&LmPreferenceBinding::SetKeyValue), 7U);
}
