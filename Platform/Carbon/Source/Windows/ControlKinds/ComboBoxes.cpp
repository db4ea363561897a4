// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ComboBoxes.h"

#include "Base/Geometry.h"
#include "Creation.h"
#include "DataTags.h"
#include "Events/OutgoingEvent.h"
#include "Menus/Menu.h"
#include "Windows/ControlTracking.h"
#include "Windows/Window.h"

#include <algorithm>

namespace Host {

namespace {

const int kButtonWidth = 20;
const OptionBits kAllAttributes =
    kHIComboBoxStandardAttributes | kHIComboBoxAutoSortAttribute | kHIComboBoxAutoSizeListAttribute;

// A string that is released at the end; null without memory.
class HeldString
{
public:
    explicit HeldString(const Text& theText)
        : mString(CreateString(theText))
    {
    }
    ~HeldString()
    {
        if (mString != nullptr) {
            CFRelease(mString);
        }
    }
    HeldString(const HeldString&) = delete;
    HeldString& operator=(const HeldString&) = delete;

    CFStringRef Get() const { return mString; }

private:
    CFStringRef mString;
};

bool ComesBefore(const Text& theOne, const Text& theOther)
{
    const HeldString theFirst(theOne);
    const HeldString theSecond(theOther);
    if (theFirst.Get() == nullptr || theSecond.Get() == nullptr) {
        return theOne < theOther;
    }
    return CFStringCompare(theFirst.Get(), theSecond.Get(), kCFCompareCaseInsensitive) == kCFCompareLessThan;
}

bool BeginsWith(const Text& theText, const Text& theBeginning)
{
    return theText.size() > theBeginning.size() &&
           !ComesBefore(theText.substr(0, theBeginning.size()), theBeginning) &&
           !ComesBefore(theBeginning, theText.substr(0, theBeginning.size()));
}

// The list as a menu, which the caller holds; null without memory.
MenuHolder MenuOf(const std::vector<Text>& theItems)
{
    MenuRef theMenu = nullptr;
    CreateNewMenu(0, 0, &theMenu);
    MenuHolder theHolder(theMenu);
    ReleaseMenu(theMenu); // the holder's count stays
    for (const Text& theItem : theItems) {
        const HeldString theText(theItem);
        AppendMenuItemTextWithCFString(theMenu, theText.Get(), kMenuItemAttrIgnoreMeta, 0, nullptr);
    }
    return theHolder;
}

} // namespace

ComboBox::ComboBox(Text theText, OptionBits theAttributes)
    : EditText(kControlKindHIComboBox, std::move(theText), false),
      mAttributes(theAttributes)
{
    mIsSingleLine = true;
}

// The list -----------------------------------------------------------------------------------------------

size_t ComboBox::Insert(const Text& theItem, size_t thePlace)
{
    auto theNext = mItems.begin() + static_cast<std::ptrdiff_t>(std::min(thePlace, mItems.size()));
    if (Is(kHIComboBoxAutoSortAttribute)) {
        theNext = std::upper_bound(mItems.begin(), mItems.end(), theItem, ComesBefore);
    }
    return static_cast<size_t>(mItems.insert(theNext, theItem) - mItems.begin());
}

void ComboBox::Remove(size_t thePlace)
{
    mItems.erase(mItems.begin() + static_cast<std::ptrdiff_t>(thePlace));
}

void ComboBox::SetItems(std::vector<Text> theItems)
{
    mItems = std::move(theItems);
    SetAttributes(mAttributes);
}

void ComboBox::SetAttributes(OptionBits theAttributes)
{
    mAttributes = theAttributes;
    if (Is(kHIComboBoxAutoSortAttribute)) {
        std::stable_sort(mItems.begin(), mItems.end(), ComesBefore);
    }
}

size_t ComboBox::Current() const
{
    return static_cast<size_t>(std::find(mItems.begin(), mItems.end(), Shown()) - mItems.begin());
}

// Handlers may refuse the edit, or make another text of it; an item is chosen when it stands there.
void ComboBox::Choose(size_t thePlace)
{
    const Text theItem = mItems[thePlace];
    if (Shown() != theItem) {
        Edit(0, Shown().size(), theItem);
    }
    if (IsGone() || Shown() != theItem) {
        return;
    }
    OutgoingEvent theEvent(kEventClassHIComboBox, kEventComboBoxListItemSelected);
    theEvent.Set(kEventParamDirectObject, typeControlRef, Reference());
    theEvent.Set(kEventParamComboBoxListSelectedItemIndex, typeCFIndex, static_cast<CFIndex>(thePlace));
    theEvent.TellAll(Target());
    if (!IsGone()) {
        Accept();
    }
}

// The rest of what is typed is selected, so that the next letter takes its place.
void ComboBox::Complete()
{
    const Text theTyped = Shown();
    const auto theItem = std::find_if(mItems.begin(), mItems.end(),
                                      [&](const Text& theOne) { return BeginsWith(theOne, theTyped); });
    if (theTyped.empty() || theItem == mItems.end()) {
        return;
    }
    Edit(theTyped.size(), theTyped.size(), theItem->substr(theTyped.size()));
    if (!IsGone() && Shown().size() > theTyped.size()) {
        Select(theTyped.size(), Shown().size());
        Show();
    }
}

// Mouse and keys -----------------------------------------------------------------------------------------

Rect ComboBox::PlaceOf(ControlPartCode thePart) const
{
    Rect thePlace = WindowBounds();
    const short theButton = std::max(thePlace.left, Narrow(thePlace.right - kButtonWidth));
    if (thePart == kHIComboBoxDisclosurePart) {
        thePlace.left = theButton;
        return thePlace;
    }
    thePlace.right = theButton;
    return thePart == kControlEditTextPart ? thePlace : MakeRect(0, 0, 0, 0);
}

ControlPartCode ComboBox::PartAt(Point thePoint) const
{
    return Contains(PlaceOf(kHIComboBoxDisclosurePart), thePoint) ? ControlPartCode{kHIComboBoxDisclosurePart}
                                                                  : EditText::PartAt(thePoint);
}

std::optional<ControlPartCode> ComboBox::TrackInLoop(ControlPartCode thePart, UInt32)
{
    if (thePart != kHIComboBoxDisclosurePart) {
        return std::nullopt;
    }
    const SharedControl theKeepAlive = shared_from_this();
    const SharedWindow theWindow = Owner();
    const MenuHolder theHolder = MenuOf(mItems);
    const SharedMenu theMenu = FindMenu(theHolder.Get());
    if (theMenu == nullptr || theWindow == nullptr || mItems.empty() || !TakesInput()) {
        return kControlNoPart;
    }
    const Rect thePlace = WindowBounds();
    const Rect& theContent = theWindow->Content();
    mIsListVisible = true;
    const PopUpChoice theChoice =
        TrackPopUp(theMenu, MakePoint(theContent.left + thePlace.left, theContent.top + thePlace.bottom), 0);
    mIsListVisible = false;
    const auto theItem = static_cast<size_t>(theChoice.theItem);
    if (!theChoice || IsGone() || theItem > mItems.size()) {
        return kControlNoPart;
    }
    Choose(theItem - 1);
    return thePart;
}

// To the item before or after the one that stands in the field; from elsewhere, to the last or the first.
OSStatus ComboBox::Step(bool theIsBack)
{
    const size_t theCount = mItems.size();
    const size_t thePlace = Current();
    if (theIsBack ? thePlace > 0 && theCount > 0 : thePlace == theCount || thePlace + 1 < theCount) {
        const size_t theNext = theIsBack ? thePlace - 1 : thePlace == theCount ? 0 : thePlace + 1;
        if (theNext < theCount) {
            Choose(theNext);
        }
    }
    return noErr;
}

OSStatus ComboBox::PressKey(const KeyPress& theKey)
{
    const SharedControl theKeepAlive = shared_from_this();
    const bool theIsUp = theKey.theCode == kVK_UpArrow;
    if ((theIsUp || theKey.theCode == kVK_DownArrow) && TakesInput() &&
        (theKey.theModifiers & (cmdKey | shiftKey)) == 0) {
        if ((theKey.theModifiers & optionKey) == 0) {
            return Step(theIsUp);
        }
        PressAndRelease(theKeepAlive, kHIComboBoxDisclosurePart, theKey.theModifiers);
        return noErr;
    }
    const Text theOld = Shown();
    const OSStatus theStatus = EditText::PressKey(theKey);
    const bool theIsTyped =
        theKey.theCode != kVK_Delete && theKey.theCode != kVK_ForwardDelete && Shown() != theOld;
    if (Is(kHIComboBoxAutoCompletionAttribute) && theIsTyped && !IsGone() &&
        SelectionEnd() == Shown().size()) {
        Complete();
    }
    return theStatus;
}

// Data ---------------------------------------------------------------------------------------------------

namespace {

std::vector<Text> TextsOf(CFArrayRef theList)
{
    std::vector<Text> theTexts;
    const CFIndex theCount = theList == nullptr ? 0 : CFArrayGetCount(theList);
    for (CFIndex theIndex = 0; theIndex < theCount; ++theIndex) {
        const CFTypeRef theItem = CFArrayGetValueAtIndex(theList, theIndex);
        if (theItem != nullptr && CFGetTypeID(theItem) == CFStringGetTypeID()) {
            theTexts.push_back(TextOf(static_cast<CFStringRef>(theItem)));
        }
    }
    return theTexts;
}

ControlDataTag ListTag()
{
    ControlDataTag theEntry = {kHIComboBoxListTag, sizeof(CFArrayRef), nullptr, nullptr, nullptr};
    theEntry.theRead = [](const Control& theControl, void* theBuffer) {
        CFMutableArrayRef theList = CFArrayCreateMutable(nullptr, 0, &kCFTypeArrayCallBacks);
        for (const Text& theItem : static_cast<const ComboBox&>(theControl).Items()) {
            const HeldString theString(theItem);
            if (theList != nullptr && theString.Get() != nullptr) {
                CFArrayAppendValue(theList, theString.Get());
            }
        }
        Put(theBuffer, static_cast<CFArrayRef>(theList));
    };
    theEntry.theWrite = [](Control& theControl, const void* theData, size_t) {
        static_cast<ComboBox&>(theControl).SetItems(TextsOf(Take<CFArrayRef>(theData)));
        return OSErr{noErr};
    };
    return theEntry;
}

} // namespace

const ControlDataTag* ComboBox::FindTag(ResType theTag) const
{
    static const ControlDataTag kTags[] = {
        ListTag(),
        NumberTag<ComboBox, UInt32, &ComboBox::mListWidth>(kHIComboBoxListPixelWidthTag),
        NumberTag<ComboBox, UInt32, &ComboBox::mListHeight>(kHIComboBoxListPixelHeightTag),
        NumberTag<ComboBox, UInt32, &ComboBox::mVisibleItems>(kHIComboBoxNumVisibleItemsTag),
    };
    return FindIn(kTags, theTag, EditText::FindTag(theTag));
}

void ComboBox::AddToLook(ControlLook& theLook) const
{
    EditText::AddToLook(theLook);
    theLook.theShape = ControlShape::kComboBox;
}

} // namespace Host

