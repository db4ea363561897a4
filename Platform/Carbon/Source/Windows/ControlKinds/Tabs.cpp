// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Tabs.h"

#include "Base/Geometry.h"
#include "Base/Guarded.h"
#include "Creation.h"
#include "DataTags.h"
#include "Windows/ControlTracking.h"

#include <algorithm>
#include <Presentation/PresenterRegistry.h>
#include <utility>

namespace Host {

namespace {

// Greater part codes mean states of the whole control.
const SInt32 kMostTabs = 128;

// Around the name of a tab, both sides together.
const int kNameEdges = 24;

// No window is wider; what is beyond would overflow sums of many.
const int kLongestName = 32767;

TabEdge EdgeOf(ControlTabDirection theDirection)
{
    switch (theDirection) {
    case kControlTabDirectionSouth:
        return TabEdge::kBottom;
    case kControlTabDirectionEast:
        return TabEdge::kRight;
    case kControlTabDirectionWest:
        return TabEdge::kLeft;
    default:
        return TabEdge::kTop;
    }
}

} // namespace

Tabs::Tabs(ControlTabSize theSize, ControlTabDirection theDirection, std::vector<Tab> theTabs)
    : Control(kControlKindTabs, kControlSupportsEmbedding | kControlSupportsFocus |
                                    kControlSupportsDataAccess | kControlAutoToggles),
      mTabSize(theSize),
      mDirection(theDirection),
      mTabs(std::move(theTabs))
{
}

const Tab* Tabs::TabAt(ControlPartCode theNumber) const
{
    const auto theIndex = static_cast<size_t>(theNumber) - 1;
    return theNumber < 1 || theIndex >= mTabs.size() ? nullptr : &mTabs[theIndex];
}

OSErr Tabs::SetName(ControlPartCode theNumber, const Text& theName)
{
    if (TabAt(theNumber) == nullptr) {
        return paramErr;
    }
    mTabs[static_cast<size_t>(theNumber) - 1].theName = theName;
    return noErr;
}

OSErr Tabs::SetTabEnabled(ControlPartCode theNumber, bool theIsEnabled)
{
    if (TabAt(theNumber) == nullptr) {
        return paramErr;
    }
    mTabs[static_cast<size_t>(theNumber) - 1].theIsEnabled = theIsEnabled;
    return noErr;
}

// The maximum is the number of tabs. Where there is no memory for more, there are no more.
void Tabs::RangeChanged()
{
    const auto theCount = static_cast<size_t>(std::clamp<SInt32>(Range().theMaximum, 0, kMostTabs));
    Guarded([&] {
        mTabs.resize(theCount);
        return OSStatus{noErr};
    });
    Show();
    Control::RangeChanged();
}

// Places -------------------------------------------------------------------------------------------------

bool Tabs::AreBeside() const
{
    return mDirection == kControlTabDirectionEast || mDirection == kControlTabDirectionWest;
}

bool Tabs::AreAtEnd() const
{
    return mDirection == kControlTabDirectionSouth || mDirection == kControlTabDirectionEast;
}

int Tabs::Thickness() const
{
    return mTabSize == kControlTabSizeSmall ? 22 : mTabSize == kControlTabSizeMini ? 20 : 26;
}

// The tabs' place in the window.
Rect Tabs::Strip() const
{
    Rect theStrip = WindowBounds();
    short& theInner = AreBeside() ? (AreAtEnd() ? theStrip.left : theStrip.right)
                                  : (AreAtEnd() ? theStrip.top : theStrip.bottom);
    const int theRoom = AreBeside() ? WidthOf(theStrip) : HeightOf(theStrip);
    const int theThickness = std::clamp(Thickness(), 0, std::max(theRoom, 0));
    const int theOuter = AreBeside() ? (AreAtEnd() ? theStrip.right : theStrip.left)
                                     : (AreAtEnd() ? theStrip.bottom : theStrip.top);
    theInner = Narrow(AreAtEnd() ? theOuter - theThickness : theOuter + theThickness);
    return theStrip;
}

Rect Tabs::ContentBounds() const
{
    const Rect theStrip = Strip();
    Rect theContent = WindowBounds();
    if (AreBeside()) {
        (AreAtEnd() ? theContent.right : theContent.left) = AreAtEnd() ? theStrip.left : theStrip.right;
    } else {
        (AreAtEnd() ? theContent.bottom : theContent.top) = AreAtEnd() ? theStrip.top : theStrip.bottom;
    }
    return theContent;
}

int Tabs::LengthOf(size_t theIndex) const
{
    const PixelSize theSize =
        PresenterRegistry::Current().MeasureText(Utf8Of(mTabs[theIndex].theName), TextStyle::kBody);
    return std::min(theSize.theWidth, kLongestName) + kNameEdges;
}

// One after the other from the start of the strip; what has no room there ends with it.
Rect Tabs::PlaceOfTab(size_t theIndex) const
{
    int theStart = 0;
    for (size_t theBefore = 0; theBefore < theIndex; ++theBefore) {
        theStart += LengthOf(theBefore);
    }
    const int theEnd = theStart + LengthOf(theIndex);
    const Rect theStrip = Strip();
    const auto theAlong = [](int theFirst, int theLast, int theOffset) {
        return std::min(theFirst + theOffset, std::max(theFirst, theLast));
    };
    return AreBeside() ? MakeRect(theStrip.left, theAlong(theStrip.top, theStrip.bottom, theStart),
                                  theStrip.right, theAlong(theStrip.top, theStrip.bottom, theEnd))
                       : MakeRect(theAlong(theStrip.left, theStrip.right, theStart), theStrip.top,
                                  theAlong(theStrip.left, theStrip.right, theEnd), theStrip.bottom);
}

// A tab that is disabled is no part that could be pressed.
Rect Tabs::PlaceOf(ControlPartCode thePart) const
{
    const Tab* theTab = TabAt(thePart);
    return theTab != nullptr && theTab->theIsEnabled ? PlaceOfTab(static_cast<size_t>(thePart) - 1)
                                                     : MakeRect(0, 0, 0, 0);
}

ControlPartCode Tabs::PartAt(Point thePoint) const
{
    for (size_t theIndex = 0; theIndex < mTabs.size(); ++theIndex) {
        const auto thePart = static_cast<ControlPartCode>(theIndex + 1);
        if (Contains(PlaceOf(thePart), thePoint)) {
            return thePart;
        }
    }
    return kControlNoPart;
}

// Choosing -----------------------------------------------------------------------------------------------

bool Tabs::ToggledValue(ControlPartCode thePart, SInt32* theValue) const
{
    *theValue = thePart;
    return TabAt(thePart) != nullptr;
}

ControlPartCode Tabs::FocusPart(bool theIsFullAccess) const
{
    return theIsFullAccess && !mTabs.empty() ? ControlPartCode{1} : ControlPartCode{kControlFocusNoPart};
}

// The arrows bring the next tab to the front that is enabled.
OSStatus Tabs::PressKey(const KeyPress& theKey)
{
    const UInt32 theBack = AreBeside() ? kVK_UpArrow : kVK_LeftArrow;
    const UInt32 theForth = AreBeside() ? kVK_DownArrow : kVK_RightArrow;
    if ((theKey.theCode != theBack && theKey.theCode != theForth) || !CanBePressed()) {
        return eventNotHandledErr;
    }
    const int theStep = theKey.theCode == theBack ? -1 : 1;
    SInt32 theNumber = std::clamp<SInt32>(Range().theValue, 0, kMostTabs) + theStep;
    const auto theTab = [&] { return TabAt(static_cast<ControlPartCode>(theNumber)); };
    while (theTab() != nullptr && !theTab()->theIsEnabled) {
        theNumber += theStep;
    }
    if (theTab() != nullptr) {
        PressAndRelease(shared_from_this(), static_cast<ControlPartCode>(theNumber), theKey.theModifiers);
    }
    return noErr;
}

void Tabs::AddToLook(ControlLook& theLook) const
{
    theLook.theShape = ControlShape::kTabs;
    const auto theRareLook = std::make_shared<RareLook>();
    theRareLook->theTabEdge = EdgeOf(mDirection);
    for (size_t theIndex = 0; theIndex < mTabs.size(); ++theIndex) {
        const Rect thePlace = PlaceOfTab(theIndex);
        theRareLook->theTabs.push_back(
            {Utf8Of(mTabs[theIndex].theName), mTabs[theIndex].theIsEnabled, PixelsOf(thePlace)});
    }
    theLook.theRareLook = theRareLook;
}

// Data ---------------------------------------------------------------------------------------------------

namespace {

const Tabs& TabsOf(const Control& theControl)
{
    return static_cast<const Tabs&>(theControl);
}

// In the coordinates that the control's bounds have.
ControlDataTag ContentTag()
{
    ControlDataTag theEntry = {kControlTabContentRectTag, sizeof(Rect), nullptr, nullptr, nullptr};
    theEntry.theRead = [](const Control& theControl, void* theBuffer) {
        const Rect theBounds = theControl.WindowBounds();
        Put(theBuffer, Moved(TabsOf(theControl).ContentBounds(), theControl.Bounds().left - theBounds.left,
                             theControl.Bounds().top - theBounds.top));
    };
    return theEntry;
}

OSErr ReadEnabled(const Control& theControl, ControlPartCode thePart, void* theBuffer, Size* theSize)
{
    const Tab* theTab = TabsOf(theControl).TabAt(thePart);
    const Size theRoom = std::exchange(*theSize, Size{sizeof(Boolean)});
    if (theTab == nullptr) {
        return paramErr;
    }
    if (theBuffer != nullptr && theRoom < *theSize) {
        return errDataSizeMismatch;
    }
    if (theBuffer != nullptr) {
        Put(theBuffer, static_cast<Boolean>(theTab->theIsEnabled));
    }
    return noErr;
}

OSErr WriteEnabled(Control& theControl, ControlPartCode thePart, const void* theData, size_t theSize)
{
    return theSize == sizeof(Boolean)
               ? static_cast<Tabs&>(theControl).SetTabEnabled(thePart, Take<Boolean>(theData) != 0)
               : OSErr{errDataSizeMismatch};
}

// The record of version 0 has a Pascal string where that of version 1 has a CFStringRef. Who reads says in
// its first bytes which one he wants.
bool WantsPascalString(const void* theBuffer, Size theRoom)
{
    return theBuffer != nullptr && theRoom >= Size{sizeof(ControlTabInfoRec)} &&
           Take<SInt16>(theBuffer) == kControlTabInfoVersionZero;
}

OSErr ReadInfo(const Control& theControl, ControlPartCode thePart, void* theBuffer, Size* theSize)
{
    const Tab* theTab = TabsOf(theControl).TabAt(thePart);
    const Size theRoom = std::exchange(*theSize, Size{sizeof(ControlTabInfoRecV1)});
    if (theTab == nullptr) {
        return paramErr;
    }
    if (WantsPascalString(theBuffer, theRoom)) {
        ControlTabInfoRec theRecord = {kControlTabInfoVersionZero, 0, {}};
        CopyToPascalString(theTab->theName, theRecord.name);
        Put(theBuffer, theRecord);
        *theSize = sizeof theRecord;
        return noErr;
    }
    if (theBuffer != nullptr && theRoom < *theSize) {
        return errDataSizeMismatch;
    }
    if (theBuffer != nullptr) {
        Put(theBuffer, ControlTabInfoRecV1{kControlTabInfoVersionOne, 0, CreateString(theTab->theName)});
    }
    return noErr;
}

OSErr WriteInfo(Control& theControl, ControlPartCode thePart, const void* theData, size_t theSize)
{
    auto& theTabs = static_cast<Tabs&>(theControl);
    if (theSize == sizeof(ControlTabInfoRec)) {
        const auto theRecord = Take<ControlTabInfoRec>(theData);
        return theRecord.version == kControlTabInfoVersionZero
                   ? theTabs.SetName(thePart, TextOfPascalString(theRecord.name))
                   : OSErr{paramErr};
    }
    if (theSize != sizeof(ControlTabInfoRecV1)) {
        return errDataSizeMismatch;
    }
    const auto theRecord = Take<ControlTabInfoRecV1>(theData);
    return theRecord.version == kControlTabInfoVersionOne && theRecord.name != nullptr
               ? theTabs.SetName(thePart, TextOf(theRecord.name))
               : OSErr{paramErr};
}

ControlDataTag PartTag(ResType theTag, OSErr (*theReader)(const Control&, ControlPartCode, void*, Size*),
                       OSErr (*theWriter)(Control&, ControlPartCode, const void*, size_t))
{
    ControlDataTag theEntry = {theTag, ControlDataTag::kBytes, nullptr, nullptr, nullptr};
    theEntry.theReadPart = theReader;
    theEntry.theWritePart = theWriter;
    return theEntry;
}

} // namespace

const ControlDataTag* Tabs::FindTag(ResType theTag) const
{
    static const ControlDataTag kTags[] = {ContentTag(),
                                           PartTag(kControlTabEnabledFlagTag, ReadEnabled, WriteEnabled),
                                           PartTag(kControlTabInfoTag, ReadInfo, WriteInfo)};
    return FindIn(kTags, theTag, Control::FindTag(theTag));
}

namespace {

std::vector<Tab> TabsIn(const ControlTabEntry* theEntries, UInt16 theCount)
{
    std::vector<Tab> theTabs;
    for (UInt16 theIndex = 0; theIndex < theCount; ++theIndex) {
        theTabs.push_back({TextOf(theEntries[theIndex].name), theEntries[theIndex].enabled != 0});
    }
    return theTabs;
}

} // namespace

} // namespace Host

