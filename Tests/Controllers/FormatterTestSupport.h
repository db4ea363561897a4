// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef FormatterTestSupport_h
#define FormatterTestSupport_h

#include "LmFormatter.h"

#include "ControllersTestSupport.h"

#include <string>
#include <vector>

// A locale for as long as a test needs it.
class TestLocale
{
public:
    explicit TestLocale(const char* theIdentifier)
    {
        const LmValue theText(CFStringCreateWithCString(nullptr, theIdentifier, kCFStringEncodingUTF8), true);
        mLocale = CFLocaleCreate(nullptr, theText.GetString());
    }
    ~TestLocale() { CFRelease(mLocale); }
    TestLocale(const TestLocale&) = delete;
    TestLocale& operator=(const TestLocale&) = delete;

    operator CFLocaleRef() const { return mLocale; }

private:
    CFLocaleRef mLocale = nullptr;
};

// More than ten languages, some with digits, groups or directions of their own. A host without the data of
// all locales writes each in English.
constexpr const char* kTestLocales[] = {"en_US", "de_DE", "fr_FR", "de_CH", "es_ES",
                                        "ru_RU", "ja_JP", "hi_IN", "ar_EG", "fa_IR",
                                        "sv_SE", "pt_BR", "pl_PL", "he_IL", "zh_Hant_TW"};

inline LmValue TextValue(const std::string& theText)
{
    return LmValue(CFStringCreateWithBytes(nullptr, reinterpret_cast<const UInt8*>(theText.data()),
                                           static_cast<CFIndex>(theText.size()), kCFStringEncodingUTF8,
                                           false),
                   true);
}

// A string value's text in UTF-8; "-" for what is none.
inline std::string UTF8Of(const LmValue& theValue)
{
    if (!theValue.IsString() || theValue.GetString() == nullptr) {
        return "-";
    }
    std::vector<char> theBuffer(static_cast<std::size_t>(4 * CFStringGetLength(theValue.GetString()) + 1));
    CFStringGetCString(theValue.GetString(), theBuffer.data(), static_cast<CFIndex>(theBuffer.size()),
                       kCFStringEncodingUTF8);
    return theBuffer.data();
}

// The value, or what is wrong.
inline std::string Parsed(const LmFormatter& theFormatter, const std::string& theText)
{
    const LmReading theReading = theFormatter.Parse(TextValue(theText).GetString());
    return theReading.IsAccepted() ? Describe(theReading.theValue) : UTF8Of(theReading.theProblem);
}

inline std::string Formatted(const LmFormatter& theFormatter, const LmValue& theValue)
{
    return UTF8Of(theFormatter.Format(theValue));
}

// What a formatter reads in what it writes; the same value when it keeps its promise.
inline LmValue ThereAndBack(const LmFormatter& theFormatter, const LmValue& theValue)
{
    const LmValue theText = theFormatter.Format(theValue);
    return theText.IsString() ? theFormatter.Parse(theText.GetString()).theValue : LmValue();
}

#endif
