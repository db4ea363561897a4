// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What every binding to an object owes, whatever the object: one set of tests for all of them. A new binding
// joins by a class that knows its object. The bindings that have keys of their own, and may be without an
// object, owe some more, and so do those that Carbon tells of their object's changes, and those that have a
// key that stands for a text.

#include "BindingTestSupport.h"
#include "CarbonSpy.h"
#include "LmControlBinding.h"
#include "LmExampleBinding.h"
#include "LmMenuBinding.h"
#include "LmPreferenceBinding.h"
#include "LmWindowBinding.h"
#include "NotificationRecorder.h"
#include "PreferenceSpy.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

// The objects ------------------------------------------------------------------------------------------
//
// Each says: the key that is tried, the object's first value for it and another one, how the object is
// changed from outside so that the binding can know it, and what the object holds.

// A Carbon call that writes into an object, and the key that is set to bring it about.
struct Write
{
    const char* theCall;
    const char* theKey;
    LmValue theValue;
};

// What most of them have in common.
class ObjectTraits
{
public:
    static constexpr bool kCanBeDisposed = true;      // and takes its binding with it
    static constexpr bool kIsWritten = true;          // a set key changes the object
    static constexpr bool kIsCopied = true;           // the keys hold copies, which are made on attaching
    static constexpr std::size_t kWritesOfChange = 1; // the calls of Change that the spies note
};

class ControlObject : public ObjectTraits
{
public:
    static constexpr const char* kName = "Control";
    using Binding = LmControlBinding;

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
    static void Detach(LmControlBinding& theBinding) { theBinding.SetControl(nullptr); }
    void Change() const { SetControl32BitValue(mSlider, 8); }
    LmValue Read() const { return LmValue(static_cast<long>(GetControl32BitValue(mSlider))); }
    void Dispose() const { DisposeControl(mSlider); }
    static std::string Place() { return "Source/Bindings/LmControlBinding.cpp, line #: "; }
    static std::string NoObjectAssertion() { return Place() + "mControl != NULL"; }
    static std::vector<Write> Writes()
    {
        return {{"DisableControl", "enabled", LmValue(false)},
                {"EnableControl", "enabled", LmValue(true)},
                {"SetControlVisibility", "visible", LmValue(false)},
                {"SetControlTitleWithCFString", "title", TextValue("after")}};
    }
    static const char* TextKey() { return "title"; }
    std::string Text() const
    {
        CFStringRef theTitle = nullptr;
        CopyControlTitleAsCFString(mSlider, &theTitle);
        return TextOfAdopted(theTitle);
    }

private:
    WindowRef mWindow = nullptr;
    ControlRef mSlider = nullptr;
};

// The controls whose value is a text.
template <OSType kKind>
class TextControlObject : public ObjectTraits
{
public:
    using Binding = LmControlBinding;

    TextControlObject()
    {
        const Rect theWindowBounds = {50, 50, 450, 450};
        CreateNewWindow(kDocumentWindowClass, kWindowNoAttributes, &theWindowBounds, &mWindow);
        const Rect theBounds = {10, 10, 30, 210};
        if constexpr (kKind == kControlKindStaticText) {
            CreateStaticTextControl(mWindow, &theBounds, nullptr, nullptr, &mControl);
        } else if constexpr (kKind == kControlKindEditText) {
            CreateEditTextControl(mWindow, &theBounds, nullptr, false, false, nullptr, &mControl);
        } else {
            CreateEditUnicodeTextControl(mWindow, &theBounds, nullptr, false, nullptr, &mControl);
        }
    }
    ~TextControlObject() { DisposeWindow(mWindow); }

    void Attach(LmControlBinding& theBinding) const { theBinding.SetControl(mControl); }
    static std::string Place() { return ControlObject::Place(); }
    static const char* TextKey() { return "value"; }
    std::string Text() const
    {
        CFStringRef theText = nullptr;
        GetControlData(mControl, kControlEntireControl, kControlStaticTextCFStringTag, sizeof theText,
                       &theText, nullptr);
        return TextOfAdopted(theText);
    }

private:
    WindowRef mWindow = nullptr;
    ControlRef mControl = nullptr;
};

class StaticTextObject : public TextControlObject<kControlKindStaticText>
{
public:
    static constexpr const char* kName = "StaticText";
};

class EditTextObject : public TextControlObject<kControlKindEditText>
{
public:
    static constexpr const char* kName = "EditText";
};

class EditUnicodeTextObject : public TextControlObject<kControlKindEditUnicodeText>
{
public:
    static constexpr const char* kName = "EditUnicodeText";
};

