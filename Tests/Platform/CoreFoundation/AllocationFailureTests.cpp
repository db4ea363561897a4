// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Every allocation of a call is made to fail in turn: the call gives nothing, changes nothing and leaks
// nothing.

#include "CFTestSupport.h"

#include <cstdlib>
#include <functional>
#include <new>

namespace {

const int kAlways = -1;
int gAllocationsUntilFailure = kAlways;
bool gHasFailed = false;

void* Allocate(size_t theSize)
{
    if (gAllocationsUntilFailure == 0) {
        gHasFailed = true;
        throw std::bad_alloc();
    }
    if (gAllocationsUntilFailure > 0) {
        --gAllocationsUntilFailure;
    }
    void* const theMemory = std::malloc(theSize == 0 ? 1 : theSize);
    if (theMemory == nullptr) {
        throw std::bad_alloc();
    }
    return theMemory;
}

} // namespace

// Replaces the allocation of the whole test program, the libraries included.
void* operator new(size_t theSize)
{
    return Allocate(theSize);
}

void* operator new[](size_t theSize)
{
    return Allocate(theSize);
}

void operator delete(void* theMemory) noexcept
{
    std::free(theMemory);
}

void operator delete[](void* theMemory) noexcept
{
    std::free(theMemory);
}

void operator delete(void* theMemory, size_t) noexcept
{
    std::free(theMemory);
}

void operator delete[](void* theMemory, size_t) noexcept
{
    std::free(theMemory);
}

