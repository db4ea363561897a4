// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What every binding to an object owes, whatever the object: one set of tests for all of them. A new binding
// joins by a class that knows its object.

#include "BindingTestSupport.h"
#include "CarbonSpy.h"
#include "LmControlBinding.h"
#include "LmExampleBinding.h"
#include "LmMenuBinding.h"
#include "LmWindowBinding.h"
#include "NotificationRecorder.h"

#include <gtest/gtest.h>

namespace {

// The objects ------------------------------------------------------------------------------------------
//
// Each says: the key that is tried, the object's first value for it and another one, how the object is
// changed from outside so that the binding hears of it, and what the object holds.

class ControlObject
{
public:
    static constexpr const char* kName = "Control";
    using Binding = LmControlBinding;
    static constexpr bool kCanBeDisposed = true;
    static constexpr bool kIsWritten = true;

    ControlObject()
    {
        const Rect theWindowBounds = {50, 50, 450, 450};
        const Rect theBounds = {10, 10, 30, 210};
        CreateNewWindow(kDocumentWindowClass, kWindowNoAttributes, &theWindowBounds, &mWindow);
        CreateSliderControl(mWindow, &theBounds, 5, 0, 10, kControlSliderDoesNotPoint, 0, true, nullptr,
                            &mSlider);
    }
    ~ControlObject() { DisposeWindow(mWindow); }

    static const char* Key() { return "value"; }
    static LmValue FirstValue() { return LmValue(5UL); }
    static LmValue OtherValue() { return LmValue(8UL); }
    void Attach(LmControlBinding& theBinding) const { theBinding.SetControl(mSlider); }
    void Change() const { SetControl32BitValue(mSlider, 8); }
    LmValue Read() const { return LmValue(static_cast<long>(GetControl32BitValue(mSlider))); }
    void Dispose() const { DisposeControl(mSlider); }
    static const char* NoObjectAssertion()
    {
        return "Source/Bindings/LmControlBinding.cpp, line #: mControl != NULL";
    }

private:
    WindowRef mWindow = nullptr;
    ControlRef mSlider = nullptr;
};

class WindowObject
{
public:
    static constexpr const char* kName = "Window";
    using Binding = LmWindowBinding;
    static constexpr bool kCanBeDisposed = true;
    static constexpr bool kIsWritten = true;

    WindowObject()
    {
        const Rect theBounds = {50, 50, 450, 450};
        CreateNewWindow(kDocumentWindowClass, kWindowStandardDocumentAttributes, &theBounds, &mWindow);
    }
    ~WindowObject()
    {
        if (IsValidWindowPtr(mWindow)) {
            DisposeWindow(mWindow);
        }
    }

    static const char* Key() { return "visible"; }
    static LmValue FirstValue() { return LmValue(false); }
    static LmValue OtherValue() { return LmValue(true); }
    void Attach(LmWindowBinding& theBinding) const { theBinding.SetWindow(mWindow); }
    void Change() const { ShowWindow(mWindow); }
    LmValue Read() const { return LmValue(static_cast<bool>(IsWindowVisible(mWindow))); }
    void Dispose() const { DisposeWindow(mWindow); }
    static const char* NoObjectAssertion()
    {
        return "Source/Bindings/LmWindowBinding.cpp, line #: mWindow != NULL";
    }

private:
    WindowRef mWindow = nullptr;
};

class MenuObject
{
public:
    static constexpr const char* kName = "Menu";
    using Binding = LmMenuBinding;
    static constexpr bool kCanBeDisposed = true;
    static constexpr bool kIsWritten = true;

    MenuObject()
    {
        CreateNewMenu(128, 0, &mMenu);
        AppendMenuItemTextWithCFString(mMenu, CFSTR("Loud"), 0, kCommand, nullptr);
        InsertMenu(mMenu, 0);
        ReleaseMenu(mMenu);
    }
    ~MenuObject() { DeleteMenu(128); }

    static const char* Key() { return "enabled"; }
    static LmValue FirstValue() { return LmValue(true); }
    static LmValue OtherValue() { return LmValue(false); }
    void Attach(LmMenuBinding& theBinding) const { theBinding.SetMenuCommand(kCommand); }

    // A menu tells nobody that it changed; the binding looks when the command's state is asked for.
    void Change() const
    {
        DisableMenuCommand(mMenu, kCommand);
        HICommand theCommand = {};
        theCommand.attributes = kHICommandFromMenu;
        theCommand.commandID = kCommand;
        const TestEvent theEvent(kEventClassCommand, kEventCommandUpdateStatus);
        SetEventParameter(theEvent.GetEvent(), kEventParamDirectObject, typeHICommand, sizeof theCommand,
                          &theCommand);
        SendEventToEventTarget(theEvent.GetEvent(), GetMenuEventTarget(mMenu));
    }

    LmValue Read() const { return LmValue(static_cast<bool>(IsMenuCommandEnabled(mMenu, kCommand))); }
    static void Dispose() { DeleteMenu(128); }
    static const char* NoObjectAssertion()
    {
        return "Source/Bindings/LmMenuBinding.cpp, line #: mMenu != NULL";
    }

private:
    static constexpr MenuCommand kCommand = 'loud';
    MenuRef mMenu = nullptr;
};

class ModelObject
{
public:
    static constexpr const char* kName = "Model";
    using Binding = LmExampleBinding;
    static constexpr bool kCanBeDisposed = false; // the application detaches the binding
    static constexpr bool kIsWritten = false;     // the example's properties are constants