// The interface ------------------------------------------------------------------------------------------

OSStatus CreateTabsControl(WindowRef window, const Rect* boundsRect, ControlTabSize size,
                           ControlTabDirection direction, UInt16 numTabs, const ControlTabEntry* tabArray,
                           ControlRef* outControl)
{
    const bool theIsSize =
        size == kControlTabSizeLarge || size == kControlTabSizeSmall || size == kControlTabSizeMini;
    if (!theIsSize || direction > kControlTabDirectionWest || numTabs > Host::kMostTabs ||
        (numTabs > 0 && tabArray == nullptr)) {
        if (outControl != nullptr) {
            *outControl = nullptr;
        }
        return paramErr;
    }
    const Host::ControlRange theRange = {1, numTabs > 0 ? 1 : 0, numTabs, 0};
    return Host::Make({window, boundsRect, nullptr, outControl, false, theRange}, [&] {
        return std::make_shared<Host::Tabs>(size, direction, Host::TabsIn(tabArray, numTabs));
    });
}

OSErr SetTabEnabled(ControlRef inTabControl, SInt16 inTabToHilite, Boolean inEnabled)
{
    return SetControlData(inTabControl, inTabToHilite, kControlTabEnabledFlagTag, sizeof inEnabled,
                          &inEnabled);
}
