// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFTimeZoneObject.h"

#include "Common/NeverDestroyed.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <optional>

namespace {

using Host::Holder;
using Host::ZoneData;

constexpr int kSecondsPerMinute = 60;
constexpr int kSecondsPerHour = 3600;
constexpr double kFarthestDistance = 18.0 * kSecondsPerHour;

const __CFTimeZone& ZoneOf(const Host::Object* theObject)
{
    return *static_cast<const __CFTimeZone*>(theObject);
}

bool EqualZones(const Host::Object* theFirst, const Host::Object* theSecond)
{
    return CFEqual(ZoneOf(theFirst).mName.Get(), ZoneOf(theSecond).mName.Get());
}

CFHashCode HashZone(const Host::Object* theObject)
{
    return CFHash(ZoneOf(theObject).mName.Get());
}

CFStringRef DescribeZone(const Host::Object* theObject)
{
    return Host::Text()
        .AppendHeader(theObject)
        .Append("{name = ")
        .Append(ZoneOf(theObject).mName.Get())
        .Append("}")
        .CopyString();
}

const __CFTimeZone& RequireZone(CFTimeZoneRef theZone, const char* theCaller)
{
    return *Host::Require(theZone, Host::kTimeZoneType, theCaller);
}

CFTimeZoneRef MakeZone(std::string_view theName, int theSeconds, std::unique_ptr<ZoneData>&& theData)
{
    return new __CFTimeZone(Holder<CFStringRef>(Host::StringOf(theName)), theSeconds, std::move(theData));
}

std::string NameOfDistance(int theSeconds)
{
    const int theMinutes = std::abs(theSeconds) / kSecondsPerMinute;
    return theMinutes == 0 ? "GMT"
                           : Host::FormatInCLocale("GMT%c%02d%02d", theSeconds < 0 ? '-' : '+',
                                                   theMinutes / 60, theMinutes % 60);
}

CFTimeZoneRef MakeFixedZone(double theInterval)
{
    if (!(std::abs(theInterval) <= kFarthestDistance)) {
        return nullptr;
    }
    const int theSeconds = static_cast<int>(std::round(theInterval / kSecondsPerMinute)) * kSecondsPerMinute;
    return MakeZone(NameOfDistance(theSeconds), theSeconds, nullptr);
}

// The seconds of "GMT+0130", "GMT+01:30" and "GMT+1"; none for another text.
std::optional<double> ParseDistance(const std::string& theName)
{
    constexpr size_t kFirstDigit = 4;
    if (theName.compare(0, 3, "GMT") != 0 || theName.size() <= kFirstDigit ||
        (theName[3] != '+' && theName[3] != '-')) {
        return std::nullopt;
    }
    std::string theDigits = theName.substr(kFirstDigit);
    const size_t theColon = theDigits.find(':');
    if (theColon == 1 || theColon == 2) {
        theDigits.erase(theColon, 1);
    }
    const size_t theCount = theDigits.size();
    if (theCount > 4 || (theColon != std::string::npos && theCount != theColon + 2) ||
        theDigits.find_first_not_of("0123456789") != std::string::npos) {
        return std::nullopt;
    }
    const int theNumber = std::atoi(theDigits.c_str());
    const int theHours = theCount <= 2 ? theNumber : theNumber / 100;
    const int theMinutes = theCount <= 2 ? 0 : theNumber % 100;
    const int theSeconds = theHours * kSecondsPerHour + theMinutes * kSecondsPerMinute;
    return theMinutes < 60 ? std::optional<double>(theName[3] == '-' ? -theSeconds : theSeconds)
                           : std::nullopt;
}

// What people write instead of the name of a zone.
std::string NameOfAbbreviation(const std::string& theAbbreviation)
{
    struct Abbreviation
    {
        const char* theText;
        const char* theName;
    };
    static const Abbreviation kAbbreviations[] = {
        {"AST", "America/Halifax"},     {"ADT", "America/Halifax"},    {"EST", "America/New_York"},
        {"EDT", "America/New_York"},    {"CST", "America/Chicago"},    {"CDT", "America/Chicago"},
        {"MST", "America/Denver"},      {"MDT", "America/Denver"},     {"PST", "America/Los_Angeles"},
        {"PDT", "America/Los_Angeles"}, {"AKST", "America/Anchorage"}, {"AKDT", "America/Anchorage"},
        {"HST", "Pacific/Honolulu"},    {"WET", "Europe/Lisbon"},      {"WEST", "Europe/Lisbon"},
        {"BST", "Europe/London"},       {"CET", "Europe/Berlin"},      {"CEST", "Europe/Berlin"},
        {"EET", "Europe/Athens"},       {"EEST", "Europe/Athens"},     {"MSK", "Europe/Moscow"},
        {"JST", "Asia/Tokyo"},          {"KST", "Asia/Seoul"},         {"HKT", "Asia/Hong_Kong"},
        {"SGT", "Asia/Singapore"},      {"NZST", "Pacific/Auckland"},  {"NZDT", "Pacific/Auckland"},
    };
    for (const Abbreviation& theKnown : kAbbreviations) {
        if (theAbbreviation == theKnown.theText) {
            return theKnown.theName;
        }
    }
    return "";
}

CFTimeZoneRef MakeNamedZone(const std::string& theName)
{
    if (theName == "GMT" || theName == "UTC") {
        return MakeZone(theName, 0, nullptr);
    }
    if (const std::optional<double> theDistance = ParseDistance(theName)) {
        return MakeFixedZone(*theDistance);
    }
    std::unique_ptr<ZoneData> theData = theName.empty() ? nullptr : Host::MakeZoneData(theName);
    return theData == nullptr ? nullptr : MakeZone(theName, 0, std::move(theData));
}

CFTimeZoneRef MakeZoneOrAbbreviated(const std::string& theName, bool theTriesAbbreviation)
{
    if (theTriesAbbreviation) {
        const std::string theLongName = NameOfAbbreviation(theName);
        if (const CFTimeZoneRef theZone = MakeNamedZone(theLongName)) {
            return theZone;
        }
    }
    return MakeNamedZone(theName);
}

// The zones that the process has: the system's, once it was looked up, and the default, once it was set.
struct ProcessZones
{
    std::mutex theMutex;
    Holder<CFTimeZoneRef> theSystem{nullptr};
    Holder<CFTimeZoneRef> theDefault{nullptr};
};

ProcessZones& TheZones()
{
    static Host::NeverDestroyed<ProcessZones> sZones;
    return sZones.Get();
}

Holder<CFTimeZoneRef> Share(const Holder<CFTimeZoneRef>& theZone)
{
    return Holder<CFTimeZoneRef>(static_cast<CFTimeZoneRef>(CFRetain(theZone.Get())));
}

Holder<CFTimeZoneRef> SystemZone(ProcessZones& theZones)
{
    if (theZones.theSystem.Get() == nullptr) {
        const CFTimeZoneRef theNamed = MakeNamedZone(Host::NameOfSystemZone());
        Holder<CFTimeZoneRef> theSystem(theNamed == nullptr ? MakeNamedZone("GMT") : theNamed);
        theZones.theSystem.Swap(theSystem);
    }
    return Share(theZones.theSystem);
}

ZoneData::Offset OffsetOf(const __CFTimeZone& theZone, CFAbsoluteTime theTime)
{
    if (theZone.mData == nullptr) {
        return {theZone.mSeconds, false};
    }
    const std::lock_guard<std::mutex> theLock(theZone.mMutex);
    return theZone.mData->OffsetAt(theTime);
}

double SecondsAt(CFTimeZoneRef theZone, CFAbsoluteTime theTime)
{
    return theZone == nullptr ? 0 : OffsetOf(*theZone, theTime).theSeconds;
}

} // namespace