// The interface ------------------------------------------------------------------------------------------

namespace {

using Box = std::shared_ptr<Host::ComboBox>;

// Whether a place counted from 0 is one of the list.
bool HasPlace(const Box& theBox, CFIndex thePlace)
{
    return thePlace >= 0 && static_cast<size_t>(thePlace) < theBox->Items().size();
}

OSStatus Insert(HIViewRef theView, CFStringRef theText, CFIndex thePlace, CFIndex* thePlaceTaken)
{
    const Box theBox = Host::FindKind<Host::ComboBox>(theView);
    if (theBox == nullptr) {
        return errUnknownControl;
    }
    if (theText == nullptr) {
        return paramErr;
    }
    return Host::Guarded([&] {
        const size_t theEnd = theBox->Items().size();
        const size_t theTaken = theBox->Insert(
            Host::TextOf(theText), HasPlace(theBox, thePlace) ? static_cast<size_t>(thePlace) : theEnd);
        if (thePlaceTaken != nullptr) {
            *thePlaceTaken = static_cast<CFIndex>(theTaken);
        }
        return OSStatus{noErr};
    });
}

} // namespace

OSStatus HIComboBoxCreate(const HIRect* boundsRect, CFStringRef text, const ControlFontStyleRec* style,
                          CFArrayRef list, OptionBits inAttributes, HIViewRef* outComboBox)
{
    if (boundsRect == nullptr || (inAttributes & ~Host::kAllAttributes) != 0) {
        return Host::Refuse(outComboBox);
    }
    return Host::MakeView(boundsRect, outComboBox, [&] {
        auto theNew = std::make_shared<Host::ComboBox>(Host::TextOf(text), inAttributes);
        theNew->mStyle = style == nullptr ? ControlFontStyleRec{} : *style;
        theNew->SetItems(Host::TextsOf(list));
        return theNew;
    });
}

