// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "BundleFolders.h"

#include "System/Folders.h"

#include <algorithm>
#include <cstdlib>
#include <set>

namespace Host {

namespace {

constexpr const char* kLanguageFolder = ".lproj";

std::string FolderOf(const std::string& thePath)
{
    const size_t theSlash = thePath.rfind('/');
    return theSlash == std::string::npos || theSlash == 0 ? "/" : thePath.substr(0, theSlash);
}

std::string NameOf(const std::string& thePath)
{
    return thePath.substr(thePath.rfind('/') + 1);
}

bool EndsWith(const std::string& theText, const std::string& theEnd)
{
    return theText.size() >= theEnd.size() &&
           theText.compare(theText.size() - theEnd.size(), theEnd.size(), theEnd) == 0;
}

std::string InLowerCase(std::string theText)
{
    std::transform(theText.begin(), theText.end(), theText.begin(), [](char theCharacter) {
        return theCharacter >= 'A' && theCharacter <= 'Z' ? static_cast<char>(theCharacter | 0x20)
                                                          : theCharacter;
    });
    return theText;
}

std::string Absolute(const std::string& thePath)
{
    return !thePath.empty() && thePath[0] == '/' ? thePath : CurrentFolder() + "/" + thePath;
}

// The first of these folders that is there, or the last.
std::string FirstFolder(const std::vector<std::string>& theFolders)
{
    const auto theFound = std::find_if(theFolders.begin(), theFolders.end(), IsFolder);
    return theFound == theFolders.end() ? theFolders.back() : *theFound;
}

std::string PathOf(const std::string& theFolder, const std::string& theName)
{
    std::string thePath = theFolder;
    thePath += '/';
    thePath += theName;
    return thePath;
}

// The path of a name in a folder, in the case that it has there; empty when there is none. The name may lead
// through folders.
std::string FindIn(const std::string& theFolder, const std::string& theName)
{
    std::string thePath = PathOf(theFolder, theName);
    if (StateOfFile(thePath)) {
        return thePath;
    }
    const std::string theParent = FolderOf(thePath);
    for (const std::string& theOther : NamesIn(theParent)) {
        if (InLowerCase(theOther) == InLowerCase(NameOf(thePath))) {
            return PathOf(theParent, theOther);
        }
    }
    return "";
}

std::string WithSubfolder(const std::string& theFolder, const std::string& theSubfolder)
{
    return theSubfolder.empty() ? theFolder : theFolder + "/" + theSubfolder;
}

// The folders that a query leads to, the best first.
std::vector<std::string> FoldersFor(const BundleFolders& theFolders, const ResourceQuery& theQuery)
{
    std::vector<std::string> theResult = {WithSubfolder(theFolders.theResources, theQuery.theSubfolder)};
    for (const std::string& theLanguage : theQuery.theLanguages) {
        const std::string theFolder = FindIn(theFolders.theResources, theLanguage + kLanguageFolder);
        if (!theFolder.empty()) {
            theResult.push_back(WithSubfolder(theFolder, theQuery.theSubfolder));
        }
    }
    return theResult;
}

} // namespace

std::string MainBundleFolder()
{
    const char* const theWish = std::getenv("LM_BUNDLE");
    if (theWish != nullptr && *theWish != 0) {
        return Absolute(theWish);
    }
    const std::string theProgram = ProgramPath();
    const std::string theFolder = FolderOf(theProgram);
    if (EndsWith(theFolder, "/Contents/MacOS")) {
        return FolderOf(FolderOf(theFolder));
    }
    const std::string theNeighbour = theProgram + ".app";
    return IsFolder(theNeighbour) ? theNeighbour : theFolder;
}

BundleFolders::BundleFolders(const std::string& theFolder)
    : theRoot(theFolder),
      theSupport(FirstFolder({theFolder + "/Contents", theFolder + "/Versions/Current",
                              theFolder + "/Versions/A", theFolder + "/Support Files", theFolder})),
      theResources(FirstFolder({theSupport + "/Resources", theFolder + "/Resources", theSupport}))
{
}

std::string ExecutableIn(const BundleFolders& theFolders, const std::string& theName)
{
    const std::string theCandidates[] = {theFolders.theSupport + "/MacOS/" + theName,
                                         theFolders.theSupport + "/" + theName,
                                         theFolders.theRoot + "/" + theName};
    for (const std::string& theCandidate : theCandidates) {
        const std::optional<FileState> theState = StateOfFile(theCandidate);
        if (!theName.empty() && theState && !theState->theIsFolder) {
            return theCandidate;
        }
    }
    return "";
}

std::string FindResource(const BundleFolders& theFolders, const ResourceQuery& theQuery)
{
    for (const std::string& theFolder : FoldersFor(theFolders, theQuery)) {
        std::string thePath = FindIn(theFolder, theQuery.theName);
        if (!thePath.empty()) {
            return thePath;
        }
    }
    return "";
}

std::vector<std::string> FindResources(const BundleFolders& theFolders, const std::string& theExtension,
                                       const ResourceQuery& theQuery)
{
    std::vector<std::string> theResult;
    std::set<std::string> theNames;
    const std::string theEnd = "." + InLowerCase(theExtension);
    for (const std::string& theFolder : FoldersFor(theFolders, theQuery)) {
        for (const std::string& theName : NamesIn(theFolder)) {
            if (EndsWith(InLowerCase(theName), theEnd) && theNames.insert(theName).second) {
                theResult.push_back(PathOf(theFolder, theName));
            }
        }
    }
    return theResult;
}

std::vector<std::string> LanguagesIn(const BundleFolders& theFolders)
{
    std::vector<std::string> theResult;
    for (const std::string& theName : NamesIn(theFolders.theResources)) {
        if (EndsWith(theName, kLanguageFolder)) {
            theResult.push_back(theName.substr(0, theName.size() - std::string(kLanguageFolder).size()));
        }
    }
    return theResult;
}

} // namespace Host
