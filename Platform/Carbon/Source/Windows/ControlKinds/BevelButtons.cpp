// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "BevelButtons.h"

#include "Base/Geometry.h"
#include "Windows/ControlTracking.h"
#include "Windows/Window.h"

namespace Host {

namespace {

const int kNormalCircle = 20;
const int kLargeCircle = 25;

UInt32 FeaturesOf(const BevelStyle& theStyle)
{
    const bool theIsToggle = (theStyle.theBehavior & (kControlBehaviorToggles | kControlBehaviorSticky)) != 0;
    return kControlSupportsFocus | kControlSupportsDataAccess | kControlHasRadioBehavior |
           (theIsToggle ? UInt32{kControlAutoToggles} : 0);
}

TitlePlace TitlePlaceOf(ControlButtonTextPlacement thePlacement)
{
    switch (thePlacement) {
    case kControlBevelButtonPlaceToLeftOfGraphic:
        return TitlePlace::kLeft;
    case kControlBevelButtonPlaceBelowGraphic:
        return TitlePlace::kBelow;
    case kControlBevelButtonPlaceAboveGraphic:
        return TitlePlace::kAbove;
    default:
        return TitlePlace::kRight;
    }
}

} // namespace

BevelButton::BevelButton(const BevelStyle& theStyle, MenuRef theMenu)
    : Button(kControlKindBevelButton, FeaturesOf(theStyle), kControlButtonPart),
      mBevelStyle(theStyle),
      mMenu(theMenu)
{
}

OSErr BevelButton::SetMenu(MenuRef theMenu, bool theIsOwned)
{
    const SharedControl theKeepAlive = shared_from_this();
    const OSErr theStatus = mMenu.Set(theMenu, theIsOwned);
    if (theStatus == noErr) {
        mMenuValue = 0;
    }
    return theStatus;
}

void BevelButton::SetMenuValue(SInt16 theItem)
{
    mMenuValue = theItem;
    if (mBevelStyle.theMenuBehavior == kControlBehaviorSingleValueMenu) {
        mMenu.Check(theItem);
    }
}

ControlPartCode BevelButton::PartAt(Point) const
{
    return ShownMenu() == nullptr ? ControlPartCode{kControlButtonPart} : ControlPartCode{kControlMenuPart};
}

// Choosing -----------------------------------------------------------------------------------------------

// The menu value is the chosen item when the item's command arrives. One from a submenu has no number in the
// menu, so the menu value stays.
void BevelButton::TakeChoice(const PopUpChoice& theChoice, UInt32 theModifiers)
{
    if (!IsGone()) {
        mLastMenu = theChoice.theMenu->mID;
        if ((mBevelStyle.theMenuBehavior & kControlBehaviorMultiValueMenu) != 0) {
            if (MenuItem* const theItem = theChoice.theMenu->Item(theChoice.theItem)) {
                theItem->theMark = theItem->theMark == noMark ? UInt8{checkMark} : UInt8{noMark};
                MenusHaveChanged();
            }
        }
        if (theChoice.theMenu == ShownMenu()) {
            SetMenuValue(static_cast<SInt16>(theChoice.theItem));
        }
    }
    if (theChoice.theMenu->Item(theChoice.theItem) != nullptr) {
        SendMenuCommand(theChoice.theMenu, theChoice.theItem, theChoice.theContext, &theModifiers);
    }
}

std::optional<ControlPartCode> BevelButton::TrackInLoop(ControlPartCode, UInt32 theModifiers)
{
    const SharedControl theKeepAlive = shared_from_this();
    const SharedMenu theMenu = ShownMenu();
    const SharedWindow theWindow = Owner();
    if (theMenu == nullptr || theWindow == nullptr) {
        return std::nullopt;
    }
    const Rect thePlace = WindowBounds();
    const Rect& theContent = theWindow->Content();
    const PopUpChoice theChoice =
        TrackPopUp(theMenu, MakePoint(theContent.left + thePlace.left, theContent.top + thePlace.bottom), 0);
    if (!theChoice) {
        return kControlNoPart;
    }
    TakeChoice(theChoice, theModifiers);
    return kControlMenuPart;
}

bool BevelButton::IsToggle() const
{
    const SharedControl theParent = Parent();
    return (Features() & kControlAutoToggles) != 0 ||
           (theParent != nullptr && theParent->ChoosesAmong(*this));
}

// A choice of a radio group is on after a click, like one that sticks.
bool BevelButton::ToggledValue(ControlPartCode, SInt32* theValue) const
{
    const SharedControl theParent = Parent();
    const bool theTurns = (mBevelStyle.theBehavior & kControlBehaviorToggles) != 0 &&
                          (theParent == nullptr || !theParent->ChoosesAmong(*this));
    *theValue = theTurns && Range().theValue != 0 ? 0 : 1;
    return true;
}

void BevelButton::AddToLook(ControlLook& theLook) const
{
    theLook.theShape = ControlShape::kBevelButton;
    RareLook theRareLook;
    theRareLook.thePicture = mContent.Picture();
    theRareLook.theTitlePlace = TitlePlaceOf(mTextPlace);
    theRareLook.theHasMenu = ShownMenu() != nullptr;
    theRareLook.theIsToggle = IsToggle();
    if (!(theRareLook == RareLook())) {
        theLook.theRareLook = std::make_shared<const RareLook>(theRareLook);
    }
}

// Data ---------------------------------------------------------------------------------------------------

namespace {

ControlDataTag MenuValueTag()
{
    auto theEntry = NumberTag<BevelButton, SInt16, &BevelButton::mMenuValue>(kControlBevelButtonMenuValueTag);
    theEntry.theWrite = [](Control& theControl, const void* theData, size_t) {
        auto& theButton = static_cast<BevelButton&>(theControl);
        const auto theItem = Take<SInt16>(theData);
        const SharedMenu theMenu = theButton.ShownMenu();
        if (theItem < 0 || theMenu == nullptr || theItem > theMenu->Count()) {
            return OSErr{paramErr};
        }
        theButton.SetMenuValue(theItem);
        return OSErr{noErr};
    };
    return theEntry;
}

} // namespace

const ControlDataTag* BevelButton::FindTag(ResType theTag) const
{
    static const ControlDataTag kTags[] = {
        ContentTag<BevelButton, &BevelButton::mContent>(),
        MenuTag<BevelButton, false>(kControlBevelButtonMenuRefTag),
        MenuTag<BevelButton, true>(kControlBevelButtonOwnedMenuRefTag),
        MenuValueTag(),
        NumberTag<BevelButton, SInt16, &BevelButton::mLastMenu>(kControlBevelButtonLastMenuTag),
        NumberTag<BevelButton, SInt16, &BevelButton::mTextPlace>(kControlBevelButtonTextPlaceTag),
        NumberTag<BevelButton, SInt16, &BevelButton::mTransform>(kControlBevelButtonTransformTag),
        NumberTag<BevelButton, SInt16, &BevelButton::mTextAlignment>(kControlBevelButtonTextAlignTag),
        NumberTag<BevelButton, SInt16, &BevelButton::mTextOffset>(kControlBevelButtonTextOffsetTag),
        NumberTag<BevelButton, SInt16, &BevelButton::mGraphicAlignment>(kControlBevelButtonGraphicAlignTag),
        NumberTag<BevelButton, Point, &BevelButton::mGraphicOffset>(kControlBevelButtonGraphicOffsetTag),
        FlagTag<BevelButton, &BevelButton::mCentersGlyph>(kControlBevelButtonCenterPopupGlyphTag),
        NumberTag<BevelButton, SInt32, &BevelButton::mMenuDelay>(kControlBevelButtonMenuDelayTag),
        FlagTag<BevelButton, &BevelButton::mScalesIcon>(kControlBevelButtonScaleIconTag),
        NumberTag<BevelButton, UInt16, &BevelButton::mThemeKind>(kControlBevelButtonKindTag),
    };
    return FindIn(kTags, theTag, Button::FindTag(theTag));
}

// Round buttons ------------------------------------------------------------------------------------------

RoundButton::RoundButton(ControlRoundButtonSize theSize)
    : Button(kControlKindRoundButton, kControlSupportsFocus | kControlSupportsDataAccess, kControlButtonPart)
{
    mSize = static_cast<ControlSize>(theSize);
}

Rect RoundButton::Circle() const
{
    const int theSide = mSize == kControlRoundButtonLargeSize ? kLargeCircle : kNormalCircle;
    const Point theMiddle = MiddleOf(WindowBounds());
    const int theLeft = theMiddle.h - theSide / 2;
    const int theTop = theMiddle.v - theSide / 2;
    return MakeRect(theLeft, theTop, theLeft + theSide, theTop + theSide);
}

ControlPartCode RoundButton::PartAt(Point thePoint) const
{
    return Contains(Circle(), thePoint) ? Button::PartAt(thePoint) : ControlPartCode{kControlNoPart};
}

Rect RoundButton::PlaceOf(ControlPartCode thePart) const
{
    return thePart == kControlButtonPart ? Circle() : MakeRect(0, 0, 0, 0);
}

const ControlDataTag* RoundButton::FindTag(ResType theTag) const
{
    static const ControlDataTag kTags[] = {ContentTag<RoundButton, &RoundButton::mContent>()};
    return FindIn(kTags, theTag, Button::FindTag(theTag));
}

void RoundButton::AddToLook(ControlLook& theLook) const
{
    theLook.theShape = ControlShape::kRoundButton;
    RareLook theRareLook;
    theRareLook.thePicture = mContent.Picture();
    theRareLook.theDiameter = WidthOf(Circle());
    theLook.theRareLook = std::make_shared<const RareLook>(theRareLook);
}

} // namespace Host

