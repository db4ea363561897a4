// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <Carbon/Carbon.h>
#include <cstdlib>

namespace {

bool Agree(const ProcessSerialNumber& theOne, const ProcessSerialNumber& theOther)
{
    return theOne.highLongOfPSN == theOther.highLongOfPSN && theOne.lowLongOfPSN == theOther.lowLongOfPSN;
}

constexpr ProcessSerialNumber kThisProcess = {0, kCurrentProcess};

} // namespace

void ExitToShell(void)
{
    std::exit(EXIT_SUCCESS);
}

OSErr GetCurrentProcess(ProcessSerialNumber* PSN)
{
    if (PSN == nullptr) {
        return paramErr;
    }
    *PSN = kThisProcess;
    return noErr;
}

OSErr GetFrontProcess(ProcessSerialNumber* PSN)
{
    return GetCurrentProcess(PSN);
}

OSErr SetFrontProcess(const ProcessSerialNumber* PSN)
{
    if (PSN == nullptr) {
        return paramErr;
    }
    return Agree(*PSN, kThisProcess) ? OSErr{noErr} : OSErr{procNotFound};
}

OSErr SameProcess(const ProcessSerialNumber* PSN1, const ProcessSerialNumber* PSN2, Boolean* result)
{
    if (PSN1 == nullptr || PSN2 == nullptr || result == nullptr) {
        return paramErr;
    }
    *result = Agree(*PSN1, *PSN2);
    return noErr;
}