namespace {

// A timer that the loop does not keep.
struct Timer : Owned<CFRunLoopTimerRef>
{
    Timer()
        : Owned(CFRunLoopTimerCreate(
              nullptr, 5, 0, 0, 0, [](CFRunLoopTimerRef, void*) {}, nullptr))
    {
    }
    ~Timer() { CFRunLoopTimerInvalidate(*this); }
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;
};

// Objects that the calls work on.
struct Subjects
{
    Owned<CFMutableStringRef> theString = MutableString("a mutable string with more than a few units");
    Owned<CFMutableDataRef> theData{CFDataCreateMutable(nullptr, 0)};
    Owned<CFMutableArrayRef> theArray = ObjectArray({CFSTR("b"), CFSTR("a"), CFSTR("c"), CFSTR("d")});
    Owned<CFMutableDictionaryRef> theDictionary = ObjectDictionary({{CFSTR("key"), kCFNull}});
    Owned<CFMutableSetRef> theSet{CFSetCreateMutable(nullptr, 0, &kCFCopyStringSetCallBacks)};
    Owned<CFLocaleRef> theLocale{CFLocaleCreate(nullptr, CFSTR("en_US"))};
    Owned<CFNumberFormatterRef> theNumbers{
        CFNumberFormatterCreate(nullptr, theLocale, kCFNumberFormatterDecimalStyle)};
    Owned<CFDateFormatterRef> theDates{
        CFDateFormatterCreate(nullptr, theLocale, kCFDateFormatterFullStyle, kCFDateFormatterNoStyle)};
    Timer theTimer;
};

struct Row
{
    const char* theName;
    std::function<CFTypeRef(const Subjects&)> theCreate; // gives an object, or, without memory, NULL
    std::function<void(const Subjects&)> theChange;      // changes a subject, or, without memory, nothing
};

void PrintTo(const Row& theRow, std::ostream* theStream)
{
    *theStream << theRow.theName;
}

class CFAllocationFailure : public testing::TestWithParam<Row>
{
};

const UInt8 kBytes[] = {1, 2, 3, 4, 5, 6, 7, 8};
const UniChar kUnits[] = {'a', 'b', 'c'};

const Row kRows[] = {
    {"CreateWithCString",
     [](const Subjects&) { return CFStringCreateWithCString(nullptr, "text of some length", 0); }, nullptr},
    {"CreateWithCharacters", [](const Subjects&) { return CFStringCreateWithCharacters(nullptr, kUnits, 3); },
     nullptr},
    {"CreateCopy", [](const Subjects& the) { return CFStringCreateCopy(nullptr, the.theString); }, nullptr},
    {"CreateMutable", [](const Subjects&) { return CFStringCreateMutable(nullptr, 0); }, nullptr},
    {"CreateMutableCopy",
     [](const Subjects& the) { return CFStringCreateMutableCopy(nullptr, 0, the.theString); }, nullptr},
    {"CreateWithFormat",
     [](const Subjects& the) {
         return CFStringCreateWithFormat(nullptr, nullptr, CFSTR("%@ %d %s %g %-10C"),
                                         static_cast<CFTypeRef>(the.theArray), 5, "text", 1.5, 'x');
     },
     nullptr},
    {"CreateSubstring",
     [](const Subjects& the) {
         return CFStringCreateWithSubstring(nullptr, the.theString, CFRangeMake(1, 5));
     },
     nullptr},
    {"CombineStrings",
     [](const Subjects& the) { return CFStringCreateByCombiningStrings(nullptr, the.theArray, CFSTR(", ")); },
     nullptr},
    {"SeparateStrings",
     [](const Subjects& the) {
         return CFStringCreateArrayBySeparatingStrings(nullptr, the.theString, CFSTR(" "));
     },
     nullptr},
    {"NumberCreate", [](const Subjects&) { return CFNumberCreate(nullptr, kCFNumberFloat64Type, kBytes); },
     nullptr},
    {"DateCreate", [](const Subjects&) { return CFDateCreate(nullptr, 5); }, nullptr},
    {"DataCreate", [](const Subjects&) { return CFDataCreate(nullptr, kBytes, 8); }, nullptr},
    {"DataCreateNoCopy",
     [](const Subjects&) { return CFDataCreateWithBytesNoCopy(nullptr, kBytes, 8, kCFAllocatorNull); },
     nullptr},
    {"DataCreateMutable", [](const Subjects&) { return CFDataCreateMutable(nullptr, 0); }, nullptr},
    {"ArrayCreateCopy", [](const Subjects& the) { return CFArrayCreateCopy(nullptr, the.theArray); },
     nullptr},
    {"DictionaryCreateCopy",
     [](const Subjects& the) { return CFDictionaryCreateCopy(nullptr, the.theDictionary); }, nullptr},
    {"SetCreateCopy", [](const Subjects& the) { return CFSetCreateCopy(nullptr, the.theSet); }, nullptr},
    {"CopyDescription", [](const Subjects& the) { return CFCopyDescription(the.theDictionary); }, nullptr},
    {"Append", nullptr, [](const Subjects& the) { CFStringAppend(the.theString, the.theString); }},
    {"AppendCharacters", nullptr,
     [](const Subjects& the) { CFStringAppendCharacters(the.theString, kUnits, 3); }},
    {"AppendCString", nullptr, [](const Subjects& the) { CFStringAppendCString(the.theString, "text", 0); }},
    {"AppendFormat", nullptr,
     [](const Subjects& the) { CFStringAppendFormat(the.theString, nullptr, CFSTR("%d"), 5); }},
    {"Replace", nullptr,
     [](const Subjects& the) { CFStringReplace(the.theString, CFRangeMake(0, 3), CFSTR("new")); }},
    {"FindAndReplace", nullptr,
     [](const Subjects& the) {
         CFStringFindAndReplace(the.theString, CFSTR("a"), CFSTR("bb"), CFRangeMake(0, 100), 0);
     }},
    {"Uppercase", nullptr, [](const Subjects& the) { CFStringUppercase(the.theString, nullptr); }},
    {"AppendBytes", nullptr, [](const Subjects& the) { CFDataAppendBytes(the.theData, kBytes, 8); }},
    {"SetLength", nullptr, [](const Subjects& the) { CFDataSetLength(the.theData, 100); }},
    {"AppendArray", nullptr,
     [](const Subjects& the) { CFArrayAppendArray(the.theArray, the.theArray, CFRangeMake(0, 3)); }},
    {"AppendValue", nullptr, [](const Subjects& the) { CFArrayAppendValue(the.theArray, kCFNull); }},
    {"SortValues", nullptr,
     [](const Subjects& the) {
         CFArraySortValues(the.theArray, CFRangeMake(0, 3), CompareStrings, nullptr);
     }},
    {"Pad", nullptr, [](const Subjects& the) { CFStringPad(the.theString, CFSTR("xyz"), 500, 0); }},
    {"CreateXMLData", [](const Subjects& the) { return CFPropertyListCreateXMLData(nullptr, the.theArray); },
     nullptr},
    {"CreateBinaryData",
     [](const Subjects& the) {
         return CFPropertyListCreateData(nullptr, the.theArray, kCFPropertyListBinaryFormat_v1_0, 0, nullptr);
     },
     nullptr},
    {"ErrorCreate", [](const Subjects&) { return CFErrorCreate(nullptr, CFSTR("domain"), 1, nullptr); },
     nullptr},
    {"LocaleCreate", [](const Subjects&) { return CFLocaleCreate(nullptr, CFSTR("en_US")); }, nullptr},
    {"LocaleCopyPreferredLanguages", [](const Subjects&) { return CFLocaleCopyPreferredLanguages(); },
     nullptr},
    {"LocaleGetValue",
     [](const Subjects&) {
         const Owned<CFLocaleRef> theLocale(CFLocaleCreate(nullptr, CFSTR("en_US")));
         const CFTypeRef theValue =
             theLocale == nullptr ? nullptr : CFLocaleGetValue(theLocale, kCFLocaleCurrencySymbol);
         return theValue == nullptr ? nullptr : CFRetain(theValue);
     },
     nullptr},
    {"NumberFormatterCreate",
     [](const Subjects& the) -> CFTypeRef {
         return CFNumberFormatterCreate(nullptr, the.theLocale, kCFNumberFormatterCurrencyStyle);
     },
     nullptr},
    {"NumberFormatterCreateString",
     [](const Subjects& the) {
         const double theNumber = -1234567.5;
         return CFNumberFormatterCreateStringWithValue(nullptr, the.theNumbers, kCFNumberDoubleType,
                                                       &theNumber);
     },
     nullptr},
    {"NumberFormatterCreateNumber",
     [](const Subjects& the) {
         return CFNumberFormatterCreateNumberFromString(nullptr, the.theNumbers, CFSTR("-1,234,567.5"),
                                                        nullptr, 0);
     },
     nullptr},
    {"NumberFormatterCopyProperty",
     [](const Subjects& the) {
         return CFNumberFormatterCopyProperty(the.theNumbers, kCFNumberFormatterCurrencySymbol);
     },
     nullptr},
    {"NumberFormatterSetFormat", nullptr,
     [](const Subjects& the) { CFNumberFormatterSetFormat(the.theNumbers, CFSTR("0.000000000000000000")); }},
    {"DateFormatterCreate",
     [](const Subjects& the) -> CFTypeRef { return CFDateFormatterCreate(nullptr, the.theLocale, 4, 4); },
     nullptr},
    {"DateFormatterCreateString",
     [](const Subjects& the) {
         return CFDateFormatterCreateStringWithAbsoluteTime(nullptr, the.theDates, 5);
     },
     nullptr},
    {"DateFormatterCreateDate",
     [](const Subjects& the) {
         return CFDateFormatterCreateDateFromString(nullptr, the.theDates, CFSTR("Monday, January 1, 2001"),
                                                    nullptr);
     },
     nullptr},
    {"DateFormatterCopyProperty",
     [](const Subjects& the) {
         return CFDateFormatterCopyProperty(the.theDates, kCFDateFormatterMonthSymbols);
     },
     nullptr},
    {"DateFormatterSetFormat", nullptr,
     [](const Subjects& the) { CFDateFormatterSetFormat(the.theDates, CFSTR("yyyy-MM-dd HH:mm:ss")); }},
    {"TimeZoneCreateWithName",
     [](const Subjects&) { return CFTimeZoneCreateWithName(nullptr, CFSTR("GMT+0130"), false); }, nullptr},
    {"RunLoopTimerCreate",
     [](const Subjects&) -> CFTypeRef {
         return CFRunLoopTimerCreate(
             nullptr, 5, 0, 0, 0, [](CFRunLoopTimerRef, void*) {}, nullptr);
     },
     nullptr},
    {"RunLoopAddTimer", nullptr,
     [](const Subjects& the) {
         CFRunLoopAddTimer(CFRunLoopGetMain(), the.theTimer, CFSTR("a mode of ours"));
     }},
    {"Capitalize", nullptr, [](const Subjects& the) { CFStringCapitalize(the.theString, nullptr); }},
    {"SetAddValue", nullptr, [](const Subjects& the) { CFSetAddValue(the.theSet, the.theString); }},
    {"SetValue", nullptr,
     [](const Subjects& the) { CFDictionarySetValue(the.theDictionary, CFSTR("new"), kCFNull); }},
};

std::string DescriptionsOf(const Subjects& theSubjects)
{
    return DescriptionOf(theSubjects.theString) + DescriptionOf(theSubjects.theData) +
           DescriptionOf(theSubjects.theArray) + DescriptionOf(theSubjects.theDictionary) +
           DescriptionOf(theSubjects.theSet) + DescriptionOf(theSubjects.theNumbers) +
           DescriptionOf(theSubjects.theDates) + std::to_string(CFGetRetainCount(theSubjects.theTimer));
}

// Runs theCall with its theAllocations-th allocation failing; returns whether there were fewer.
template <class Call>
bool RunWithFailure(int theAllocations, Call theCall)
{
    gHasFailed = false;
    gAllocationsUntilFailure = theAllocations;
    theCall();
    gAllocationsUntilFailure = kAlways;
    return !gHasFailed;
}

} // namespace