// The interface ------------------------------------------------------------------------------------------

namespace {

template <class Type>
OSErr SetData(ControlRef theControl, ResType theTag, const Type& theValue)
{
    return SetControlData(theControl, kControlEntireControl, theTag, sizeof theValue, &theValue);
}

// Null results are refused.
template <class Type>
OSErr GetData(ControlRef theControl, ResType theTag, Type* theValue)
{
    return theValue == nullptr ? OSErr{paramErr}
                               : GetControlData(theControl, kControlEntireControl, theTag, sizeof *theValue,
                                                theValue, nullptr);
}

} // namespace

OSStatus CreateBevelButtonControl(WindowRef window, const Rect* boundsRect, CFStringRef title,
                                  ControlBevelThickness thickness, ControlBevelButtonBehavior behavior,
                                  ControlButtonContentInfoPtr info, MenuID menuID,
                                  ControlBevelButtonMenuBehavior menuBehavior,
                                  ControlBevelButtonMenuPlacement, ControlRef* outControl)
{
    MenuRef theMenu = nullptr;
    const bool theHasMenu = menuID == 0 || Host::FindMenuForCreation(menuID, &theMenu);
    if (!theHasMenu || thickness > kControlBevelButtonLargeBevel) {
        return Host::Refuse(outControl);
    }
    return Host::CreateWithContent<Host::BevelButton>(
        {window, boundsRect, title, outControl, true, {0, 0, 1, 0}}, info, true,
        Host::BevelStyle{behavior, menuBehavior}, theMenu);
}

