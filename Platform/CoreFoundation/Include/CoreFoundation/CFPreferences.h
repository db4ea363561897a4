// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFPreferences_h
#define CFPreferences_h

// Preferences: values that an application finds again when it is run the next time.
//
// A domain holds the values of one application, one user and one host. Values are property lists. What is set
// is seen by this process at once, and by others when it has been synchronised; what others have written is
// seen after the next synchronisation.
//
// Each domain is one XML property list: <application>.plist in the folder that XDG_CONFIG_HOME names, or else
// in ~/.config. A file in the binary form is read too, and becomes XML when it is written. Domains of the
// current host are in the folder ByHost there. What is set for any user is kept in no file: it
// lasts as long as the process.
//
// Synchronising reads the file again, applies only what this process has changed, and puts a complete new
// file in the place of the old one: other keys that another process has written stay, and whatever happens,
// the file holds either the old or the new values. A file that is no property list is kept under another
// name, which a line on the standard error stream tells, and the domain is empty then. While a file cannot be
// read, the domain has the values that were read last. The user's home is never made: as long as it is
// missing, nothing can be read or written there.
//
// With LM_PREFERENCES=memory in the environment no file is touched: values last as long as the process.
//
// These functions may be called from any thread. Values are copied when they are set. The caller releases
// what the Copy functions return, and does not change it.

#include <CoreFoundation/CFArray.h>
#include <CoreFoundation/CFBase.h>
#include <CoreFoundation/CFDictionary.h>
#include <CoreFoundation/CFPropertyList.h>
#include <CoreFoundation/CFString.h>

// The parts of a domain. The current application is the one that is running, by the name of its program.
CF_EXPORT const CFStringRef kCFPreferencesAnyApplication;
CF_EXPORT const CFStringRef kCFPreferencesCurrentApplication;
CF_EXPORT const CFStringRef kCFPreferencesAnyHost;
CF_EXPORT const CFStringRef kCFPreferencesCurrentHost;
CF_EXPORT const CFStringRef kCFPreferencesAnyUser;
CF_EXPORT const CFStringRef kCFPreferencesCurrentUser;

// An application's values. Reading asks these domains in turn: the application on the current host, the
// application on any host, any application on the current host, any application on any host; then the same
// for any user. Writing goes to the application on any host.

// NULL when the key is in no domain.
CF_EXPORT CFPropertyListRef CFPreferencesCopyAppValue(CFStringRef inKey, CFStringRef inApplication);

// NULL removes the key, after which a value of another domain may show. A value that equals the present one
// changes nothing. A value that is no property list is not set, which a line on the standard error stream
// tells.
CF_EXPORT void CFPreferencesSetAppValue(CFStringRef inKey, CFPropertyListRef inValue,
                                        CFStringRef inApplication);

// Writes every domain of this process that was changed, whatever its application, and lets the others be read
// again. False when a domain could not be written: its changes stay in memory, and the next call tries again.
// What is set for any user does not count.
CF_EXPORT Boolean CFPreferencesAppSynchronize(CFStringRef inApplication);

// A boolean, an integer (which is true unless it is 0) or one of the words true, yes, false, no. Otherwise
// false, and *outIsValid is false. outIsValid may be NULL.
CF_EXPORT Boolean CFPreferencesGetAppBooleanValue(CFStringRef inKey, CFStringRef inApplication,
                                                  Boolean* outIsValid);
// An integer, or a string that is one as a whole; white space may stand before it and behind its sign, and
// what is too large is the nearest SInt32. Otherwise 0, and *outIsValid is false.
CF_EXPORT CFIndex CFPreferencesGetAppIntegerValue(CFStringRef inKey, CFStringRef inApplication,
                                                  Boolean* outIsValid);

// One domain's values

CF_EXPORT CFPropertyListRef CFPreferencesCopyValue(CFStringRef inKey, CFStringRef inApplication,
                                                   CFStringRef inUser, CFStringRef inHost);
CF_EXPORT void CFPreferencesSetValue(CFStringRef inKey, CFPropertyListRef inValue, CFStringRef inApplication,
                                     CFStringRef inUser, CFStringRef inHost);
// The keys of the array that are there, with their values; all of them when inKeys is NULL.
CF_EXPORT CFDictionaryRef CFPreferencesCopyMultiple(CFArrayRef inKeys, CFStringRef inApplication,
                                                    CFStringRef inUser, CFStringRef inHost);
// Sets the values of inSet, then removes the keys of inRemoved; either may be NULL.
CF_EXPORT void CFPreferencesSetMultiple(CFDictionaryRef inSet, CFArrayRef inRemoved,
                                        CFStringRef inApplication, CFStringRef inUser, CFStringRef inHost);
CF_EXPORT Boolean CFPreferencesSynchronize(CFStringRef inApplication, CFStringRef inUser, CFStringRef inHost);
// In no order; NULL when the domain is empty.
CF_EXPORT CFArrayRef CFPreferencesCopyKeyList(CFStringRef inApplication, CFStringRef inUser,
                                              CFStringRef inHost);

#endif
