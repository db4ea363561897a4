// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "UserFolders.h"

#include "System/Files.h"

#include <cstdlib>
#include <fstream>

namespace Host {

namespace {

// A folder that a variable names; relative ones do not count.
std::string FromEnvironment(const char* theVariable)
{
    const char* const theValue = std::getenv(theVariable);
    return theValue != nullptr && theValue[0] == '/' ? theValue : "";
}

std::string InHome(const char* theName)
{
    const std::string theHome = HomeFolder();
    return theHome.empty() ? "" : theHome + "/" + theName;
}

std::string FromEnvironmentOr(const char* theVariable, const char* theNameInHome)
{
    const std::string theFolder = FromEnvironment(theVariable);
    return theFolder.empty() ? InHome(theNameInHome) : theFolder;
}

// The folder in a line such as XDG_DESKTOP_DIR="$HOME/Desktop"; empty for a line that begins otherwise.
std::string ValueIn(const std::string& theLine, const std::string& theStart)
{
    const std::size_t theEnd = theLine.rfind('"');
    if (theLine.compare(0, theStart.size(), theStart) != 0 || theEnd < theStart.size()) {
        return "";
    }
    const std::string theValue = theLine.substr(theStart.size(), theEnd - theStart.size());
    const std::string theHome = "$HOME/";
    if (theValue.compare(0, theHome.size(), theHome) == 0) {
        return InHome(theValue.c_str() + theHome.size());
    }
    return theValue.compare(0, 1, "/") == 0 ? theValue : "";
}

// What the desktop calls the folder in the user's language.
std::string OfDesktop(const char* theStart, const char* theUsualName)
{
    std::ifstream theList(SettingsFolder() + "/user-dirs.dirs");
    std::string theLine;
    while (std::getline(theList, theLine)) {
        std::string theFolder = ValueIn(theLine, theStart);
        if (!theFolder.empty()) {
            return theFolder;
        }
    }
    return InHome(theUsualName);
}

std::string Temporary()
{
    const std::string theFolder = FromEnvironment("TMPDIR");
    return theFolder.empty() ? "/tmp" : theFolder;
}

std::string InData(const char* theName)
{
    const std::string theFolder = FromEnvironmentOr("XDG_DATA_HOME", ".local/share");
    return theFolder.empty() ? "" : theFolder + "/" + theName;
}

} // namespace

std::string UserFolder(FolderKind theKind)
{
    switch (theKind) {
    case FolderKind::kPreferences:
        return SettingsFolder();
    case FolderKind::kSupport:
        return FromEnvironmentOr("XDG_DATA_HOME", ".local/share");
    case FolderKind::kDesktop:
        return OfDesktop("XDG_DESKTOP_DIR=\"", "Desktop");
    case FolderKind::kDocuments:
        return OfDesktop("XDG_DOCUMENTS_DIR=\"", "Documents");
    case FolderKind::kTemporary:
        return Temporary();
    case FolderKind::kHome:
        return HomeFolder();
    case FolderKind::kApplications:
        return InData("applications");
    case FolderKind::kFonts:
        return InData("fonts");
    case FolderKind::kTrash:
        return InData("Trash/files");
    case FolderKind::kCaches:
        break;
    }
    return FromEnvironmentOr("XDG_CACHE_HOME", ".cache");
}

std::string SharedFolder(FolderKind theKind, bool theIsLocal)
{
    std::string theShare = theIsLocal ? "/usr/local/share" : "/usr/share";
    switch (theKind) {
    case FolderKind::kPreferences:
        return theIsLocal ? "/etc/xdg" : "";
    case FolderKind::kSupport:
        return theShare;
    case FolderKind::kTemporary:
        return "/tmp";
    case FolderKind::kApplications:
        return theShare + "/applications";
    case FolderKind::kFonts:
        return theShare + "/fonts";
    case FolderKind::kCaches:
        return theIsLocal ? "/var/cache" : "";
    default:
        return "";
    }
}

} // namespace Host
