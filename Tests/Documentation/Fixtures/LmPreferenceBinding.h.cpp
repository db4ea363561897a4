// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmPreferenceBinding.h"

#include <CoreFoundation/CoreFoundation.h>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

namespace {

// What a value is kept as, in the words of the table.
std::string DescribePreference(CFStringRef theKey)
{
    const CFPropertyListRef theValue = CFPreferencesCopyAppValue(theKey, CFSTR("com.example.kinds"));
    std::string theText = "something else";
    if (theValue == nullptr) {
        return "nothing";
    }
    if (CFGetTypeID(theValue) == CFBooleanGetTypeID()) {
        theText = "CFBoolean";
    } else if (CFGetTypeID(theValue) == CFStringGetTypeID()) {
        theText = "CFString";
    } else if (CFGetTypeID(theValue) == CFDataGetTypeID()) {
        theText = "CFData of " + std::to_string(CFDataGetLength(static_cast<CFDataRef>(theValue))) + " bytes";
    } else if (CFGetTypeID(theValue) == CFNumberGetTypeID()) {
        static const std::map<CFNumberType, std::string> kTypes = {{kCFNumberSInt32Type, "SInt32"},
                                                                   {kCFNumberSInt64Type, "SInt64"},
                                                                   {kCFNumberFloat64Type, "Float64"}};
        theText = "CFNumber, " + kTypes.at(CFNumberGetType(static_cast<CFNumberRef>(theValue)));
    }
    CFRelease(theValue);
    return theText;
}

std::string DescribeReturn(const LmValue& theBefore, const LmValue& theAfter)
{
    switch (theAfter.GetType()) {
    case kTypeBoolean:
        return "comes back as a boolean";
    case kTypeSInt32:
    case kTypeSInt64:
        return "come back signed";
    case kTypeDouble:
        return "comes back as a double";
    case kTypeString:
        return "comes back as a string";
    default:
        return theBefore == theAfter ? "come back as what they were" : "come back as something else";
    }
}

} // namespace

TEST(LmPreferenceBinding, SavesTheModelAsItsHeaderShows)
{
    LmKeyValueBinding theModel;
    // @code 1
    EXPECT_EQ(LmPreferenceBinding(CFSTR("com.example.thermostat")).GetKeyPathValue("Target").GetSInt32(), 23);
    CFPreferencesSetAppValue(CFSTR("Target"), nullptr, CFSTR("com.example.thermostat"));
}

TEST(LmPreferenceBinding, KeepsValuesAsItsHeaderLists)
{
    const char* const kShown[][3] = {
        // @rows 2
    };
    const std::map<std::string, std::vector<LmValue>> kValues = {
        {"boolean", {LmValue(true)}},
        {"32-bit integers", {LmValue(70000L), LmValue(70000UL)}},
        {"64-bit integers", {LmValue(5000000000LL), LmValue(5000000000ULL)}},
        {"double", {LmValue(1.5)}},
        {"string", {LmValue(CFSTR("Kitchen"), false)}},
        {"point, size, rectangle",
         {LmValue(CGPointMake(1, 2)), LmValue(CGSizeMake(30, 40)), LmValue(CGRectMake(1, 2, 30, 40))}}};
    ASSERT_EQ(std::size(kShown), kValues.size());
    LmPreferenceBinding thePreferences(CFSTR("com.example.kinds"));
    for (const auto& theRow : kShown) {
        for (const LmValue& theValue : kValues.at(theRow[0])) {
            thePreferences.SetKeyPathValue("kind", theValue);
            EXPECT_EQ(DescribePreference(CFSTR("kind")), theRow[1]);
            EXPECT_EQ(DescribeReturn(theValue, thePreferences.GetKeyPathValue("kind")), theRow[2]);
        }
    }
}
