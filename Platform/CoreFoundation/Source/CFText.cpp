// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFText.h"

#include "CFStringObject.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <locale.h>
#include <new>

namespace Host {

namespace {

// The calling thread formats in the "C" locale while one of these exists.
class [[nodiscard]] CLocaleScope
{
public:
    CLocaleScope()
        : mPrevious(uselocale(CLocale()))
    {
    }
    ~CLocaleScope() { uselocale(mPrevious); }
    CLocaleScope(const CLocaleScope&) = delete;
    CLocaleScope& operator=(const CLocaleScope&) = delete;

private:
    static locale_t CLocale()
    {
        static const locale_t kLocale = newlocale(LC_ALL_MASK, "C", static_cast<locale_t>(nullptr));
        return kLocale;
    }

    locale_t mPrevious;
};

std::string FormatWithArguments(const char* theFormat, va_list theArguments)
{
    const CLocaleScope theScope;
    va_list theCopy;
    va_copy(theCopy, theArguments);
    const int theLength = std::vsnprintf(nullptr, 0, theFormat, theCopy);
    va_end(theCopy);
    if (theLength < 0) {
        // The text would be longer than an int can tell.
        throw std::bad_alloc();
    }
    std::string theText(static_cast<size_t>(theLength) + 1, '\0');
    std::vsnprintf(theText.data(), theText.size(), theFormat, theArguments);
    theText.pop_back();
    return theText;
}

} // namespace

std::string FormatInCLocale(const char* theFormat, ...)
{
    va_list theArguments;
    va_start(theArguments, theFormat);
    std::string theText;
    try {
        theText = FormatWithArguments(theFormat, theArguments);
    } catch (...) {
        va_end(theArguments);
        throw;
    }
    va_end(theArguments);
    return theText;
}

double ParseInCLocale(const std::string& theText)
{
    const CLocaleScope theScope;
    return std::strtod(theText.c_str(), nullptr);
}

size_t NumberLength(const std::string& theText)
{
    const CLocaleScope theScope;
    char* theEnd = nullptr;
    std::strtod(theText.c_str(), &theEnd);
    return static_cast<size_t>(theEnd - theText.c_str());
}

Text& Text::Append(const char* theText)
{
    for (; *theText != '\0'; ++theText) {
        mUnits.push_back(static_cast<unsigned char>(*theText));
    }
    return *this;
}

Text& Text::Append(CFStringRef theString)
{
    return Append(theString->mUnits);
}

Text& Text::Append(const Units& theUnits)
{
    mUnits.insert(mUnits.end(), theUnits.begin(), theUnits.end());
    return *this;
}

Text& Text::AppendHeader(const Object* theObject)
{
    return Append(FormatInCLocale("<%s %p [%p]>", theObject->mType->theName,
                                  static_cast<const void*>(theObject),
                                  static_cast<const void*>(CFGetAllocator(theObject))));
}

Text& Text::AppendDescription(const void* theValue, CFStringRef (*theCopy)(const void* theValue))
{
    if (theCopy == nullptr) {
        return Append(FormatInCLocale("<%p>", theValue));
    }
    const Holder<CFStringRef> theDescription(theCopy(theValue));
    if (theDescription.Get() == nullptr) {
        throw std::bad_alloc();
    }
    return Append(theDescription.Get());
}

CFStringRef Text::CopyString()
{
    return MakeString(std::move(mUnits));
}

CFStringRef CopyFormatText(CFTypeRef theObject)
{
    const Object* const theHeader = static_cast<const Object*>(theObject);
    if (theHeader == nullptr) {
        return Text().Append("(null)").CopyString();
    }
    if (theHeader->mType->theCopyFormatText == nullptr) {
        return CFCopyDescription(theObject);
    }
    return theHeader->mType->theCopyFormatText(theHeader);
}

} // namespace Host
