// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Clocks.h"

#include "Base/Geometry.h"
#include "Creation.h"
#include "DataTags.h"
#include "Windows/ControlTracking.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <Presentation/PresenterRegistry.h>

namespace Host {

namespace {

// Years have four digits, so that every date is as long as the others.
const int kFirstYear = 1000;
const int kLastYear = 9999;

const int kTextEdge = 4;
const int kArrowsWidth = 16;

// The zone of the system, for as long as this lives.
class SystemZone
{
public:
    SystemZone()
        : mZone(CFTimeZoneCopySystem())
    {
    }
    ~SystemZone()
    {
        if (mZone != nullptr) {
            CFRelease(mZone);
        }
    }
    SystemZone(const SystemZone&) = delete;
    SystemZone& operator=(const SystemZone&) = delete;
    operator CFTimeZoneRef() const { return mZone; }

private:
    CFTimeZoneRef mZone;
};

bool HasFourDigits(SInt32 theYear)
{
    return theYear >= kFirstYear && theYear <= kLastYear;
}

int DaysIn(SInt32 theYear, SInt8 theMonth)
{
    CFGregorianDate theDate = {theYear, theMonth, 31, 0, 0, 0};
    while (theDate.day > 28 &&
           !CFGregorianDateIsValid(theDate, kCFGregorianUnitsYears | kCFGregorianUnitsMonths |
                                                kCFGregorianUnitsDays)) {
        --theDate.day;
    }
    return theDate.day;
}

void Tick(EventLoopTimerRef, void* theReference)
{
    if (const SharedControl theClock = FindControl(static_cast<ControlRef>(theReference))) {
        theClock->Show();
    }
}

} // namespace

ClockControl::ClockControl(ControlClockType theType, bool theIsForDisplay, bool theIsLive)
    : Control(kControlKindClock,
              kControlSupportsDataAccess |
                  (theIsForDisplay ? 0 : UInt32{kControlSupportsFocus | kControlGetsFocusOnClick})),
      mType(theType),
      mIsForDisplay(theIsForDisplay),
      mIsLive(theIsLive),
      mTime(CFAbsoluteTimeGetCurrent()),
      mSetAt(GetCurrentEventTime()),
      mField(0)
{
    mField = Fields().front().thePart;
}

OSStatus ClockControl::StartTicking()
{
    return InstallEventLoopTimer(GetMainEventLoop(), kEventDurationSecond, kEventDurationSecond, Tick,
                                 Reference(), &mTimer);
}

void ClockControl::Disposed()
{
    if (mTimer != nullptr) {
        RemoveEventLoopTimer(mTimer);
        mTimer = nullptr;
    }
    Control::Disposed();
}

// Time ---------------------------------------------------------------------------------------------------

CFAbsoluteTime ClockControl::Time() const
{
    return mIsLive ? mTime + (GetCurrentEventTime() - mSetAt) : mTime;
}

CFGregorianDate ClockControl::Shown() const
{
    return CFAbsoluteTimeGetGregorianDate(Time(), SystemZone());
}

OSErr ClockControl::SetTime(CFAbsoluteTime theTime)
{
    if (!HasFourDigits(CFAbsoluteTimeGetGregorianDate(theTime, SystemZone()).year) || std::isnan(theTime)) {
        return paramErr;
    }
    mTime = theTime;
    mSetAt = GetCurrentEventTime();
    return noErr;
}

OSErr ClockControl::SetShown(const CFGregorianDate& theDate)
{
    const bool theIsDate = CFGregorianDateIsValid(theDate, kCFGregorianAllUnits) != 0;
    return theIsDate ? SetTime(CFGregorianDateGetAbsoluteTime(theDate, SystemZone())) : OSErr{paramErr};
}

bool ClockControl::IsDate() const
{
    return mType == kControlClockTypeMonthDayYear || mType == kControlClockTypeMonthYear;
}

// From the greatest to the smallest.
std::vector<ClockControl::Field> ClockControl::Fields() const
{
    switch (mType) {
    case kControlClockTypeHourMinute:
        return {{kControlClockHourDayPart, 0, 2}, {kControlClockMinuteMonthPart, 3, 2}};
    case kControlClockTypeHourMinuteSecond:
        return {{kControlClockHourDayPart, 0, 2},
                {kControlClockMinuteMonthPart, 3, 2},
                {kControlClockSecondYearPart, 6, 2}};
    case kControlClockTypeMonthDayYear:
        return {{kControlClockSecondYearPart, 0, 4},
                {kControlClockMinuteMonthPart, 5, 2},
                {kControlClockHourDayPart, 8, 2}};
    default:
        return {{kControlClockSecondYearPart, 0, 4}, {kControlClockMinuteMonthPart, 5, 2}};
    }
}

// "14:05:30" or "2026-11-23", as much of it as the clock shows.
std::string ClockControl::ShownText() const
{
    const CFGregorianDate theDate = Shown();
    char theText[48];
    if (IsDate()) {
        std::snprintf(theText, sizeof theText, "%04d-%02d-%02d", static_cast<int>(theDate.year),
                      theDate.month, theDate.day);
    } else {
        std::snprintf(theText, sizeof theText, "%02d:%02d:%02d", theDate.hour, theDate.minute,
                      static_cast<int>(theDate.second));
    }
    const Field theLast = Fields().back();
    return std::string(theText).substr(0, theLast.theStart + theLast.theLength);
}

int ClockControl::ValueOf(ControlPartCode thePart, const CFGregorianDate& theDate) const
{
    switch (thePart) {
    case kControlClockHourDayPart:
        return IsDate() ? theDate.day : theDate.hour;
    case kControlClockMinuteMonthPart:
        return IsDate() ? theDate.month : theDate.minute;
    default:
        return IsDate() ? static_cast<int>(theDate.year) : static_cast<int>(theDate.second);
    }
}

int ClockControl::LeastOf(ControlPartCode thePart) const
{
    return !IsDate() ? 0 : thePart == kControlClockSecondYearPart ? kFirstYear : 1;
}

int ClockControl::MostOf(ControlPartCode thePart, const CFGregorianDate& theDate) const
{
    switch (thePart) {
    case kControlClockHourDayPart:
        return IsDate() ? DaysIn(theDate.year, theDate.month) : 23;
    case kControlClockMinuteMonthPart:
        return IsDate() ? 12 : 59;
    default:
        return IsDate() ? kLastYear : 59;
    }
}

// The other fields stay, but for a day that the month does not have.
void ClockControl::Put(ControlPartCode thePart, int theValue)
{
    CFGregorianDate theDate = Shown();
    switch (thePart) {
    case kControlClockHourDayPart:
        (IsDate() ? theDate.day : theDate.hour) = static_cast<SInt8>(theValue);
        break;
    case kControlClockMinuteMonthPart:
        (IsDate() ? theDate.month : theDate.minute) = static_cast<SInt8>(theValue);
        break;
    default:
        if (IsDate()) {
            theDate.year = theValue;
        } else {
            theDate.second = theValue;
        }
        break;
    }
    theDate.day = static_cast<SInt8>(std::min<int>(theDate.day, DaysIn(theDate.year, theDate.month)));
    SetShown(theDate);
    Show();
}

// Behind the last comes the first again.
void ClockControl::Step(int theStep)
{
    mTyped = 0;
    const CFGregorianDate theDate = Shown();
    const int theLeast = LeastOf(mField);
    const int theMost = MostOf(mField, theDate);
    const int theValue = ValueOf(mField, theDate) + theStep;
    Put(mField, theValue > theMost ? theLeast : theValue < theLeast ? theMost : theValue);
}

void ClockControl::GoOn(int theStep)
{
    const std::vector<Field> theFields = Fields();
    const auto theCount = static_cast<int>(theFields.size());
    for (int theIndex = 0; theIndex < theCount; ++theIndex) {
        if (theFields[static_cast<size_t>(theIndex)].thePart == mField) {
            const int theNext = std::clamp(theIndex + theStep, 0, theCount - 1);
            mField = theFields[static_cast<size_t>(theNext)].thePart;
            break;
        }
    }
    mTyped = 0;
    Show();
}

// Digits add up to a number until it would be too great; then a new one begins. Gives true when the field
// has another number.
bool ClockControl::TypeDigit(int theDigit)
{
    const int theMost = MostOf(mField, Shown());
    mTyped = mTyped * 10 + theDigit <= theMost ? mTyped * 10 + theDigit : theDigit;
    if (mTyped < LeastOf(mField) || mTyped > theMost) {
        return false;
    }
    Put(mField, mTyped);
    return true;
}

// Places -------------------------------------------------------------------------------------------------

Rect ClockControl::PlaceOfField(const Field& theField) const
{
    const std::string theText = ShownText();
    const Rect theBounds = WindowBounds();
    const int theEnd = std::max<int>(theBounds.left, theBounds.right - kArrowsWidth);
    const auto theAcross = [&](size_t theLength) {
        const PixelSize theSize =
            PresenterRegistry::Current().MeasureText(theText.substr(0, theLength), TextStyle::kBody);
        return std::min(theBounds.left + kTextEdge + theSize.theWidth, theEnd);
    };
    return MakeRect(theAcross(theField.theStart), theBounds.top,
                    theAcross(theField.theStart + theField.theLength), theBounds.bottom);
}

// None of a clock that is for display can be pressed.
Rect ClockControl::PlaceOf(ControlPartCode thePart) const
{
    Rect thePlace = WindowBounds();
    const int theMiddle = MiddleOf(thePlace).v;
    if (mIsForDisplay) {
        return MakeRect(0, 0, 0, 0);
    }
    if (thePart == kControlUpButtonPart || thePart == kControlDownButtonPart) {
        const int theLeft = std::max<int>(thePlace.left, thePlace.right - kArrowsWidth);
        return thePart == kControlUpButtonPart
                   ? MakeRect(theLeft, thePlace.top, thePlace.right, theMiddle)
                   : MakeRect(theLeft, theMiddle, thePlace.right, thePlace.bottom);
    }
    for (const Field& theField : Fields()) {
        if (theField.thePart == thePart) {
            return PlaceOfField(theField);
        }
    }
    return MakeRect(0, 0, 0, 0);
}

// What is beside the digits belongs to those before.
ControlPartCode ClockControl::PartAt(Point thePoint) const
{
    if (mIsForDisplay) {
        return kControlNoPart;
    }
    for (const ControlPartCode thePart :
         {ControlPartCode{kControlUpButtonPart}, ControlPartCode{kControlDownButtonPart}}) {
        if (Contains(PlaceOf(thePart), thePoint)) {
            return thePart;
        }
    }
    const std::vector<Field> theFields = Fields();
    ControlPartCode thePart = theFields.front().thePart;
    for (const Field& theField : theFields) {
        thePart = PlaceOfField(theField).left <= thePoint.h ? theField.thePart : thePart;
    }
    return thePart;
}

// Mouse and keys -----------------------------------------------------------------------------------------

void ClockControl::PartClicked(ControlPartCode thePart)
{
    if (thePart == kControlUpButtonPart || thePart == kControlDownButtonPart) {
        Step(thePart == kControlUpButtonPart ? 1 : -1);
        return;
    }
    mField = thePart;
    mTyped = 0;
    Show();
}

ControlPartCode ClockControl::FocusPart(bool) const
{
    return mIsForDisplay ? ControlPartCode{kControlFocusNoPart} : ControlPartCode{kControlClockPart};
}

void ClockControl::FocusMoved(bool theHasFocus)
{
    mTyped = 0;
    Control::FocusMoved(theHasFocus);
}

OSStatus ClockControl::PressKey(const KeyPress& theKey)
{
    const UInt32 theChosen = theKey.theModifiers & (cmdKey | optionKey | controlKey);
    if (mIsForDisplay || theChosen != 0 || !CanBePressed()) {
        return eventNotHandledErr;
    }
    switch (theKey.theCode) {
    case kVK_UpArrow:
    case kVK_DownArrow:
        PressAndRelease(shared_from_this(),
                        theKey.theCode == kVK_UpArrow ? ControlPartCode{kControlUpButtonPart}
                                                      : ControlPartCode{kControlDownButtonPart},
                        theKey.theModifiers);
        return noErr;
    case kVK_LeftArrow:
    case kVK_RightArrow:
        GoOn(theKey.theCode == kVK_LeftArrow ? -1 : 1);
        return noErr;
    default:
        break;
    }
    if (theKey.theText.size() != 1 || theKey.theText[0] < u'0' || theKey.theText[0] > u'9') {
        return eventNotHandledErr;
    }
    const SharedControl theKeepAlive = shared_from_this();
    if (TypeDigit(theKey.theText[0] - u'0')) {
        Hit(theKeepAlive, mField, theKey.theModifiers, 1);
    }
    return noErr;
}

void ClockControl::AddToLook(ControlLook& theLook) const
{
    theLook.theShape = ControlShape::kClock;
    theLook.theText = ShownText();
    theLook.theIsLocked = mIsForDisplay;
    const auto theRareLook = std::make_shared<RareLook>();
    for (const Field& theField : Fields()) {
        SegmentLook theOne;
        theOne.theTitle = theLook.theText.substr(theField.theStart, theField.theLength);
        theOne.theIsEnabled = !mIsForDisplay;
        theOne.theIsPressed = Hilite() == theField.thePart;
        theOne.theHasKeys = !mIsForDisplay && mField == theField.thePart;
        theOne.theBounds = PixelsOf(PlaceOfField(theField));
        theRareLook->theSegments.push_back(std::move(theOne));
    }
    theLook.theRareLook = theRareLook;
}

// Data ---------------------------------------------------------------------------------------------------

namespace {

// How many days before theDate the year has.
int DaysBefore(const CFGregorianDate& theDate)
{
    int theDays = theDate.day - 1;
    for (SInt8 theMonth = 1; theMonth < theDate.month; ++theMonth) {
        theDays += DaysIn(theDate.year, theMonth);
    }
    return theDays;
}

// 0 for a Sunday. The first of January 2001 was a Monday.
int DayOfWeek(const CFGregorianDate& theDate)
{
    const CFGregorianDate theDay = {theDate.year, theDate.month, theDate.day, 0, 0, 0};
    const double theDays = CFGregorianDateGetAbsoluteTime(theDay, nullptr) / 86400;
    const double theRest = std::fmod(theDays + 1, 7);
    return static_cast<int>(theRest < 0 ? theRest + 7 : theRest);
}

// Weeks begin on Sundays, and the first of January is in the first one.
LongDateRec RecordOf(const CFGregorianDate& theDate)
{
    const auto theShort = [](int theNumber) { return static_cast<SInt16>(theNumber); };
    const int theDaysBefore = DaysBefore(theDate);
    const int theDayOfWeek = DayOfWeek(theDate);
    const int theFirstDay = (theDayOfWeek + 7 * 53 - theDaysBefore) % 7;
    LongDateRec theRecord = {};
    theRecord.ld.year = theShort(static_cast<int>(theDate.year));
    theRecord.ld.month = theShort(theDate.month);
    theRecord.ld.day = theShort(theDate.day);
    theRecord.ld.hour = theShort(theDate.hour);
    theRecord.ld.minute = theShort(theDate.minute);
    theRecord.ld.second = theShort(static_cast<int>(theDate.second));
    theRecord.ld.dayOfWeek = theShort(theDayOfWeek + 1);
    theRecord.ld.dayOfYear = theShort(theDaysBefore + 1);
    theRecord.ld.weekOfYear = theShort((theDaysBefore + theFirstDay) / 7 + 1);
    theRecord.ld.pm = theDate.hour >= 12 ? 1 : 0;
    return theRecord;
}

// Only the fields that make the moment are read.
OSErr SetRecord(ClockControl& theClock, const LongDateRec& theRecord)
{
    const auto theIsByte = [](SInt16 theNumber) { return theNumber >= 0 && theNumber <= 59; };
    const auto& theFields = theRecord.ld;
    if (theFields.era != 0 || !theIsByte(theFields.month) || !theIsByte(theFields.day) ||
        !theIsByte(theFields.hour) || !theIsByte(theFields.minute) || !theIsByte(theFields.second)) {
        return paramErr;
    }
    return theClock.SetShown({theFields.year, static_cast<SInt8>(theFields.month),
                              static_cast<SInt8>(theFields.day), static_cast<SInt8>(theFields.hour),
                              static_cast<SInt8>(theFields.minute), static_cast<double>(theFields.second)});
}

ControlDataTag DateTag()
{
    ControlDataTag theEntry = {kControlClockLongDateTag, sizeof(LongDateRec), nullptr, nullptr, nullptr};
    theEntry.theRead = [](const Control& theControl, void* theBuffer) {
        Host::Put(theBuffer, RecordOf(static_cast<const ClockControl&>(theControl).Shown()));
    };
    theEntry.theWrite = [](Control& theControl, const void* theData, size_t) {
        return SetRecord(static_cast<ClockControl&>(theControl), Take<LongDateRec>(theData));
    };
    return theEntry;
}

ControlDataTag TimeTag()
{
    ControlDataTag theEntry = {kControlClockAbsoluteTimeTag, sizeof(CFAbsoluteTime), nullptr, nullptr,
                               nullptr};
    theEntry.theRead = [](const Control& theControl, void* theBuffer) {
        Host::Put(theBuffer, static_cast<const ClockControl&>(theControl).Time());
    };
    theEntry.theWrite = [](Control& theControl, const void* theData, size_t) {
        return static_cast<ClockControl&>(theControl).SetTime(Take<CFAbsoluteTime>(theData));
    };
    return theEntry;
}

} // namespace

const ControlDataTag* ClockControl::FindTag(ResType theTag) const
{
    static const ControlDataTag kTags[] = {DateTag(), TimeTag()};
    return FindIn(kTags, theTag, Control::FindTag(theTag));
}

} // namespace Host

// The interface ------------------------------------------------------------------------------------------

OSStatus CreateClockControl(WindowRef window, const Rect* boundsRect, ControlClockType clockType,
                            ControlClockFlags clockFlags, ControlRef* outControl)
{
    const ControlClockFlags theKnown = kControlClockIsDisplayOnly | kControlClockIsLive;
    if (clockType > kControlClockTypeMonthYear || (clockFlags & ~theKnown) != 0) {
        return Host::Refuse(outControl);
    }
    const bool theIsLive = (clockFlags & kControlClockIsLive) != 0;
    const OSStatus theStatus = Host::Create<Host::ClockControl>(
        {window, boundsRect, nullptr, outControl, false}, clockType, clockFlags != 0, theIsLive);
    if (theStatus != noErr || !theIsLive) {
        return theStatus;
    }
    const OSStatus theTicks = Host::FindKind<Host::ClockControl>(*outControl)->StartTicking();
    if (theTicks != noErr) {
        DisposeControl(*outControl);
        *outControl = nullptr;
    }
    return theTicks;
}