class WindowObject : public ObjectTraits
{
public:
    static constexpr const char* kName = "Window";
    using Binding = LmWindowBinding;

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
    static void Detach(LmWindowBinding& theBinding) { theBinding.SetWindow(nullptr); }
    void Change() const { ShowWindow(mWindow); }
    LmValue Read() const { return LmValue(static_cast<bool>(IsWindowVisible(mWindow))); }
    void Dispose() const { DisposeWindow(mWindow); }
    static std::string Place() { return "Source/Bindings/LmWindowBinding.cpp, line #: "; }
    static std::string NoObjectAssertion() { return Place() + "mWindow != NULL"; }
    static std::vector<Write> Writes()
    {
        return {{"CollapseWindow", "collapsed", LmValue(true)},
                {"SetWindowBounds", "bounds", LmValue(CGRect{{1, 2}, {3, 4}})},
                {"SetWindowTitleWithCFString", "title", TextValue("after")}};
    }
    static const char* TextKey() { return "title"; }
    std::string Text() const
    {
        CFStringRef theTitle = nullptr;
        CopyWindowTitleAsCFString(mWindow, &theTitle);
        return TextOfAdopted(theTitle);
    }

private:
    WindowRef mWindow = nullptr;
};

class MenuObject : public ObjectTraits
{
public:
    static constexpr const char* kName = "Menu";
    using Binding = LmMenuBinding;

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
    static void Detach(LmMenuBinding& theBinding) { theBinding.SetMenuCommand(0); }

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
    static std::string Place() { return "Source/Bindings/LmMenuBinding.cpp, line #: "; }
    static std::string NoObjectAssertion() { return Place() + "mMenu != NULL"; }
    static std::vector<Write> Writes()
    {
        return {{"SetMenuCommandMark", "mark", LmValue(1UL)},
                {"SetMenuItemTextWithCFString", "title", TextValue("after")}};
    }
    static const char* TextKey() { return "title"; }
    std::string Text() const
    {
        CFStringRef theTitle = nullptr;
        CopyMenuItemTextAsCFString(mMenu, 1, &theTitle);
        return TextOfAdopted(theTitle);
    }

private:
    static constexpr MenuCommand kCommand = 'loud';
    MenuRef mMenu = nullptr;
};

class ModelObject : public ObjectTraits
{
public:
    static constexpr const char* kName = "Model";
    using Binding = LmExampleBinding;
    static constexpr bool kCanBeDisposed = false;
    static constexpr bool kIsWritten = false; // the example's properties are constants
    static constexpr std::size_t kWritesOfChange = 0;

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

    // The application detaches the binding before the model goes.
    void Dispose() const { mBinding->SetModel(nullptr); }

    static std::string Place() { return "Source/Bindings/LmExampleBinding.cpp, line #: "; }
    static std::string NoObjectAssertion() { return Place() + "mModel != NULL"; }

private:
    LmExampleBinding* mBinding = nullptr;
};

// The object of a preference binding is a domain, which is there before anything is written into it.
class PreferenceObject : public ObjectTraits
{
public:
    static constexpr const char* kName = "Preference";
    class Binding : public LmPreferenceBinding
    {
    public:
        Binding()
            : LmPreferenceBinding(CFSTR("com.example.contract"))
        {
        }
    };
    static constexpr bool kCanBeDisposed = false;
    static constexpr bool kIsCopied = false; // each reading asks the domain
    static constexpr std::size_t kWritesOfChange = 0;

    PreferenceObject() { PreferenceSpy::Reset(); }
    ~PreferenceObject() { PreferenceSpy::Reset(); }

    static const char* Key() { return "volume"; }
    static LmValue FirstValue() { return LmValue(true); }
    static LmValue OtherValue() { return LmValue(false); }

    // The binding is attached from its beginning, so its domain has the value already.
    static void Attach(const LmPreferenceBinding&) { Store(kCFBooleanTrue); }

    static void Change() { Store(kCFBooleanFalse); }

    static LmValue Read()
    {
        const CFTypeRef theProperty = PreferenceSpy::Stored(Key());
        return theProperty != nullptr ? LmValue(theProperty == kCFBooleanTrue) : LmValue();
    }

    static void Dispose() { PreferenceSpy::Reset(); }

private:
    static void Store(CFBooleanRef theProperty) { PreferenceSpy::Store(Key(), CFRetain(theProperty)); }
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

    // The calls that write into an object, since the last time.
    static Lines TakeWrites()
    {
        Lines theWrites = CarbonSpy::TakeWrites();
        for (const std::string& theCall : PreferenceSpy::TakeCalls()) {
            if (theCall.rfind("set ", 0) == 0) {
                theWrites.push_back(theCall);
            }
        }
        return theWrites;
    }

    Object mObject;
    bool mIsGone = false;
    Binding* mBinding; // deletes itself with its object, if the object can be disposed
};

