// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Prints where its bundle is, whether it is known twice, and what it says. BundleFoldersTests.sh starts it
// from many places.

#include <CoreFoundation/CoreFoundation.h>
#include <cstdio>

namespace {

void Print(CFStringRef theText)
{
    char theBytes[1024] = "";
    CFStringGetCString(theText, theBytes, sizeof theBytes, kCFStringEncodingUTF8);
    std::puts(theBytes);
}

} // namespace

int main()
{
    const CFURLRef thePlace = CFBundleCopyBundleURL(CFBundleGetMainBundle());
    const CFBundleRef theSame = CFBundleCreate(nullptr, thePlace);
    Print(CFURLGetString(thePlace));
    std::puts(theSame == nullptr || theSame == CFBundleGetMainBundle() ? "one" : "two");
    const CFStringRef theWord = CFCopyLocalizedString(CFSTR("word"), "");
    Print(theWord);
    const CFURLRef theCode = CFBundleCopyExecutableURL(CFBundleGetMainBundle());
    std::puts(theCode == nullptr ? "no code" : "code");
    const CFTypeRef theObjects[] = {thePlace, theSame, theWord, theCode};
    for (const CFTypeRef theObject : theObjects) {
        if (theObject != nullptr) {
            CFRelease(theObject);
        }
    }
    return 0;
}
