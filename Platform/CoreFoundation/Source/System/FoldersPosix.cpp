// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Folders.h"

#include <algorithm>
#include <cstdlib>
#include <dirent.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace Host {

std::optional<FileState> StateOfFile(const std::string& thePath)
{
    struct stat theStatus = {};
    if (stat(thePath.c_str(), &theStatus) != 0) {
        return std::nullopt;
    }
    FileState theState;
    theState.theIsFolder = S_ISDIR(theStatus.st_mode);
    theState.theLength = theStatus.st_size;
    theState.theModificationTime =
        static_cast<double>(theStatus.st_mtim.tv_sec) + static_cast<double>(theStatus.st_mtim.tv_nsec) / 1e9;
    return theState;
}

bool IsFolder(const std::string& thePath)
{
    const std::optional<FileState> theState = StateOfFile(thePath);
    return theState && theState->theIsFolder;
}

std::vector<std::string> NamesIn(const std::string& theFolder)
{
    struct Closing
    {
        void operator()(DIR* theOpened) const { closedir(theOpened); }
    };
    std::vector<std::string> theNames;
    const std::unique_ptr<DIR, Closing> theOpened(opendir(theFolder.c_str()));
    while (const dirent* const theEntry = theOpened == nullptr ? nullptr : readdir(theOpened.get())) {
        const std::string theName = theEntry->d_name;
        if (theName != "." && theName != "..") {
            theNames.push_back(theName);
        }
    }
    std::sort(theNames.begin(), theNames.end());
    return theNames;
}

std::string CurrentFolder()
{
    char* const theFolder = getcwd(nullptr, 0);
    std::string theResult = theFolder == nullptr || theFolder[0] != '/' ? "/" : theFolder;
    std::free(theFolder);
    return theResult;
}

std::string ProgramPath()
{
    char thePath[4096];
    const ssize_t theLength = readlink("/proc/self/exe", thePath, sizeof thePath);
    return theLength > 0 ? std::string(thePath, static_cast<size_t>(theLength)) : std::string();
}

} // namespace Host