using Objects = testing::Types<ControlObject, WindowObject, MenuObject, ModelObject, PreferenceObject>;

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
    this->TakeWrites();
    this->mObject.Attach(*this->mBinding);
    EXPECT_TRUE(this->GetKey() == TypeParam::FirstValue());
    const Lines theCopying = {std::string("changing ") + TypeParam::Key(),
                              std::string("changed ") + TypeParam::Key()};
    EXPECT_EQ(theRecorder.Take(), TypeParam::kIsCopied ? theCopying : Lines{});
    EXPECT_EQ(this->TakeWrites(), Lines{});
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
    this->TakeWrites();
    this->mObject.Change();
    EXPECT_TRUE(this->GetKey() == this->mObject.Read());
    EXPECT_EQ(this->TakeWrites().size(), TypeParam::kWritesOfChange) << "the test's own calls and no other";
}

TYPED_TEST(BindingContract, TheObjectIsWrittenAgainAfterAChangeOfItsOwn)
{
    this->mObject.Attach(*this->mBinding);
    this->mObject.Change();
    this->mBinding->SetKeyPathValue(TypeParam::Key(), TypeParam::FirstValue());
    EXPECT_TRUE(this->mObject.Read() == TypeParam::FirstValue());
}

TYPED_TEST(BindingContract, TheBindingGoesWithItsObjectOrCanStillBeUsed)
{
    this->mObject.Attach(*this->mBinding);
    this->mObject.Dispose();
    EXPECT_EQ(this->mIsGone, TypeParam::kCanBeDisposed);
    if (!this->mIsGone) {
        this->mBinding->SetKeyPathValue(TypeParam::Key(), TypeParam::OtherValue());
        EXPECT_TRUE(this->GetKey() == TypeParam::OtherValue());
    }
}

TYPED_TEST(BindingContract, TheObjectSurvivesItsBinding)
{
    this->mObject.Attach(*this->mBinding);
    delete this->mBinding;
    EXPECT_TRUE(this->mIsGone);
    EXPECT_TRUE(this->mObject.Read() == TypeParam::FirstValue());
}

// Of the bindings that have keys of their own. Any text is the key of a preference, and a preference binding
// always has its domain.

template <typename Object>
class BindingWithOwnKeys : public BindingContract<Object>
{
};

using ObjectsWithOwnKeys = testing::Types<ControlObject, WindowObject, MenuObject, ModelObject>;
TYPED_TEST_SUITE(BindingWithOwnKeys, ObjectsWithOwnKeys, ObjectNames);

TYPED_TEST(BindingWithOwnKeys, AnUnknownKeyIsOnlyStored)
{
    this->mObject.Attach(*this->mBinding);
    this->TakeWrites();
    this->mBinding->SetKeyPathValue("colour", LmValue(3UL));
    this->mBinding->SyncValue("colour");
    EXPECT_EQ(this->mBinding->GetKeyPathValue("colour").GetUInt32(), 3UL);
    EXPECT_EQ(this->TakeWrites(), Lines{});
}

TYPED_TEST(BindingWithOwnKeys, WithoutAnObjectKeysAreStoredAndSyncingIsReported)
{
    this->mBinding->SetKeyPathValue(TypeParam::Key(), TypeParam::OtherValue());
    EXPECT_TRUE(this->GetKey() == TypeParam::OtherValue());
    EXPECT_EQ(this->TakeWrites(), Lines{});
    this->mBinding->SyncValue("colour");
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{TypeParam::NoObjectAssertion()});
    EXPECT_FALSE(this->mBinding->HasKey("colour"));
}

// Of the bindings that install a Carbon event handler on their object.

template <typename Object>
class BindingWithHandler : public BindingContract<Object>
{
protected:
    static Lines StatusLine(OSStatus theStatus)
    {
        return Lines{Object::Place() + "Error " + std::to_string(theStatus)};
    }
};

using ObjectsWithEvents = testing::Types<ControlObject, WindowObject, MenuObject>;
TYPED_TEST_SUITE(BindingWithHandler, ObjectsWithEvents, ObjectNames);

TYPED_TEST(BindingWithHandler, EachWriteThatFailsIsReportedAndTheKeyIsStored)
{
    this->mObject.Attach(*this->mBinding);
    for (const Write& theWrite : TypeParam::Writes()) {
        CarbonSpy::Fail(theWrite.theCall, paramErr);
        this->mBinding->SetKeyPathValue(theWrite.theKey, theWrite.theValue);
        EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), this->StatusLine(paramErr)) << theWrite.theCall;
        EXPECT_TRUE(this->mBinding->GetKeyPathValue(theWrite.theKey) == theWrite.theValue)
            << theWrite.theCall;
        CarbonSpy::Reset();
    }
}

TYPED_TEST(BindingWithHandler, AHandlerThatCannotBeInstalledIsReportedAndTheObjectIsReadAllTheSame)
{
    CarbonSpy::Fail("InstallEventHandler", memFullErr);
    this->mObject.Attach(*this->mBinding);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), this->StatusLine(memFullErr));
    EXPECT_TRUE(this->GetKey() == TypeParam::FirstValue());
}

