// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The two interfaces below the library are C interfaces: plain C reads their headers and calls them.

#include <Carbon/Carbon.h>
#include <CoreFoundation/CoreFoundation.h>

// Compilers warn of such constants, unless they are told not to by the flags that come with the library.
static const OSType kSignature = 'lmFo';

long LengthOfGreeting(void);

long LengthOfGreeting(void)
{
    return kSignature != 0 ? (long)CFStringGetLength(CFSTR("Good morning")) : 0;
}
