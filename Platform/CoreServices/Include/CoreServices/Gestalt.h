// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Gestalt_h
#define Gestalt_h

// What the system is like.

#include <CoreFoundation/CFBase.h>
#include <CoreServices/MacErrors.h>

// Selectors
enum
{
    gestaltSystemVersion = 'sysv',       // 0x1058 is 10.5.8
    gestaltSystemVersionMajor = 'sys1',  // 10
    gestaltSystemVersionMinor = 'sys2',  // 5
    gestaltSystemVersionBugFix = 'sys3', // 8
    gestaltCarbonVersion = 'cbon',       // 0x0160
    gestaltMenuMgrAttr = 'menu',         // bits below
    gestaltAppearanceAttr = 'appr',      // bits below
    gestaltNativeCPUtype = 'cput',       // values below
    gestaltSysArchitecture = 'sysa',     // values below
    gestaltPhysicalRAMSize = 'ram ',     // bytes, 2,147,483,647 at most
    gestaltPhysicalRAMSizeInMegabytes = 'ramm'
};

// Selectors that are not known here: the answer is gestaltUndefSelectorErr.
enum
{
    gestaltQuickTime = 'qtim',
    gestaltQuickTimeVersion = 'qtim',
    gestaltWindowMgrAttr = 'wind',
    gestaltAppearanceVersion = 'apvr',
    gestaltDragMgrAttr = 'drag',
    gestaltProcClkSpeed = 'pclk',
    gestaltMachineType = 'mach',
    gestaltUserVisibleMachineName = 'mnam'
};

// Bits, by their number, and values
enum
{
    gestaltDragMgrPresent = 0,
    gestaltAppearanceExists = 0
};

enum
{
    gestaltMenuMgrPresent = 1,
    gestaltMenuMgrAquaLayoutBit = 1,
    gestaltMenuMgrAquaLayoutMask = 2
};

enum
{
    gestaltPowerPC = 2,
    gestaltIntel = 10
};

enum
{
    gestaltCPU750 = 264,
    gestaltCPU970 = 313,
    gestaltCPUPentium = 'i586'
};

// Answers one question about the system. gestaltUndefSelectorErr for a selector that it does not know,
// paramErr without a place for the answer; both leave that as it is.
CF_EXPORT OSErr Gestalt(OSType selector, SInt32* response);

#endif
