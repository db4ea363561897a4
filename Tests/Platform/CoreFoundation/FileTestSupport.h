// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef FileTestSupport_h
#define FileTestSupport_h

#include "BundleTestSupport.h"

#include <CoreServices/CoreServices.h>
#include <string_view>

inline Units UnitsOf(std::u16string_view theText)
{
    return Units(theText.begin(), theText.end());
}

// A folder of the test's own, and references to what is in it.
class FolderWithReferences : public testing::Test
{
protected:
    FolderWithReferences() { EXPECT_EQ(Refer("", &mFolderRef), noErr); }

    OSStatus Refer(const std::string& theName, FSRef* theReference) const
    {
        const std::string thePath = mFolder.Path(theName);
        return FSPathMakeRef(reinterpret_cast<const UInt8*>(thePath.c_str()), theReference, nullptr);
    }

    // A reference to a new file with that content.
    FSRef Write(const std::string& theName, const std::string& theContent) const
    {
        FSRef theReference = {};
        mFolder.Write(theName, theContent);
        EXPECT_EQ(Refer(theName, &theReference), noErr);
        return theReference;
    }

    static std::string PathOf(const FSRef& theReference)
    {
        UInt8 thePath[1024] = "";
        const OSStatus theStatus = FSRefMakePath(&theReference, thePath, sizeof thePath);
        return theStatus == noErr ? reinterpret_cast<const char*>(thePath) : std::to_string(theStatus);
    }

    OSErr MakeFile(std::u16string_view theText, FSRef* theReference = nullptr) const
    {
        const Units theName = UnitsOf(theText);
        return FSCreateFileUnicode(&mFolderRef, theName.size(), theName.data(), kFSCatInfoNone, nullptr,
                                   theReference, nullptr);
    }

    OSErr MakeFolder(std::u16string_view theText, FSRef* theReference = nullptr) const
    {
        const Units theName = UnitsOf(theText);
        return FSCreateDirectoryUnicode(&mFolderRef, theName.size(), theName.data(), kFSCatInfoNone, nullptr,
                                        theReference, nullptr, nullptr);
    }

    TemporaryFolder mFolder;
    FSRef mFolderRef = {};
};

#endif
