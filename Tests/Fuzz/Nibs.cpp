// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The objects.xib of a nib. Whatever it holds, each call makes what it says or nothing, and what was made can
// be disposed of.

#include "FuzzTarget.h"

#include <Carbon/Carbon.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace {

// A bundle with one nib, which is gone at the end of the process.
class Bundle
{
public:
    Bundle()
    {
        std::string theTemplate = (std::filesystem::temp_directory_path() / "Nibs.XXXXXX").string();
        FUZZ_EXPECT(mkdtemp(theTemplate.data()) != nullptr);
        mFolder = theTemplate;
        std::filesystem::create_directory(mFolder / "Main.nib");
    }
    ~Bundle()
    {
        std::error_code theError;
        std::filesystem::remove_all(mFolder, theError);
    }
    Bundle(const Bundle&) = delete;
    Bundle& operator=(const Bundle&) = delete;

    void Write(const std::uint8_t* theBytes, std::size_t theSize) const
    {
        std::ofstream theFile(mFolder / "Main.nib" / "objects.xib", std::ios::binary | std::ios::trunc);
        theFile.write(reinterpret_cast<const char*>(theBytes), static_cast<std::streamsize>(theSize));
    }

    Held<CFBundleRef> Open() const
    {
        const std::string thePath = mFolder.string();
        const Held<CFURLRef> theURL(
            CFURLCreateFromFileSystemRepresentation(nullptr, reinterpret_cast<const UInt8*>(thePath.data()),
                                                    static_cast<CFIndex>(thePath.size()), true));
        return Held<CFBundleRef>(CFBundleCreate(nullptr, theURL));
    }

private:
    std::filesystem::path mFolder;
};

void MakeAll(IBNibRef theNib, CFStringRef theName)
{
    WindowRef theWindow = nullptr;
    const OSStatus theStatus = CreateWindowFromNib(theNib, theName, &theWindow);
    FUZZ_EXPECT((theStatus == noErr) == static_cast<bool>(IsValidWindowPtr(theWindow)));
    if (theWindow != nullptr) {
        FUZZ_EXPECT(!IsWindowVisible(theWindow));
        ShowWindow(theWindow);
        DisposeWindow(theWindow);
    }
    MenuRef theMenu = nullptr;
    const OSStatus theMenuStatus = CreateMenuFromNib(theNib, theName, &theMenu);
    FUZZ_EXPECT((theMenuStatus == noErr) == static_cast<bool>(IsValidMenu(theMenu)));
    if (theMenu != nullptr) {
        FUZZ_EXPECT(theStatus == kIBCarbonRuntimeObjectNotOfRequestedType);
        FUZZ_EXPECT(SetMenuBarFromNib(theNib, theName) == noErr);
        ReleaseMenu(theMenu);
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* theBytes, std::size_t theSize)
{
    static const Bundle sBundle;
    sBundle.Write(theBytes, theSize);
    const Held<CFBundleRef> theBundle = sBundle.Open();
    FUZZ_EXPECT(theBundle != nullptr);
    IBNibRef theNib = nullptr;
    const OSStatus theStatus = CreateNibReferenceWithCFBundle(theBundle, CFSTR("Main"), &theNib);
    FUZZ_EXPECT((theStatus == noErr) == (theNib != nullptr));
    if (theNib != nullptr) {
        for (const CFStringRef theName : {CFSTR("MenuBar"), CFSTR("MainWindow"), CFSTR("")}) {
            MakeAll(theNib, theName);
        }
        DisposeNibReference(theNib);
    }
    return 0;
}
