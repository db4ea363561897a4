// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFBundle_h
#define CFBundle_h

// Bundles: folders with a program or a library, what it says about itself, and its resources in several
// languages.
//
// - Name.app/Contents/Info.plist: what it says about itself
// - Name.app/Contents/MacOS/Name: its code
// - Name.app/Contents/Resources/Picture.png: a resource
// - Name.app/Contents/Resources/English.lproj/Words.strings: one in a language
//
// Frameworks, with their parts in Versions/A, and the oldest form, with Resources beside everything else, are
// bundles too. A resource is looked for outside of the languages' folders first, then in those of the
// languages that the person reads, the best first (de_AT.lproj, de.lproj, German.lproj), and at last in that
// of the development region. A name is found whatever its case when there is none in the case that is asked
// for.
//
// The person's languages are those of LANGUAGE, LC_ALL, LC_MESSAGES or LANG; English where nothing is said.
//
// Files are read when they are first asked for, and their texts kept as long as the bundle.

#include <CoreFoundation/CFArray.h>
#include <CoreFoundation/CFDictionary.h>
#include <CoreFoundation/CFURL.h>

typedef struct __CFBundle* CFBundleRef;

// Keys of Info.plist
CF_EXPORT const CFStringRef kCFBundleIdentifierKey;
CF_EXPORT const CFStringRef kCFBundleExecutableKey;
CF_EXPORT const CFStringRef kCFBundleNameKey;
CF_EXPORT const CFStringRef kCFBundleVersionKey;
CF_EXPORT const CFStringRef kCFBundleDevelopmentRegionKey;
CF_EXPORT const CFStringRef kCFBundleInfoDictionaryVersionKey;
CF_EXPORT const CFStringRef kCFBundleLocalizationsKey;

CF_EXPORT CFTypeID CFBundleGetTypeID(void);

// Finding bundles

// The bundle of the program, which nobody releases: the folder that LM_BUNDLE names; that around
// Contents/MacOS where the program lies in such; Name.app beside a program Name; else the folder of the
// program. NULL without memory.
CF_EXPORT CFBundleRef CFBundleGetMainBundle(void);

// The bundle in a folder; the caller releases it. NULL when there is no such folder. Asked for again, the
// same object.
CF_EXPORT CFBundleRef CFBundleCreate(CFAllocatorRef inAllocator, CFURLRef inURL);

// The one with that identifier among those that are in use; NULL when there is none. The caller does not own
// it.
CF_EXPORT CFBundleRef CFBundleGetBundleWithIdentifier(CFStringRef inIdentifier);

// What it says about itself. The bundle owns the results.

// An empty dictionary when there is no Info.plist that can be read.
CF_EXPORT CFDictionaryRef CFBundleGetInfoDictionary(CFBundleRef inBundle);
// What InfoPlist.strings says in the person's language; NULL when there is none.
CF_EXPORT CFDictionaryRef CFBundleGetLocalInfoDictionary(CFBundleRef inBundle);
// From the second, or else from the first; NULL when neither has it.
CF_EXPORT CFTypeRef CFBundleGetValueForInfoDictionaryKey(CFBundleRef inBundle, CFStringRef inKey);
CF_EXPORT CFStringRef CFBundleGetIdentifier(CFBundleRef inBundle); // NULL without one

// The version as decimal digits of four bits: 1.2.3 gives 0x01238000. 0 for one that is not of one to three
// numbers, the first below 100 and the others below 10.
CF_EXPORT UInt32 CFBundleGetVersionNumber(CFBundleRef inBundle);

// The type and the creator, of Info.plist or else of PkgInfo; 0 for what neither says. Either place may be
// NULL.
CF_EXPORT void CFBundleGetPackageInfo(CFBundleRef inBundle, UInt32* outType, UInt32* outCreator);

// Places; the caller releases them. They are absolute.

CF_EXPORT CFURLRef CFBundleCopyBundleURL(CFBundleRef inBundle);
CF_EXPORT CFURLRef CFBundleCopyExecutableURL(CFBundleRef inBundle); // NULL without code
CF_EXPORT CFURLRef CFBundleCopyResourcesDirectoryURL(CFBundleRef inBundle);
CF_EXPORT CFURLRef CFBundleCopySupportFilesDirectoryURL(CFBundleRef inBundle);

// Resources; the caller releases the results. The type is the extension without the dot; NULL when the name
// has it or there is none. The subfolder may be NULL.

CF_EXPORT CFURLRef CFBundleCopyResourceURL(CFBundleRef inBundle, CFStringRef inName, CFStringRef inType,
                                           CFStringRef inSubfolder);
// In one language, by the name of its folder without .lproj, or outside of all.
CF_EXPORT CFURLRef CFBundleCopyResourceURLForLocalization(CFBundleRef inBundle, CFStringRef inName,
                                                          CFStringRef inType, CFStringRef inSubfolder,
                                                          CFStringRef inLanguage);
// Each name once, in the language that it is best in; empty when there are none.
CF_EXPORT CFArrayRef CFBundleCopyResourceURLsOfType(CFBundleRef inBundle, CFStringRef inType,
                                                    CFStringRef inSubfolder);

// Words; the caller releases the results.

// The text for a key in Table.strings, in Localizable.strings when the table is NULL or empty. Where there is
// none: inDefault, or the key when that is NULL or empty. A table that cannot be read has no texts.
CF_EXPORT CFStringRef CFBundleCopyLocalizedString(CFBundleRef inBundle, CFStringRef inKey,
                                                  CFStringRef inDefault, CFStringRef inTable);
#define CFCopyLocalizedString(inKey, inComment)                                                              \
    CFBundleCopyLocalizedString(CFBundleGetMainBundle(), (inKey), (inKey), NULL)
#define CFCopyLocalizedStringFromTable(inKey, inTable, inComment)                                            \
    CFBundleCopyLocalizedString(CFBundleGetMainBundle(), (inKey), (inKey), (inTable))
#define CFCopyLocalizedStringFromTableInBundle(inKey, inTable, inBundle, inComment)                          \
    CFBundleCopyLocalizedString((inBundle), (inKey), (inKey), (inTable))
#define CFCopyLocalizedStringWithDefaultValue(inKey, inTable, inBundle, inValue, inComment)                  \
    CFBundleCopyLocalizedString((inBundle), (inKey), (inValue), (inTable))

// The languages that the bundle has folders of.
CF_EXPORT CFArrayRef CFBundleCopyBundleLocalizations(CFBundleRef inBundle);
// Those of the languages that the person reads, the best first; the first of the array when he reads none.
CF_EXPORT CFArrayRef CFBundleCopyPreferredLocalizationsFromArray(CFArrayRef inLanguages);

// Code. It stays in the program until that ends.

// Whether the code is there to be used; loads it if need be. The main bundle's is the program.
CF_EXPORT Boolean CFBundleLoadExecutable(CFBundleRef inBundle);
// A function of it; NULL when there is none. Loads the code if need be.
CF_EXPORT void* CFBundleGetFunctionPointerForName(CFBundleRef inBundle, CFStringRef inName);

#endif