const Host::TypeOperations Host::kTimeZoneType = {
    Host::kTimeZoneTypeID, "CFTimeZone", Host::Delete<__CFTimeZone>, EqualZones, HashZone,
    DescribeZone,          nullptr};

CFAbsoluteTime Host::MomentOfLocalTime(CFTimeZoneRef theTimeZone, CFAbsoluteTime theLocalTime)
{
    constexpr double kDay = 86400;
    const double theEarlier = SecondsAt(theTimeZone, theLocalTime - kDay);
    const double theLater = SecondsAt(theTimeZone, theLocalTime + kDay);
    const bool theIsLater = theEarlier != theLater &&
                            SecondsAt(theTimeZone, theLocalTime - theEarlier) != theEarlier &&
                            SecondsAt(theTimeZone, theLocalTime - theLater) == theLater;
    return theLocalTime - (theIsLater ? theLater : theEarlier);
}

CFAbsoluteTime Host::LocalTimeAt(CFTimeZoneRef theTimeZone, CFAbsoluteTime theTime)
{
    return theTime + SecondsAt(theTimeZone, theTime);
}

Host::Holder<CFTimeZoneRef> Host::DefaultTimeZone()
{
    ProcessZones& theZones = TheZones();
    const std::lock_guard<std::mutex> theLock(theZones.theMutex);
    return theZones.theDefault.Get() == nullptr ? SystemZone(theZones) : Share(theZones.theDefault);
}