OSStatus HIComboBoxAppendTextItem(HIViewRef inComboBox, CFStringRef inText, CFIndex* outIndex)
{
    return Insert(inComboBox, inText, -1, outIndex);
}

OSStatus HIComboBoxInsertTextItemAtIndex(HIViewRef inComboBox, CFIndex inIndex, CFStringRef inText)
{
    return Insert(inComboBox, inText, inIndex, nullptr);
}

OSStatus HIComboBoxRemoveItemAtIndex(HIViewRef inComboBox, CFIndex inIndex)
{
    const Box theBox = Host::FindKind<Host::ComboBox>(inComboBox);
    if (theBox == nullptr) {
        return errUnknownControl;
    }
    if (!HasPlace(theBox, inIndex)) {
        return paramErr;
    }
    theBox->Remove(static_cast<size_t>(inIndex));
    return noErr;
}

OSStatus HIComboBoxCopyTextItemAtIndex(HIViewRef inComboBox, CFIndex inIndex, CFStringRef* outString)
{
    if (outString == nullptr) {
        return paramErr;
    }
    *outString = nullptr;
    const Box theBox = Host::FindKind<Host::ComboBox>(inComboBox);
    if (theBox == nullptr) {
        return errUnknownControl;
    }
    if (!HasPlace(theBox, inIndex)) {
        return paramErr;
    }
    *outString = Host::CreateString(theBox->Items()[static_cast<size_t>(inIndex)]);
    return *outString == nullptr ? OSStatus{memFullErr} : OSStatus{noErr};
}

