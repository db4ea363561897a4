// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "SearchFields.h"

#include "Base/Geometry.h"
#include "Creation.h"
#include "Events/OutgoingEvent.h"
#include "Windows/ControlTracking.h"
#include "Windows/Window.h"

#include <algorithm>

namespace Host {

namespace {

const int kButtonWidth = 20;
const OptionBits kAllAttributes = kHISearchFieldAttributesCancel | kHISearchFieldAttributesSearchIcon;

} // namespace

SearchField::SearchField(OptionBits theAttributes, MenuRef theMenu, std::optional<Text> theDescription)
    : EditText(kControlKindHISearchField, Text(), false),
      mAttributes(theAttributes),
      mDescription(std::move(theDescription))
{
    mIsSingleLine = true;
    SetMenu(theMenu);
}

OSErr SearchField::SetMenu(MenuRef theMenu)
{
    RetainMenu(theMenu); // the count that is given away with an owned menu; nothing happens for null
    return mMenu.Set(theMenu, theMenu != nullptr);
}

bool SearchField::HasGlass() const
{
    return (mAttributes & kHISearchFieldAttributesSearchIcon) != 0 || ShownMenu() != nullptr;
}

bool SearchField::HasCancelButton() const
{
    return (mAttributes & kHISearchFieldAttributesCancel) != 0 && !Shown().empty();
}

// Mouse and keys -----------------------------------------------------------------------------------------

Rect SearchField::PlaceOf(ControlPartCode thePart) const
{
    const Rect theBounds = WindowBounds();
    const Rect theNowhere = MakeRect(0, 0, 0, 0);
    const short theGlassEnd = std::min(theBounds.right, Narrow(theBounds.left + kButtonWidth));
    const short theButtonStart = std::max(theGlassEnd, Narrow(theBounds.right - kButtonWidth));
    Rect thePlace = theBounds;
    switch (thePart) {
    case kControlMenuPart:
        thePlace.right = theGlassEnd;
        return HasGlass() ? thePlace : theNowhere;
    case kControlSearchFieldCancelPart:
        thePlace.left = theButtonStart;
        return HasCancelButton() ? thePlace : theNowhere;
    case kControlEditTextPart:
        thePlace.left = HasGlass() ? theGlassEnd : theBounds.left;
        thePlace.right = HasCancelButton() ? theButtonStart : theBounds.right;
        return thePlace;
    default:
        return theNowhere;
    }
}

ControlPartCode SearchField::PartAt(Point thePoint) const
{
    for (const ControlPartCode thePart :
         {ControlPartCode{kControlMenuPart}, ControlPartCode{kControlSearchFieldCancelPart}}) {
        if (Contains(PlaceOf(thePart), thePoint)) {
            return thePart;
        }
    }
    return EditText::PartAt(thePoint);
}

std::optional<ControlPartCode> SearchField::TrackInLoop(ControlPartCode thePart, UInt32 theModifiers)
{
    const SharedControl theKeepAlive = shared_from_this();
    const SharedMenu theMenu = ShownMenu();
    const SharedWindow theWindow = Owner();
    if (thePart != kControlMenuPart || theMenu == nullptr || theWindow == nullptr) {
        return std::nullopt;
    }
    const Rect thePlace = WindowBounds();
    const Rect& theContent = theWindow->Content();
    const PopUpChoice theChoice =
        TrackPopUp(theMenu, MakePoint(theContent.left + thePlace.left, theContent.top + thePlace.bottom), 0);
    if (!theChoice) {
        return kControlNoPart;
    }
    SendMenuCommand(theChoice.theMenu, theChoice.theItem, theChoice.theContext, &theModifiers);
    return thePart;
}

void SearchField::PartClicked(ControlPartCode thePart)
{
    const bool theIsCancel = thePart == kControlSearchFieldCancelPart;
    if (!theIsCancel && thePart != kControlMenuPart) {
        return;
    }
    const SharedControl theKeepAlive = shared_from_this();
    OutgoingEvent theEvent(kEventClassSearchField,
                           theIsCancel ? kEventSearchFieldCancelClicked : kEventSearchFieldSearchClicked);
    theEvent.Set(kEventParamDirectObject, typeControlRef, Reference());
    const OSStatus theAnswer = theEvent.SendTo(Target(), theIsCancel ? 0 : kEventTargetDontPropagate);
    if (theIsCancel && theAnswer == eventNotHandledErr && !IsGone() && TakesInput()) {
        Edit(0, Shown().size(), Text());
    }
}

OSStatus SearchField::PressKey(const KeyPress& theKey)
{
    const UInt32 theChosen = theKey.theModifiers & (cmdKey | shiftKey | optionKey | controlKey);
    if (theKey.theCode == kVK_Escape && theChosen == 0 && HasCancelButton() && CanBePressed()) {
        PressAndRelease(shared_from_this(), kControlSearchFieldCancelPart, theKey.theModifiers);
        return noErr;
    }
    if (theKey.theCode == kVK_DownArrow && theChosen == optionKey && ShownMenu() != nullptr &&
        CanBePressed()) {
        PressAndRelease(shared_from_this(), kControlMenuPart, theKey.theModifiers);
        return noErr;
    }
    return EditText::PressKey(theKey);
}

void SearchField::AddToLook(ControlLook& theLook) const
{
    EditText::AddToLook(theLook);
    theLook.theShape = ControlShape::kSearchField;
    RareLook theRareLook;
    theRareLook.theHasMenu = ShownMenu() != nullptr;
    theRareLook.theHasGlass = HasGlass();
    theRareLook.theHasCancelButton = HasCancelButton();
    theRareLook.theDescription = mDescription ? Utf8Of(*mDescription) : std::string();
    theLook.theRareLook = std::make_shared<const RareLook>(std::move(theRareLook));
}

} // namespace Host

