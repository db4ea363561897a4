// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFDateObject.h"

#include "CFText.h"

#include <chrono>

namespace {

const __CFDate& DateOf(const Host::Object* theObject)
{
    return *static_cast<const __CFDate*>(theObject);
}

bool EqualDates(const Host::Object* theFirst, const Host::Object* theSecond)
{
    return DateOf(theFirst).mTime == DateOf(theSecond).mTime;
}

// The whole seconds, as far as they fit.
CFHashCode HashDate(const Host::Object* theObject)
{
    constexpr double kLimit = 2147483647.0;
    const CFAbsoluteTime theTime = DateOf(theObject).mTime;
    return theTime > -kLimit && theTime < kLimit ? static_cast<CFHashCode>(static_cast<long>(theTime)) : 0;
}

CFStringRef DescribeDate(const Host::Object* theObject)
{
    return Host::Text()
        .AppendHeader(theObject)
        .Append(Host::FormatInCLocale("{time = %.17g}", DateOf(theObject).mTime))
        .CopyString();
}

const __CFDate& RequireDate(CFDateRef theDate, const char* theCaller)
{
    return *Host::Require(theDate, Host::kDateType, theCaller);
}

} // namespace

const Host::TypeOperations Host::kDateType = {
    Host::kDateTypeID, "CFDate", Host::Delete<__CFDate>, EqualDates, HashDate, DescribeDate, nullptr};

const CFTimeInterval kCFAbsoluteTimeIntervalSince1970 = 978307200.0;
const CFTimeInterval kCFAbsoluteTimeIntervalSince1904 = 3061152000.0;

CFAbsoluteTime CFAbsoluteTimeGetCurrent()
{
    const std::chrono::duration<double> theTime = std::chrono::system_clock::now().time_since_epoch();
    return theTime.count() - kCFAbsoluteTimeIntervalSince1970;
}

CFTypeID CFDateGetTypeID()
{
    return Host::kDateTypeID;
}

CFDateRef CFDateCreate(CFAllocatorRef, CFAbsoluteTime inTime)
{
    return Host::NothingWithoutMemory([=] { return new __CFDate(inTime); });
}

CFAbsoluteTime CFDateGetAbsoluteTime(CFDateRef inDate)
{
    return RequireDate(inDate, __func__).mTime;
}

CFTimeInterval CFDateGetTimeIntervalSinceDate(CFDateRef inDate, CFDateRef inOther)
{
    return RequireDate(inDate, __func__).mTime - RequireDate(inOther, __func__).mTime;
}

CFComparisonResult CFDateCompare(CFDateRef inDate, CFDateRef inOther, void*)
{
    const CFAbsoluteTime theTime = RequireDate(inDate, __func__).mTime;
    const CFAbsoluteTime theOtherTime = RequireDate(inOther, __func__).mTime;
    return theTime < theOtherTime   ? kCFCompareLessThan
           : theTime > theOtherTime ? kCFCompareGreaterThan
                                    : kCFCompareEqualTo;
}
