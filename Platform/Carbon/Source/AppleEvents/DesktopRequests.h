// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef AppleEvents_DesktopRequests_h
#define AppleEvents_DesktopRequests_h

#include <Carbon/Carbon.h>
#include <string>
#include <vector>

namespace Host {

// Asks the program for something with files (kAEOpenDocuments, kAEPrintDocuments): by path, or by a URL
// ("file:..."). Those that are not there are left out. False when none is there, or there is no memory.
bool AskWithFiles(AEEventID theIdentifier, const std::vector<std::string>& theFiles);

// Asks it for something without parameters.
bool AskFor(AEEventID theIdentifier);

} // namespace Host

#endif
