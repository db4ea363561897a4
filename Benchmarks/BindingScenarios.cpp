// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "BindingScenarios.h"

#include <array>
#include <cstdlib>

namespace {

const Rect kWindowPlace = {100, 100, 300, 400};
const SInt32 kSliderMaximum = 1000;
const MenuCommand kCommand = 'mark';
const MenuID kMenuNumber = 128;

// The kinds that a transform is meant for, as their places in kKinds.
using Kinds = unsigned;
const Kinds kBoolean = 0x001;
const Kinds kNumbers = 0x03E;
const Kinds kText = 0x040;
const Kinds kPointer = 0x080;
const Kinds kGeometry = 0x700;
const Kinds kAll = kBoolean | kNumbers | kText | kPointer | kGeometry;

struct NamedTransform
{
    const char* theName;
    Kinds theKinds;
    // theValue is of the kind that it will be applied to.
    LmValueTransform* (*theFactory)(const LmValue& theValue);
};

LmValueTransform* NewListTransform(const LmValue&)
{
    auto* theList = new LmListTransform;
    for (int theCount = 0; theCount < 3; ++theCount) {
        LmValueTransform* theNegation = new LmNegateTransform;
        theList->Add(theNegation);
        theNegation->Release();
    }
    return theList;
}

const std::array<NamedTransform, 13> kTransforms = {{
    {"IsNull", kAll, [](const LmValue&) -> LmValueTransform* { return new LmIsNullTransform; }},
    {"IsNotNull", kAll, [](const LmValue&) -> LmValueTransform* { return new LmIsNotNullTransform; }},
    {"IsAbove", kAll & ~kGeometry,
     [](const LmValue& theValue) -> LmValueTransform* { return new LmIsAboveTransform(theValue, true); }},
    {"IsBelow", kAll & ~kGeometry,
     [](const LmValue& theValue) -> LmValueTransform* { return new LmIsBelowTransform(theValue, true); }},
    {"IsEqual", kAll,
     [](const LmValue& theValue) -> LmValueTransform* { return new LmIsEqualTransform(theValue); }},
    {"IsNotEqual", kAll,
     [](const LmValue& theValue) -> LmValueTransform* { return new LmIsNotEqualTransform(theValue); }},
    {"Absolute", kAll, [](const LmValue&) -> LmValueTransform* { return new LmAbsoluteTransform; }},
    {"Add", kAll, [](const LmValue& theValue) -> LmValueTransform* { return new LmAddTransform(theValue); }},
    {"Scale", kNumbers | kGeometry,
     [](const LmValue&) -> LmValueTransform* { return new LmScaleTransform(1.5); }},
    {"Negate", kBoolean | kNumbers | kGeometry,
     [](const LmValue&) -> LmValueTransform* { return new LmNegateTransform; }},
    {"ToString", kAll, [](const LmValue&) -> LmValueTransform* { return new LmToStringTransform; }},
    {"FromString", kText, [](const LmValue&) -> LmValueTransform* { return new LmFromStringTransform; }},
    {"ListOfThree", kBoolean | kNumbers | kGeometry, NewListTransform},
}};

struct NamedValue
{
    const char* theName;
    LmValue (*theMaker)();
};

const std::array<NamedValue, 11> kKinds = {{
    {"boolean", [] { return LmValue(true); }},
    {"unsigned32", [] { return LmValue(42UL); }},
    {"signed32", [] { return LmValue(-42L); }},
    {"unsigned64", [] { return LmValue(4200000000000ULL); }},
    {"signed64", [] { return LmValue(-4200000000000LL); }},
    {"double", [] { return LmValue(42.25); }},
    {"string", [] { return LmValue(CFSTR("42"), false); }},
    {"pointer", [] { return LmValue(static_cast<const void*>(&kWindowPlace)); }},
    {"point", [] { return LmValue(CGPointMake(1.5, 2.5)); }},
    {"size", [] { return LmValue(CGSizeMake(3.5, 4.5)); }},
    {"rectangle", [] { return LmValue(CGRectMake(1.5, 2.5, 3.5, 4.5)); }},
}};

template <typename Table>
std::vector<const char*> NamesOf(const Table& theTable)
{
    std::vector<const char*> theNames;
    theNames.reserve(theTable.size());
    for (const auto& theRow : theTable) {
        theNames.push_back(theRow.theName);
    }
    return theNames;
}

// Two values that print alike are alike; a null string, which equals nothing, is alike as well.
bool IsAlike(const LmValue& theOne, const LmValue& theOther)
{
    if (theOne.IsString() && theOther.IsString()) {
        return theOne.GetString() == theOther.GetString() || theOne == theOther;
    }
    return theOne.GetType() == theOther.GetType() && theOne == theOther;
}

WindowRef NewWindow()
{
    WindowRef theWindow = nullptr;
    CreateNewWindow(kDocumentWindowClass, kWindowStandardDocumentAttributes | kWindowStandardHandlerAttribute,
                    &kWindowPlace, &theWindow);
    return theWindow;
}

// The preferences of a benchmark are nobody's.
CFStringRef MemoryDomain()
{
    setenv("LM_PREFERENCES", "memory", 1);
    return CFSTR("org.lmbindings.benchmark");
}

} // namespace

