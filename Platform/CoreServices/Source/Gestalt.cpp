// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "System/Machine.h"

#include <algorithm>
#include <CoreServices/Gestalt.h>
#include <cstdint>
#include <optional>

namespace {

// The release that MAC_OS_X_VERSION_MAX_ALLOWED names, with all its repairs.
constexpr SInt32 kMajor = 10;
constexpr SInt32 kMinor = 5;
constexpr SInt32 kBugFix = 8;
// The parts as decimal digits, of which the first part has two.
constexpr SInt32 kVersion = 0x1000 | kMinor << 4 | kBugFix;

constexpr SInt32 kCarbonVersion = 0x0160;
constexpr bool kIsPowerPC = TARGET_RT_BIG_ENDIAN;

SInt32 AtMostTheLargest(std::uint64_t theNumber)
{
    return static_cast<SInt32>(std::min(theNumber, std::uint64_t{INT32_MAX}));
}

std::optional<SInt32> AnswerTo(OSType theSelector)
{
    switch (theSelector) {
    case gestaltSystemVersion:
        return kVersion;
    case gestaltSystemVersionMajor:
        return kMajor;
    case gestaltSystemVersionMinor:
        return kMinor;
    case gestaltSystemVersionBugFix:
        return kBugFix;
    case gestaltCarbonVersion:
        return kCarbonVersion;
    case gestaltMenuMgrAttr:
        return gestaltMenuMgrPresent | gestaltMenuMgrAquaLayoutMask;
    case gestaltAppearanceAttr:
        return 1 << gestaltAppearanceExists;
    case gestaltNativeCPUtype:
        return kIsPowerPC ? SInt32{gestaltCPU750} : SInt32{gestaltCPUPentium};
    case gestaltSysArchitecture:
        return kIsPowerPC ? SInt32{gestaltPowerPC} : SInt32{gestaltIntel};
    case gestaltPhysicalRAMSize:
        return AtMostTheLargest(Host::PhysicalMemory());
    case gestaltPhysicalRAMSizeInMegabytes:
        return AtMostTheLargest(Host::PhysicalMemory() >> 20);
    default:
        return std::nullopt;
    }
}

} // namespace

OSErr Gestalt(OSType selector, SInt32* response)
{
    if (response == nullptr) {
        return paramErr;
    }
    const std::optional<SInt32> theAnswer = AnswerTo(selector);
    if (!theAnswer) {
        return gestaltUndefSelectorErr;
    }
    *response = *theAnswer;
    return noErr;
}
