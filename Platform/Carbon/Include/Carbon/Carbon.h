// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The one header that a Carbon application includes.

#ifndef Carbon_h
#define Carbon_h

#include <Carbon/CarbonBase.h>
#include <Carbon/CarbonEvents.h>
#include <Carbon/CarbonEventsCore.h>
#include <Carbon/Events.h>
#include <Carbon/HIGeometry.h>
#include <Carbon/MacErrors.h>
#include <CoreFoundation/CoreFoundation.h>
#if __has_include(<Carbon/ControlDefinitions.h>)
#include <Carbon/ControlDefinitions.h>
#endif
#if __has_include(<Carbon/Controls.h>)
#include <Carbon/Controls.h>
#endif
#if __has_include(<Carbon/MacWindows.h>)
#include <Carbon/MacWindows.h>
#endif
#if __has_include(<Carbon/Quickdraw.h>)
#include <Carbon/Quickdraw.h>
#endif

#endif