ItemCount HIComboBoxGetItemCount(HIViewRef inComboBox)
{
    const Box theBox = Host::FindKind<Host::ComboBox>(inComboBox);
    return theBox == nullptr ? 0 : static_cast<ItemCount>(theBox->Items().size());
}

OSStatus HIComboBoxChangeAttributes(HIViewRef inComboBox, OptionBits inAttributesToSet,
                                    OptionBits inAttributesToClear)
{
    const Box theBox = Host::FindKind<Host::ComboBox>(inComboBox);
    if (theBox == nullptr) {
        return errUnknownControl;
    }
    if (((inAttributesToSet | inAttributesToClear) & ~Host::kAllAttributes) != 0) {
        return paramErr;
    }
    return Host::Guarded([&] {
        theBox->SetAttributes((theBox->Attributes() | inAttributesToSet) & ~inAttributesToClear);
        return OSStatus{noErr};
    });
}

OSStatus HIComboBoxGetAttributes(HIViewRef inComboBox, OptionBits* outAttributes)
{
    const Box theBox = Host::FindKind<Host::ComboBox>(inComboBox);
    if (outAttributes == nullptr) {
        return paramErr;
    }
    *outAttributes = theBox == nullptr ? 0 : theBox->Attributes();
    return theBox == nullptr ? OSStatus{errUnknownControl} : OSStatus{noErr};
}

Boolean HIComboBoxIsListVisible(HIViewRef inComboBox)
{
    const Box theBox = Host::FindKind<Host::ComboBox>(inComboBox);
    return theBox != nullptr && theBox->IsListVisible();
}