CFTypeID CFTimeZoneGetTypeID()
{
    return Host::kTimeZoneTypeID;
}

CFTimeZoneRef CFTimeZoneCopySystem()
{
    return Host::NothingWithoutMemory([] {
        ProcessZones& theZones = TheZones();
        const std::lock_guard<std::mutex> theLock(theZones.theMutex);
        return SystemZone(theZones).Release();
    });
}

void CFTimeZoneResetSystem()
{
    ProcessZones& theZones = TheZones();
    Holder<CFTimeZoneRef> theNone(nullptr);
    const std::lock_guard<std::mutex> theLock(theZones.theMutex);
    theZones.theSystem.Swap(theNone);
}

CFTimeZoneRef CFTimeZoneCopyDefault()
{
    return Host::NothingWithoutMemory([] { return Host::DefaultTimeZone().Release(); });
}

void CFTimeZoneSetDefault(CFTimeZoneRef inTimeZone)
{
    if (inTimeZone == nullptr) {
        return;
    }
    Holder<CFTimeZoneRef> theNew(static_cast<CFTimeZoneRef>(CFRetain(&RequireZone(inTimeZone, __func__))));
    ProcessZones& theZones = TheZones();
    const std::lock_guard<std::mutex> theLock(theZones.theMutex);
    theZones.theDefault.Swap(theNew);
}

CFArrayRef CFTimeZoneCopyKnownNames()
{
    return Host::NothingWithoutMemory([] {
        std::vector<std::string> theNames = Host::KnownZones();
        // A distance has a name in one form only.
        theNames.erase(std::remove_if(theNames.begin(), theNames.end(),
                                      [](const std::string& the) { return ParseDistance(the).has_value(); }),
                       theNames.end());
        for (const char* const theName : {"GMT", "UTC"}) {
            const auto thePlace = std::lower_bound(theNames.begin(), theNames.end(), theName);
            if (thePlace == theNames.end() || *thePlace != theName) {
                theNames.insert(thePlace, theName);
            }
        }
        return Host::MakeArray(theNames);
    });
}

CFTimeZoneRef CFTimeZoneCreateWithName(CFAllocatorRef, CFStringRef inName, Boolean inTryAbbreviation)
{
    Host::Require(inName, Host::kStringType, __func__);
    return Host::NothingWithoutMemory([=] {
        return MakeZoneOrAbbreviated(Host::ASCIIOf(Host::CharactersOf(inName)), inTryAbbreviation != 0);
    });
}

CFTimeZoneRef CFTimeZoneCreateWithTimeIntervalFromGMT(CFAllocatorRef, CFTimeInterval inInterval)
{
    return Host::NothingWithoutMemory([=] { return MakeFixedZone(inInterval); });
}

CFStringRef CFTimeZoneGetName(CFTimeZoneRef inTimeZone)
{
    return RequireZone(inTimeZone, __func__).mName.Get();
}

CFTimeInterval CFTimeZoneGetSecondsFromGMT(CFTimeZoneRef inTimeZone, CFAbsoluteTime inTime)
{
    return OffsetOf(RequireZone(inTimeZone, __func__), inTime).theSeconds;
}

Boolean CFTimeZoneIsDaylightSavingTime(CFTimeZoneRef inTimeZone, CFAbsoluteTime inTime)
{
    return OffsetOf(RequireZone(inTimeZone, __func__), inTime).theIsDaylightSaving;
}

CFStringRef CFTimeZoneCopyAbbreviation(CFTimeZoneRef inTimeZone, CFAbsoluteTime inTime)
{
    const __CFTimeZone& theZone = RequireZone(inTimeZone, __func__);
    return Host::NothingWithoutMemory([&] {
        if (theZone.mData == nullptr) {
            return CFStringCreateCopy(nullptr, theZone.mName.Get());
        }
        const std::lock_guard<std::mutex> theLock(theZone.mMutex);
        return Host::StringOf(
            theZone.mData->Abbreviation(theZone.mData->OffsetAt(inTime).theIsDaylightSaving));
    });
}
