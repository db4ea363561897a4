// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// A .strings file of a bundle. Whatever it holds, a key has a text: that of the table, or the one for keys
// without.

#include "FuzzTarget.h"

#include <filesystem>
#include <fstream>
#include <string>

namespace {

// A bundle with one table, which is gone at the end of the process.
class Bundle
{
public:
    Bundle()
    {
        std::string theTemplate = (std::filesystem::temp_directory_path() / "StringsTable.XXXXXX").string();
        FUZZ_EXPECT(mkdtemp(theTemplate.data()) != nullptr);
        mFolder = theTemplate;
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
        std::ofstream theFile(mFolder / "Localizable.strings", std::ios::binary | std::ios::trunc);
        theFile.write(reinterpret_cast<const char*>(theBytes), static_cast<std::streamsize>(theSize));
    }

    // A new one each time, since a bundle keeps what it has read.
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

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* theBytes, std::size_t theSize)
{
    static const Bundle sBundle;
    sBundle.Write(theBytes, theSize);
    const Held<CFBundleRef> theBundle = sBundle.Open();
    FUZZ_EXPECT(theBundle != nullptr);
    const CFStringRef theKeys[] = {CFSTR("key"), CFSTR("a"), CFSTR("")};
    for (const CFStringRef theKey : theKeys) {
        const Held<CFStringRef> theText(
            CFBundleCopyLocalizedString(theBundle, theKey, CFSTR("none"), nullptr));
        const Held<CFStringRef> theAgain(
            CFBundleCopyLocalizedString(theBundle, theKey, CFSTR("none"), nullptr));
        FUZZ_EXPECT(theText != nullptr && CFEqual(theText, theAgain));
    }
    return 0;
}
