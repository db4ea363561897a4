// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CoreServices_h
#define CoreServices_h

// All of CoreServices, and CoreFoundation with it: memory, texts, arithmetic and what the machine is like,
// for programs without windows.

#include <AssertMacros.h>
#include <AvailabilityMacros.h>
#include <ConditionalMacros.h>
#include <CoreFoundation/CoreFoundation.h>
#include <CoreServices/DateTimeUtils.h>
#include <CoreServices/Endian.h>
#include <CoreServices/Files.h>
#include <CoreServices/FixMath.h>
#include <CoreServices/Folders.h>
#include <CoreServices/Gestalt.h>
#include <CoreServices/MacErrors.h>
#include <CoreServices/MacMemory.h>
#include <CoreServices/OSUtils.h>
#include <CoreServices/TextCommon.h>
#include <CoreServices/TextUtils.h>
#include <CoreServices/ToolUtils.h>
#include <CoreServices/UTType.h>
#include <Debugging.h>
#include <MacTypes.h>

#endif
