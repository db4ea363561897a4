// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The two interfaces below the library are C interfaces: plain C reads their headers and calls them.

#include <Carbon/Carbon.h>
#include <CoreFoundation/CoreFoundation.h>

long LengthOfGreeting(void);

long LengthOfGreeting(void)
{
    return (long)CFStringGetLength(CFSTR("Good morning"));
}