TYPED_TEST(BindingWithHandler, AHandlerThatCannotBeRemovedIsReported)
{
    this->mObject.Attach(*this->mBinding);
    CarbonSpy::Fail("RemoveEventHandler", eventInternalErr);
    this->mObject.Detach(*this->mBinding);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), this->StatusLine(eventInternalErr));
    this->mObject.Dispose();
    EXPECT_TRUE(this->mIsGone) << "the handler is still there";
}

TYPED_TEST(BindingWithHandler, AHandlerWithoutABindingPrintsTheAssertionAndHandlesNothing)
{
    // Among them the events that a binding for such an object handles.
    for (const EventTypeSpec& theType : {EventTypeSpec{kEventClassControl, kEventControlDispose},
                                         EventTypeSpec{kEventClassMenu, kEventMenuDispose},
                                         EventTypeSpec{kEventClassWindow, kEventWindowClosed}}) {
        const TestEvent theEvent(theType.eventClass, theType.eventKind);
        EXPECT_EQ(TypeParam::Binding::EventHandler(nullptr, theEvent.GetEvent(), nullptr),
                  eventNotHandledErr);
        EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{TypeParam::Place() + "userData != NULL"});
    }
}

TYPED_TEST(BindingWithHandler, EventsOfOtherClassesAreNotHandled)
{
    const TestEvent theEvent(kEventClassMouse, kEventMouseDown);
    EXPECT_EQ(TypeParam::Binding::EventHandler(nullptr, theEvent.GetEvent(), this->mBinding),
              eventNotHandledErr);
}

// Of the keys that stand for a text.

template <typename Object>
class BindingWithText : public BindingContract<Object>
{
protected:
    BindingWithText()
    {
        this->mObject.Attach(*this->mBinding);
        this->mBinding->SetKeyPathValue(Object::TextKey(), TextValue("shown"));
        EXPECT_EQ(this->mObject.Text(), "shown");
        this->TakeWrites();
    }
};

using ObjectsWithText = testing::Types<ControlObject, StaticTextObject, EditTextObject, EditUnicodeTextObject,
                                       WindowObject, MenuObject>;
TYPED_TEST_SUITE(BindingWithText, ObjectsWithText, ObjectNames);

const char kNoString[] = "Source/Core/LmValue.cpp, line #: IsString()";
const char kNoValue[] = "Source/Core/LmKeyValueStore.cpp, line #: HasKey(theKeyName)";

struct NoText
{
    LmValue theValue;
    Lines theDiagnostics;
};

std::vector<NoText> NoTexts()
{
    static const int kPointedAt = 0;
    return {
        {LmValue(), {kNoString, kNoValue}},
        {LmValue(true), {kNoString}},
        {LmValue(2UL), {kNoString}},
        {LmValue(3L), {kNoString}},
        {LmValue(4ULL), {kNoString}},
        {LmValue(5LL), {kNoString}},
        {LmValue(6.0), {kNoString}},
        {LmValue(static_cast<const void*>(&kPointedAt)), {kNoString}},
        {LmValue(CGPoint{1, 2}), {kNoString}},
        {LmValue(CGSize{1, 2}), {kNoString}},
        {LmValue(CGRect{{1, 2}, {3, 4}}), {kNoString}},
    };
}

// The words of such a value used to be taken for the address of a string.
TYPED_TEST(BindingWithText, WhatIsNoStringIsReportedAndStoredAndTheObjectIsNotWritten)
{
    for (const NoText& theRow : NoTexts()) {
        const ValueType theType = theRow.theValue.GetType();
        this->mBinding->SetKeyPathValue(TypeParam::TextKey(), theRow.theValue);
        EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), theRow.theDiagnostics) << theType;
        EXPECT_EQ(this->mBinding->GetKeyPathValue(TypeParam::TextKey()).GetType(), theType);
        EXPECT_EQ(this->TakeWrites(), Lines{}) << theType;
        EXPECT_EQ(this->mObject.Text(), "shown") << theType;
    }
}

TYPED_TEST(BindingWithText, ANullStringIsRefusedByTheObjectAndReportedAndStored)
{
    this->mBinding->SetKeyPathValue(TypeParam::TextKey(), LmValue(CFStringRef(nullptr), false));
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(),
              Lines{TypeParam::Place() + "Error " + std::to_string(paramErr)});
    const LmValue theStored = this->mBinding->GetKeyPathValue(TypeParam::TextKey());
    ASSERT_TRUE(theStored.IsString());
    EXPECT_EQ(theStored.GetString(), nullptr);
    EXPECT_EQ(this->TakeWrites().size(), 1U);
    EXPECT_EQ(this->mObject.Text(), "shown");
}

} // namespace