// The interface ------------------------------------------------------------------------------------------

namespace {

using Field = std::shared_ptr<Host::SearchField>;

std::optional<Host::Text> DescriptionOf(CFStringRef theText)
{
    return theText == nullptr ? std::nullopt : std::optional<Host::Text>(Host::TextOf(theText));
}

bool IsMenu(MenuRef theMenu)
{
    return theMenu == nullptr || Host::FindMenu(theMenu) != nullptr;
}

// Does something to a search field and shows it anew.
template <class Action>
OSStatus Change(HIViewRef theView, const Action& theChange)
{
    const Field theField = Host::FindKind<Host::SearchField>(theView);
    if (theField == nullptr) {
        return errUnknownControl;
    }
    const OSStatus theStatus = Host::Guarded([&] { return OSStatus{theChange(*theField)}; });
    theField->Show();
    return theStatus;
}

} // namespace

OSStatus HISearchFieldCreate(const HIRect* inBounds, OptionBits inAttributes, MenuRef inSearchMenu,
                             CFStringRef inDescriptiveText, HIViewRef* outRef)
{
    if ((inAttributes & ~Host::kAllAttributes) != 0 || !IsMenu(inSearchMenu)) {
        return Host::Refuse(outRef);
    }
    return Host::MakeView(inBounds, outRef, [&] {
        return std::make_shared<Host::SearchField>(inAttributes, inSearchMenu,
                                                   DescriptionOf(inDescriptiveText));
    });
}

OSStatus HISearchFieldSetSearchMenu(HIViewRef inSearchField, MenuRef inSearchMenu)
{
    return Change(inSearchField, [&](Host::SearchField& theField) {
        return IsMenu(inSearchMenu) ? theField.SetMenu(inSearchMenu) : OSErr{paramErr};
    });
}

OSStatus HISearchFieldGetSearchMenu(HIViewRef inSearchField, MenuRef* outSearchMenu)
{
    if (outSearchMenu == nullptr) {
        return paramErr;
    }
    *outSearchMenu = nullptr;
    const Field theField = Host::FindKind<Host::SearchField>(inSearchField);
    if (theField == nullptr) {
        return errUnknownControl;
    }
    const Host::SharedMenu theMenu = theField->ShownMenu();
    *outSearchMenu = theMenu == nullptr ? nullptr : theMenu->Reference();
    return noErr;
}

OSStatus HISearchFieldChangeAttributes(HIViewRef inSearchField, OptionBits inAttributesToSet,
                                       OptionBits inAttributesToClear)
{
    return Change(inSearchField, [&](Host::SearchField& theField) {
        if (((inAttributesToSet | inAttributesToClear) & ~Host::kAllAttributes) != 0) {
            return OSErr{paramErr};
        }
        theField.mAttributes = (theField.mAttributes | inAttributesToSet) & ~inAttributesToClear;
        return OSErr{noErr};
    });
}

OSStatus HISearchFieldGetAttributes(HIViewRef inSearchField, OptionBits* outAttributes)
{
    const Field theField = Host::FindKind<Host::SearchField>(inSearchField);
    if (outAttributes == nullptr) {
        return paramErr;
    }
    *outAttributes = theField == nullptr ? 0 : theField->mAttributes;
    return theField == nullptr ? OSStatus{errUnknownControl} : OSStatus{noErr};
}

OSStatus HISearchFieldSetDescriptiveText(HIViewRef inSearchField, CFStringRef inDescription)
{
    return Change(inSearchField, [&](Host::SearchField& theField) {
        theField.mDescription = DescriptionOf(inDescription);
        return OSErr{noErr};
    });
}

OSStatus HISearchFieldCopyDescriptiveText(HIViewRef inSearchField, CFStringRef* outDescription)
{
    if (outDescription == nullptr) {
        return paramErr;
    }
    *outDescription = nullptr;
    const Field theField = Host::FindKind<Host::SearchField>(inSearchField);
    if (theField == nullptr) {
        return errUnknownControl;
    }
    if (theField->mDescription) {
        *outDescription = Host::CreateString(*theField->mDescription);
    }
    return noErr;
}