TransformScenario::TransformScenario(std::size_t theTransform, std::size_t theKind)
    : mValue(kKinds.at(theKind).theMaker()),
      mTransform(kTransforms.at(theTransform).theFactory(mValue)),
      mFirstResult(mTransform->Apply(mValue))
{
}

TransformScenario::~TransformScenario()
{
    mTransform->Release();
}

void TransformScenario::Step()
{
    mResult = mTransform->Apply(mValue);
}

bool TransformScenario::IsRight() const
{
    return IsAlike(mResult, mFirstResult);
}

const std::vector<const char*>& TransformScenario::TransformNames()
{
    static const std::vector<const char*> kNames = NamesOf(kTransforms);
    return kNames;
}

const std::vector<const char*>& TransformScenario::KindNames()
{
    static const std::vector<const char*> kNames = NamesOf(kKinds);
    return kNames;
}

bool TransformScenario::IsMeantFor(std::size_t theTransform, std::size_t theKind)
{
    return (kTransforms.at(theTransform).theKinds & (1U << theKind)) != 0;
}

ControlEventScenario::ControlEventScenario()
    : mWindow(NewWindow())
{
    const Rect theBounds = {10, 10, 30, 210};
    CreateSliderControl(mWindow, &theBounds, 0, 0, kSliderMaximum, kControlSliderDoesNotPoint, 0, false,
                        nullptr, &mSlider);
    mBinding = new LmControlBinding(mSlider);
}

ControlEventScenario::~ControlEventScenario()
{
    DisposeWindow(mWindow);
}

void ControlEventScenario::Step()
{
    mValue = (mValue + 1) % kSliderMaximum;
    SetControl32BitValue(mSlider, mValue);
}

bool ControlEventScenario::IsRight() const
{
    return mBinding->GetKeyPathValue("value").GetSInt32() == mValue;
}

WindowEventScenario::WindowEventScenario()
    : mWindow(NewWindow()),
      mBinding(new LmWindowBinding(mWindow))
{
}

WindowEventScenario::~WindowEventScenario()
{
    DisposeWindow(mWindow);
}

void WindowEventScenario::Step()
{
    mLeft = mLeft == 100 ? 101 : 100;
    MoveWindow(mWindow, mLeft, 100, false);
}

bool WindowEventScenario::IsRight() const
{
    return static_cast<short>(mBinding->GetKeyPathValue("bounds").GetRect().origin.x) == mLeft;
}

MenuEventScenario::MenuEventScenario()
{
    CreateNewMenu(kMenuNumber, 0, &mMenu);
    AppendMenuItemTextWithCFString(mMenu, CFSTR("Marked"), 0, kCommand, nullptr);
    InsertMenu(mMenu, 0);
    mBinding = new LmMenuBinding(kCommand);
}

MenuEventScenario::~MenuEventScenario()
{
    DeleteMenu(kMenuNumber);
    DisposeMenu(mMenu);
}

void MenuEventScenario::Step()
{
    mIsMarked = !mIsMarked;
    SetMenuCommandMark(mMenu, kCommand, mIsMarked ? checkMark : noMark);
    HICommand theCommand = {};
    theCommand.attributes = kHICommandFromMenu;
    theCommand.commandID = kCommand;
    theCommand.menu.menuRef = mMenu;
    theCommand.menu.menuItemIndex = 1;
    EventRef theEvent = nullptr;
    CreateEvent(nullptr, kEventClassCommand, kEventCommandUpdateStatus, 0, kEventAttributeNone, &theEvent);
    SetEventParameter(theEvent, kEventParamDirectObject, typeHICommand, sizeof theCommand, &theCommand);
    SendEventToEventTarget(theEvent, GetMenuEventTarget(mMenu));
    ReleaseEvent(theEvent);
}

bool MenuEventScenario::IsRight() const
{
    return mBinding->GetKeyPathValue("mark").GetBoolean() == mIsMarked;
}

ModelEventScenario::ModelEventScenario()
{
    mBinding.SetModel(this);
}

void ModelEventScenario::Step()
{
    mBinding.SetKeyPathValue("one", LmValue(false));
    mBinding.DoEventFromModel(1);
}

bool ModelEventScenario::IsRight() const
{
    return mBinding.GetKeyPathValue("one").GetBoolean();
}

PreferenceScenario::PreferenceScenario(bool theWrite)
    : mPreferences(MemoryDomain()),
      mWrite(theWrite)
{
    mPreferences.SetKeyPathValue("number", LmValue(mValue));
}

void PreferenceScenario::Step()
{
    if (mWrite) {
        mPreferences.SetKeyPathValue("number", LmValue(++mValue));
    } else {
        mFound = mPreferences.GetKeyPathValue("number").GetSInt32();
    }
}

bool PreferenceScenario::IsRight() const
{
    return mPreferences.GetKeyPathValue("number").GetSInt32() == mValue && (mWrite || mFound == mValue);
}
