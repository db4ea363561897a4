// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef IBCarbonRuntime_h
#define IBCarbonRuntime_h

// Nibs: windows and menus that were drawn in an editor. A nib is a folder Name.nib with a file objects.xib in
// it. It is looked for like every resource of a bundle (CFBundle.h): in the folders of the languages that the
// person reads, the best first, and outside of them; of a program that lies in no bundle, in its folder and
// those of the languages in it.
//
// What the reader does not know does no harm. A view of an unknown class, or of a class of the program's own
// that is not registered, is an empty place of its size, with all that is in it; one line on the standard
// error stream names the class, once. Damaged files are read as far as it goes.
//
// A file of more than 16 MB, of more than 500,000 elements, nested in more than 200 levels, or with a
// document type is none that can be read. Windows have at most 10,000 controls and bars at most 10,000 items,
// in at most 64 levels: memFullErr beyond. So ends, too, a nib in which an object contains itself.
//
// Files are read with libxml2. In a host that was built without it nothing can be read, and what makes a
// reference answers unimpErr.

#include <Carbon/CarbonBase.h>
#include <Carbon/MacWindows.h>
#include <Carbon/Menus.h>
#include <CoreFoundation/CoreFoundation.h>
#include <CoreServices/MacErrors.h>
#include <CoreServices/MacMemory.h>

typedef struct OpaqueIBNibRef* IBNibRef;

// The nib of that name, without its extension, in the main bundle or in another one; the file is read now.
// kIBCarbonRuntimeCantFindNibFile when there is none that can be read. paramErr for NULL.
CARBON_EXPORT OSStatus CreateNibReference(CFStringRef inNibName, IBNibRef* outNibRef);
CARBON_EXPORT OSStatus CreateNibReferenceWithCFBundle(CFBundleRef inBundle, CFStringRef inNibName,
                                                      IBNibRef* outNibRef);

// What was made from the nib lives on. NULL and disposed references do nothing.
CARBON_EXPORT void DisposeNibReference(IBNibRef inNibRef);

// Each call makes new objects of what has that name in the nib, and they belong to the caller. paramErr for
// NULL and for what is no nib, kIBCarbonRuntimeCantFindObject when nothing has the name, and
// kIBCarbonRuntimeObjectNotOfRequestedType when it is something else; the result is then NULL.
//
// A window is hidden and has the standard handler. It has no attribute that its class cannot have.
CARBON_EXPORT OSStatus CreateWindowFromNib(IBNibRef inNibRef, CFStringRef inName, WindowRef* outWindow);

// With its submenus. Menus without an identifier in the nib get a free one.
CARBON_EXPORT OSStatus CreateMenuFromNib(IBNibRef inNibRef, CFStringRef inName, MenuRef* outMenuRef);

// A block that holds the MenuRef of the bar, as a root menu has it. DisposeHandle does not release the menu.
CARBON_EXPORT OSStatus CreateMenuBarFromNib(IBNibRef inNibRef, CFStringRef inName, Handle* outMenuBar);

// Makes the menu the bar of the application, and shows it.
CARBON_EXPORT OSStatus SetMenuBarFromNib(IBNibRef inNibRef, CFStringRef inName);

#endif