OSStatus CreateRoundButtonControl(WindowRef inWindow, const Rect* inBoundsRect, ControlRoundButtonSize inSize,
                                  ControlButtonContentInfo* inContent, ControlRef* outControl)
{
    if (inSize != kControlRoundButtonNormalSize && inSize != kControlRoundButtonLargeSize) {
        return Host::Refuse(outControl);
    }
    return Host::CreateWithContent<Host::RoundButton>(
        {inWindow, inBoundsRect, nullptr, outControl, true, {0, 0, 1, 0}}, inContent, true, inSize);
}

OSErr SetBevelButtonContentInfo(ControlRef inButton, ControlButtonContentInfoPtr inContent)
{
    return inContent == nullptr ? OSErr{paramErr}
                                : SetData(inButton, kControlBevelButtonContentTag, *inContent);
}

OSErr GetBevelButtonContentInfo(ControlRef inButton, ControlButtonContentInfoPtr outContent)
{
    return GetData(inButton, kControlBevelButtonContentTag, outContent);
}

OSErr SetBevelButtonTextPlacement(ControlRef inButton, ControlButtonTextPlacement inWhere)
{
    return SetData(inButton, kControlBevelButtonTextPlaceTag, inWhere);
}

OSErr SetBevelButtonTextAlignment(ControlRef inButton, ControlButtonTextAlignment inAlign, SInt16 inHOffset)
{
    const OSErr theStatus = SetData(inButton, kControlBevelButtonTextAlignTag, inAlign);
    return theStatus == noErr ? SetData(inButton, kControlBevelButtonTextOffsetTag, inHOffset) : theStatus;
}

OSErr SetBevelButtonGraphicAlignment(ControlRef inButton, ControlButtonGraphicAlignment inAlign,
                                     SInt16 inHOffset, SInt16 inVOffset)
{
    const OSErr theStatus = SetData(inButton, kControlBevelButtonGraphicAlignTag, inAlign);
    return theStatus == noErr
               ? SetData(inButton, kControlBevelButtonGraphicOffsetTag, Point{inVOffset, inHOffset})
               : theStatus;
}

OSErr SetBevelButtonMenuValue(ControlRef inButton, MenuItemIndex inValue)
{
    return inValue > INT16_MAX
               ? OSErr{paramErr}
               : SetData(inButton, kControlBevelButtonMenuValueTag, static_cast<SInt16>(inValue));
}

OSErr GetBevelButtonMenuValue(ControlRef inButton, MenuItemIndex* outValue)
{
    return GetData(inButton, kControlBevelButtonMenuValueTag, outValue);
}

OSErr GetBevelButtonMenuHandle(ControlRef inButton, MenuHandle* outHandle)
{
    return GetData(inButton, kControlBevelButtonMenuRefTag, outHandle);
}
