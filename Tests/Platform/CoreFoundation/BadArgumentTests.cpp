// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What this host does where CoreFoundation leaves the result open: it ends the process with a line that names
// the call, before any memory is touched.

#include "CFTestSupport.h"
#include "StandardErrorCapture.h"

#include <csignal>
#include <functional>
#include <sys/wait.h>
#include <unistd.h>

namespace {

struct Row
{
    const char* theMessage;
    std::function<void()> theCall;
};

void PrintTo(const Row& theRow, std::ostream* theStream)
{
    *theStream << theRow.theMessage;
}

class CFBadArgument : public testing::TestWithParam<Row>
{
};

const void* gNothing = nullptr;

// The test's own variables, so that the compiler does not see the null references.
CFStringRef NoString()
{
    return static_cast<CFStringRef>(gNothing);
}

CFTypeRef NoObject()
{
    return gNothing;
}

const char* NoText()
{
    return static_cast<const char*>(gNothing);
}

const Row kRows[] = {
    {"CFRetain: the object is NULL", [] { CFRetain(NoObject()); }},
    {"CFRelease: the object is NULL", [] { CFRelease(NoObject()); }},
    {"CFEqual: the object is NULL", [] { CFEqual(NoObject(), kCFNull); }},
    {"CFEqual: the object is NULL", [] { CFEqual(kCFNull, NoObject()); }},
    {"CFHash: the object is NULL", [] { CFHash(NoObject()); }},
    {"CFGetRetainCount: the object is NULL", [] { CFGetRetainCount(NoObject()); }},
    {"CFGetTypeID: the object is NULL", [] { CFGetTypeID(NoObject()); }},
    {"CFStringGetLength: the object is NULL", [] { CFStringGetLength(NoString()); }},
    {"CFStringCompare: the object is NULL", [] { CFStringCompare(NoString(), CFSTR("a"), 0); }},
    {"CFStringCompare: the object is NULL", [] { CFStringCompare(CFSTR("a"), NoString(), 0); }},
    {"CFStringCompareWithOptions: the object is NULL", [] { CFStringHasPrefix(NoString(), CFSTR("a")); }},
    {"CFStringGetLength: the object is NULL", [] { CFStringHasPrefix(CFSTR("a"), NoString()); }},
    {"CFStringCreateCopy: the object is NULL", [] { CFStringCreateCopy(nullptr, NoString()); }},
    {"CFStringCreateMutableCopy: the object is NULL",
     [] { CFStringCreateMutableCopy(nullptr, 0, NoString()); }},
    {"CFStringAppend: the object is NULL", [] { CFStringAppend(MutableString("a"), NoString()); }},
    {"CFStringAppendCString: the text is NULL",
     [] { CFStringAppendCString(MutableString("a"), NoText(), 0); }},
    {"CFStringCreateWithCString: the text is NULL", [] { CFStringCreateWithCString(nullptr, NoText(), 0); }},
    {"CFStringCreateWithFormatAndArguments: the object is NULL",
     [] { CFStringCreateWithFormat(nullptr, nullptr, NoString()); }},
    {"CFStringGetIntValue: the object is NULL", [] { CFStringGetIntValue(NoString()); }},
    {"CFNumberGetType: the object is NULL", [] { CFNumberGetType(static_cast<CFNumberRef>(NoObject())); }},
    {"CFNumberGetValue: the object is NULL",
     [] { CFNumberGetValue(static_cast<CFNumberRef>(NoObject()), kCFNumberIntType, nullptr); }},
    {"CFNumberCreate: the value is NULL", [] { CFNumberCreate(nullptr, kCFNumberIntType, gNothing); }},
    {"CFDataGetLength: the object is NULL", [] { CFDataGetLength(static_cast<CFDataRef>(NoObject())); }},
    {"CFDataCreate: the bytes are NULL",
     [] { CFDataCreate(nullptr, static_cast<const UInt8*>(gNothing), 5); }},
    {"CFArrayGetCount: the object is NULL", [] { CFArrayGetCount(static_cast<CFArrayRef>(NoObject())); }},
    {"CFDictionaryGetCount: the object is NULL",
     [] { CFDictionaryGetCount(static_cast<CFDictionaryRef>(NoObject())); }},
    {"CFSetGetCount: the object is NULL", [] { CFSetGetCount(static_cast<CFSetRef>(NoObject())); }},
    {"CFRetain: the object is NULL", [] { ObjectArray({NoObject()}); }},
    {"CFRetain: the object is NULL",
     [] {
         ObjectDictionary({{CFSTR("a"), NoObject()}});
     }},
    // Objects of another type
    {"CFStringGetLength: the object has another type",
     [] { CFStringGetLength(static_cast<CFStringRef>(static_cast<CFTypeRef>(kCFNull))); }},
    {"CFNumberGetType: the object has another type",
     [] { CFNumberGetType(static_cast<CFNumberRef>(static_cast<CFTypeRef>(kCFBooleanTrue))); }},
    {"CFAbsoluteTimeGetDayOfWeek: the object has another type",
     [] { CFAbsoluteTimeGetDayOfWeek(0, static_cast<CFTimeZoneRef>(static_cast<CFTypeRef>(kCFNull))); }},
    // Immutable objects
    {"CFStringAppend: the object is immutable",
     [] { CFStringAppend(const_cast<CFMutableStringRef>(CFSTR("a")), CFSTR("b")); }},
    {"CFDataSetLength: the object is immutable",
     [] { CFDataSetLength(const_cast<CFMutableDataRef>(static_cast<CFDataRef>(Data({1}))), 5); }},
    {"CFArrayInsertValueAtIndex: the object is immutable",
     [] {
         const Owned<CFArrayRef> theArray(CFArrayCreate(nullptr, nullptr, 0, nullptr));
         CFArrayAppendValue(const_cast<CFMutableArrayRef>(static_cast<CFArrayRef>(theArray)), kCFNull);
     }},
    {"CFDictionarySetValue: the object is immutable",
     [] {
         const Owned<CFDictionaryRef> theDictionary(
             CFDictionaryCreate(nullptr, nullptr, nullptr, 0, nullptr, nullptr));
         CFDictionarySetValue(const_cast<CFMutableDictionaryRef>(static_cast<CFDictionaryRef>(theDictionary)),
                              kCFNull, kCFNull);
     }},
    {"CFSetAddValue: the object is immutable",
     [] {
         const Owned<CFSetRef> theSet(CFSetCreate(nullptr, nullptr, 0, nullptr));
         CFSetAddValue(const_cast<CFMutableSetRef>(static_cast<CFSetRef>(theSet)), kCFNull);
     }},
    // Places and bundles
    {"CFURLGetString: the object is NULL", [] { CFURLGetString(nullptr); }},
    {"CFURLCopyPath: the object has another type",
     [] { CFURLCopyPath(reinterpret_cast<CFURLRef>(CFSTR("x"))); }},
    {"CFURLCreateWithString: the object is NULL", [] { CFURLCreateWithString(nullptr, nullptr, nullptr); }},
    {"CFURLCreateDataAndPropertiesFromResource: the object is NULL",
     [] { CFURLCreateDataAndPropertiesFromResource(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr); }},
    {"CFBundleGetInfoDictionary: the object is NULL", [] { CFBundleGetIdentifier(nullptr); }},
    {"CFBundleCreate: the object is NULL", [] { CFBundleCreate(nullptr, nullptr); }},
    {"CFBundleCopyResourceURL: the object is NULL",
     [] { CFBundleCopyResourceURL(CFBundleGetMainBundle(), nullptr, nullptr, nullptr); }},
    {"CFBundleCopyLocalizedString: the object has another type",
     [] {
         CFBundleCopyLocalizedString(CFBundleGetMainBundle(), reinterpret_cast<CFStringRef>(kCFNull), nullptr,
                                     nullptr);
     }},
    // Locales, formatters, time zones and timers
    {"CFLocaleCreate: the object is NULL", [] { CFLocaleCreate(nullptr, NoString()); }},
    {"CFLocaleGetValue: the object is NULL", [] { CFLocaleGetValue(CFLocaleGetSystem(), NoString()); }},
    {"CFLocaleGetIdentifier: the object has another type",
     [] { CFLocaleGetIdentifier(reinterpret_cast<CFLocaleRef>(kCFNull)); }},
    {"CFNumberFormatterCreate: the object has another type",
     [] { CFNumberFormatterCreate(nullptr, reinterpret_cast<CFLocaleRef>(kCFNull), 0); }},
    {"CFNumberFormatterGetFormat: the object is NULL", [] { CFNumberFormatterGetFormat(nullptr); }},
    {"CFNumberFormatterSetFormat: the object is NULL",
     [] { CFNumberFormatterSetFormat(CFNumberFormatterCreate(nullptr, nullptr, 0), NoString()); }},
    {"CFNumberFormatterCreateStringWithNumber: the object is NULL",
     [] {
         CFNumberFormatterCreateStringWithNumber(nullptr, CFNumberFormatterCreate(nullptr, nullptr, 0),
                                                 nullptr);
     }},
    {"CFNumberFormatterGetDecimalInfoForCurrencyCode: the object is NULL",
     [] { CFNumberFormatterGetDecimalInfoForCurrencyCode(NoString(), nullptr, nullptr); }},
    {"CFDateFormatterCreate: the object has another type",
     [] { CFDateFormatterCreate(nullptr, reinterpret_cast<CFLocaleRef>(kCFNull), 0, 0); }},
    {"CFDateFormatterGetFormat: the object is NULL", [] { CFDateFormatterGetFormat(nullptr); }},
    {"CFDateGetAbsoluteTime: the object is NULL",
     [] {
         CFDateFormatterCreateStringWithDate(nullptr, CFDateFormatterCreate(nullptr, nullptr, 0, 0), nullptr);
     }},
    {"CFTimeZoneCreateWithName: the object is NULL",
     [] { CFTimeZoneCreateWithName(nullptr, NoString(), 0); }},
    {"CFTimeZoneGetName: the object is NULL", [] { CFTimeZoneGetName(nullptr); }},
    {"CFTimeZoneSetDefault: the object has another type",
     [] { CFTimeZoneSetDefault(reinterpret_cast<CFTimeZoneRef>(kCFNull)); }},
    {"CFRunLoopTimerInvalidate: the object is NULL", [] { CFRunLoopTimerInvalidate(nullptr); }},
    {"CFRunLoopAddTimer: the object is NULL",
     [] { CFRunLoopAddTimer(CFRunLoopGetMain(), nullptr, kCFRunLoopDefaultMode); }},
    {"CFRunLoopRemoveTimer: the object is NULL",
     [] { CFRunLoopRemoveTimer(nullptr, nullptr, kCFRunLoopDefaultMode); }},
    // Places outside
    {"CFArrayGetValueAtIndex: the index is not inside the array",
     [] { CFArrayGetValueAtIndex(ObjectArray({}), 0); }},
    {"CFArrayGetValueAtIndex: the index is not inside the array",
     [] { CFArrayGetValueAtIndex(ObjectArray({kCFNull}), -1); }},
    {"CFArrayInsertValueAtIndex: the index is not inside the array",
     [] { CFArrayInsertValueAtIndex(ObjectArray({kCFNull}), 2, kCFNull); }},
    {"CFArraySetValueAtIndex: the index is not inside the array",
     [] { CFArraySetValueAtIndex(ObjectArray({kCFNull}), 2, kCFNull); }},
    {"CFArrayRemoveValueAtIndex: the index is not inside the array",
     [] { CFArrayRemoveValueAtIndex(ObjectArray({kCFNull}), 1); }},
    {"CFArrayGetCountOfValue: the range is not inside the array",
     [] { CFArrayGetCountOfValue(ObjectArray({kCFNull}), CFRangeMake(1, 1), kCFNull); }},
    {"CFDataReplaceBytes: the range is not inside the data",
     [] { CFDataDeleteBytes(Owned(CFDataCreateMutable(nullptr, 0)), CFRangeMake(0, 1)); }},
    {"CFDataReplaceBytes: the data would become longer than its capacity",
     [] {
         const Owned<CFMutableDataRef> theData(CFDataCreateMutable(nullptr, 2));
         const UInt8 theBytes[] = {1, 2, 3};
         CFDataAppendBytes(theData, theBytes, 3);
     }},
    {"CFArrayCreate: the values are NULL", [] { CFArrayCreate(nullptr, nullptr, 1, nullptr); }},
    {"CFDictionaryCreate: the keys or the values are NULL",
     [] { CFDictionaryCreate(nullptr, nullptr, nullptr, 1, nullptr, nullptr); }},
    {"CFSetCreate: the values are NULL", [] { CFSetCreate(nullptr, nullptr, 1, nullptr); }},
    // Too many releases of an object that others share
    {"CFRelease: a number was released more often than it was retained",
     [] {
         const CFNumberRef theNumber = Integer(7);
         while (CFGetRetainCount(theNumber) > 0) {
             CFRelease(theNumber);
         }
     }},
};

// Runs a call in a process of its own; returns the signal that ended it, 0 for none.
int SignalThatEnds(const std::function<void()>& theCall)
{
    const pid_t theProcess = fork();
    if (theProcess == 0) {
        theCall();
        _exit(0);
    }
    int theStatus = 0;
    waitpid(theProcess, &theStatus, 0);
    return WIFSIGNALED(theStatus) ? WTERMSIG(theStatus) : 0;
}

} // namespace

TEST_P(CFBadArgument, EndsTheProcessWithALineThatNamesTheCall)
{
    EXPECT_EQ(SignalThatEnds(GetParam().theCall), SIGABRT);
    const Lines theLines = StandardErrorCapture::TakeLines();
    ASSERT_FALSE(theLines.empty());
    EXPECT_EQ(theLines[0], GetParam().theMessage);
}

INSTANTIATE_TEST_SUITE_P(Rows, CFBadArgument, testing::ValuesIn(kRows));