    static const char* Key() { return "two"; }
    static LmValue FirstValue() { return LmValue(0UL); }
    static LmValue OtherValue() { return LmValue(8UL); }

    void Attach(LmExampleBinding& theBinding)
    {
        mBinding = &theBinding;
        theBinding.SetModel(this);
    }

    // The property is a constant, so the key is put out of step first.
    void Change() const
    {
        mBinding->SetKeyValue(Key(), LmValue(7UL));
        mBinding->DoEventFromModel(2);
    }

    static LmValue Read() { return LmValue(0UL); }
    static void Dispose() {}
    static const char* NoObjectAssertion()
    {
        return "Source/Bindings/LmExampleBinding.cpp, line #: mModel != NULL";
    }

private:
    LmExampleBinding* mBinding = nullptr;
};

// The contract -----------------------------------------------------------------------------------------

template <typename Object>
class BindingContract : public testing::Test
{
protected:
    using Binding = Mortal<typename Object::Binding>;

    BindingContract()
        : mBinding(new Binding(mIsGone))
    {
        CarbonSpy::Reset();
    }

    ~BindingContract() override
    {
        if (!mIsGone) {
            delete mBinding;
        }
        CarbonSpy::Reset();
    }

    LmValue GetKey() const { return mBinding->GetKeyPathValue(Object::Key()); }

    Object mObject;
    bool mIsGone = false;
    Binding* mBinding; // deletes itself with its object, if the object can be disposed
};

using Objects = testing::Types<ControlObject, WindowObject, MenuObject, ModelObject>;

struct ObjectNames
{
    template <typename Object>
    static std::string GetName(int)
    {
        return Object::kName;
    }
};

TYPED_TEST_SUITE(BindingContract, Objects, ObjectNames);

TYPED_TEST(BindingContract, AttachingReadsTheObjectAndWritesNothing)
{
    NotificationRecorder theRecorder;
    this->mBinding->ObserveKeyPathValue(TypeParam::Key(), &theRecorder);
    CarbonSpy::TakeWrites();
    this->mObject.Attach(*this->mBinding);
    EXPECT_TRUE(this->GetKey() == TypeParam::FirstValue());
    EXPECT_EQ(theRecorder.Take(), (Lines{std::string("changing ") + TypeParam::Key(),
                                         std::string("changed ") + TypeParam::Key()}));
    EXPECT_EQ(CarbonSpy::TakeWrites(), Lines{});
}

TYPED_TEST(BindingContract, SettingTheKeyWritesTheObject)
{
    this->mObject.Attach(*this->mBinding);
    this->mBinding->SetKeyPathValue(TypeParam::Key(), TypeParam::OtherValue());
    EXPECT_TRUE(this->GetKey() == TypeParam::OtherValue());
    EXPECT_EQ(this->mObject.Read() == TypeParam::OtherValue(), TypeParam::kIsWritten);
}

TYPED_TEST(BindingContract, AChangeOfTheObjectReachesTheKeyWithoutAnEcho)
{
    this->mObject.Attach(*this->mBinding);
    this->mObject.Change();
    EXPECT_TRUE(this->GetKey() == this->mObject.Read());
    const Lines theWrites = CarbonSpy::TakeWrites();
    EXPECT_EQ(theWrites.size(), TypeParam::kIsWritten ? 1U : 0U) << "the test's own call and no other";
}

TYPED_TEST(BindingContract, TheObjectIsWrittenAgainAfterAChangeOfItsOwn)
{
    this->mObject.Attach(*this->mBinding);
    this->mObject.Change();
    this->mBinding->SetKeyPathValue(TypeParam::Key(), TypeParam::FirstValue());
    EXPECT_TRUE(this->mObject.Read() == TypeParam::FirstValue());
}

TYPED_TEST(BindingContract, TheBindingGoesWithItsObject)
{
    this->mObject.Attach(*this->mBinding);
    this->mObject.Dispose();
    EXPECT_EQ(this->mIsGone, TypeParam::kCanBeDisposed);
}

TYPED_TEST(BindingContract, TheObjectSurvivesItsBinding)
{
    this->mObject.Attach(*this->mBinding);
    delete this->mBinding;
    EXPECT_TRUE(this->mIsGone);
    EXPECT_TRUE(this->mObject.Read() == TypeParam::FirstValue());
}

TYPED_TEST(BindingContract, AnUnknownKeyIsOnlyStored)
{
    this->mObject.Attach(*this->mBinding);
    CarbonSpy::TakeWrites();
    this->mBinding->SetKeyPathValue("colour", LmValue(3UL));
    this->mBinding->SyncValue("colour");
    EXPECT_EQ(this->mBinding->GetKeyPathValue("colour").GetUInt32(), 3UL);
    EXPECT_EQ(CarbonSpy::TakeWrites(), Lines{});
}

TYPED_TEST(BindingContract, WithoutAnObjectKeysAreStoredAndSyncingIsReported)
{
    this->mBinding->SetKeyPathValue(TypeParam::Key(), TypeParam::OtherValue());
    EXPECT_TRUE(this->GetKey() == TypeParam::OtherValue());
    EXPECT_EQ(CarbonSpy::TakeWrites(), Lines{});
    this->mBinding->SyncValue("colour");
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{TypeParam::NoObjectAssertion()});
}

} // namespace
