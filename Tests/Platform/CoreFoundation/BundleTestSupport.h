// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef BundleTestSupport_h
#define BundleTestSupport_h

#include "CFTestSupport.h"

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

// The text of a string that a call has given to the test, which is released; "NULL" for none.
inline std::string TakeText(CFStringRef theString)
{
    if (theString == nullptr) {
        return "NULL";
    }
    const Owned theOwned(theString);
    const CFIndex theLength =
        CFStringGetMaximumSizeForEncoding(CFStringGetLength(theString), kCFStringEncodingUTF8);
    std::string theText(static_cast<size_t>(theLength) + 1, '\0');
    CFStringGetCString(theString, theText.data(), theLength + 1, kCFStringEncodingUTF8);
    theText.resize(std::strlen(theText.data()));
    return theText;
}

// The text of a URL, likewise.
inline std::string TakeText(CFURLRef theURL)
{
    const Owned theOwned(theURL);
    return theURL == nullptr ? "NULL" : TakeText(CFStringCreateCopy(nullptr, CFURLGetString(theURL)));
}

// A folder that is gone at the end.
class TemporaryFolder
{
public:
    TemporaryFolder()
    {
        std::string theTemplate = (std::filesystem::temp_directory_path() / "Folder.XXXXXX").string();
        mPath = mkdtemp(theTemplate.data());
    }
    ~TemporaryFolder() { std::filesystem::remove_all(mPath); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    // Makes a file, and the folders that it is in.
    void Write(const std::string& theName, const std::string& theContent) const
    {
        std::filesystem::create_directories((mPath / theName).parent_path());
        std::ofstream(mPath / theName, std::ios::binary) << theContent;
    }

    void MakeFolder(const std::string& theName) const
    {
        std::filesystem::create_directories(mPath / theName);
    }

    std::string Path(const std::string& theName = "") const
    {
        return theName.empty() ? mPath.string() : (mPath / theName).string();
    }

    Owned<CFURLRef> URL(const std::string& theName = "", bool theIsFolder = false) const
    {
        return Owned(
            CFURLCreateWithFileSystemPath(nullptr, String(Path(theName)), kCFURLPOSIXPathStyle, theIsFolder));
    }

private:
    std::filesystem::path mPath;
};

// Gives a variable of the environment another value, or none, as long as it lives.
class Variable
{
public:
    Variable(const char* theName, const char* theValue)
        : mName(theName)
    {
        if (const char* const theOld = getenv(theName); theOld != nullptr) {
            mOld = theOld;
        }
        theValue == nullptr ? unsetenv(theName) : setenv(theName, theValue, 1);
    }
    ~Variable() { mOld ? setenv(mName, mOld->c_str(), 1) : unsetenv(mName); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* mName;
    std::optional<std::string> mOld;
};

#endif
