// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// A preference file. Whatever it holds, it is read or kept aside, a value can be set after that, and the file
// that is then written holds it.

#include "FuzzTarget.h"

#include <filesystem>
#include <fstream>
#include <string>

namespace {

const CFStringRef kDomain = CFSTR("fuzz");

// A folder for settings that is the process's own, and is gone at its end.
class Settings
{
public:
    Settings()
    {
        std::string theTemplate = (std::filesystem::temp_directory_path() / "PreferenceFile.XXXXXX").string();
        FUZZ_EXPECT(mkdtemp(theTemplate.data()) != nullptr);
        mFolder = theTemplate;
        setenv("XDG_CONFIG_HOME", mFolder.c_str(), 1);
        unsetenv("LM_PREFERENCES");
    }
    ~Settings()
    {
        std::error_code theError;
        std::filesystem::remove_all(mFolder, theError);
    }
    Settings(const Settings&) = delete;
    Settings& operator=(const Settings&) = delete;

    void Write(const std::uint8_t* theBytes, std::size_t theSize)
    {
        for (const auto& theEntry : std::filesystem::directory_iterator(mFolder)) {
            std::filesystem::remove_all(theEntry);
        }
        std::ofstream theFile(mFolder / "fuzz.plist", std::ios::binary);
        theFile.write(reinterpret_cast<const char*>(theBytes), static_cast<std::streamsize>(theSize));
    }

private:
    std::filesystem::path mFolder;
};

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* theBytes, std::size_t theSize)
{
    static Settings sSettings;
    sSettings.Write(theBytes, theSize);
    CFPreferencesAppSynchronize(kDomain);
    const Held<CFArrayRef> theKeys(
        CFPreferencesCopyKeyList(kDomain, kCFPreferencesCurrentUser, kCFPreferencesAnyHost));
    CFPreferencesSetAppValue(CFSTR("set"), kCFBooleanTrue, kDomain);
    FUZZ_EXPECT(CFPreferencesAppSynchronize(kDomain));
    FUZZ_EXPECT(CFPreferencesGetAppBooleanValue(CFSTR("set"), kDomain, nullptr));
    return 0;
}