TEST_P(CFAllocationFailure, GivesNothingAndChangesNothing)
{
    const Row& theRow = GetParam();
    const int kMostAllocations = 1000;
    for (int theAllocations = 0; theAllocations < kMostAllocations; ++theAllocations) {
        const Subjects theSubjects;
        const std::string theBefore = DescriptionsOf(theSubjects);
        CFTypeRef theResult = nullptr;
        const bool theIsWhole = RunWithFailure(theAllocations, [&] {
            if (theRow.theCreate) {
                theResult = theRow.theCreate(theSubjects);
            } else {
                theRow.theChange(theSubjects);
            }
        });
        const std::string theAfter = DescriptionsOf(theSubjects);
        if (theIsWhole) {
            EXPECT_GT(theAllocations, 0) << "no allocation was made to fail";
            EXPECT_TRUE(theResult != nullptr || theAfter != theBefore);
            if (theResult != nullptr) {
                CFRelease(theResult);
            }
            return;
        }
        ASSERT_EQ(theResult, nullptr) << "allocation " << theAllocations;
        ASSERT_EQ(theAfter, theBefore) << "allocation " << theAllocations;
    }
    FAIL() << "the call never succeeded";
}

INSTANTIATE_TEST_SUITE_P(Calls, CFAllocationFailure, testing::ValuesIn(kRows),
                         [](const testing::TestParamInfo<Row>& theInfo) { return theInfo.param.theName; });
