// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ApplicationServices_h
#define ApplicationServices_h

// What programs know of the screen and of one another, with drawing, CoreServices and CoreGraphics.

#include <Carbon/AEDataModel.h>
#include <Carbon/Appearance.h>
#include <Carbon/AppleEvents.h>
#include <Carbon/Processes.h>
#include <Carbon/Quickdraw.h>
#include <CoreGraphics/CGBitmapContext.h>
#include <CoreGraphics/CoreGraphics.h>
#include <CoreServices/CoreServices.h>

#endif
