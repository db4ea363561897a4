// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef PreferenceFileSupport_h
#define PreferenceFileSupport_h

// For tests of preference files: a folder for settings of each test's own, and processes of their own.

#include "CFPropertyListTestSupport.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <functional>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

inline std::string FileText(const std::string& thePath)
{
    std::string theText;
    if (FILE* const theFile = std::fopen(thePath.c_str(), "rb")) {
        char theBuffer[4096];
        size_t theCount = 0;
        while ((theCount = std::fread(theBuffer, 1, sizeof theBuffer, theFile)) > 0) {
            theText.append(theBuffer, theCount);
        }
        std::fclose(theFile);
    }
    return theText;
}

inline void WriteFile(const std::string& thePath, const std::string& theText)
{
    FILE* const theFile = std::fopen(thePath.c_str(), "wb");
    ASSERT_NE(theFile, nullptr) << thePath;
    std::fwrite(theText.data(), 1, theText.size(), theFile);
    std::fclose(theFile);
}

inline bool Exists(const std::string& thePath)
{
    struct stat theStatus = {};
    return lstat(thePath.c_str(), &theStatus) == 0;
}

inline mode_t ModeOf(const std::string& thePath)
{
    struct stat theStatus = {};
    return stat(thePath.c_str(), &theStatus) == 0 ? theStatus.st_mode & 07777 : 0;
}

// The names in a folder, in ascending order. Read with 64-bit places in the folder: some file systems have
// no shorter ones, and then a 32-bit program sees no names.
inline std::vector<std::string> NamesIn(const std::string& theFolder)
{
    std::vector<std::string> theNames;
    if (DIR* const theDirectory = opendir(theFolder.c_str())) {
        while (const dirent64* const theEntry = readdir64(theDirectory)) {
            const std::string theName(theEntry->d_name);
            if (theName != "." && theName != "..") {
                theNames.push_back(theName);
            }
        }
        closedir(theDirectory);
    }
    std::sort(theNames.begin(), theNames.end());
    return theNames;
}

inline void RemoveTree(const std::string& thePath)
{
    struct stat theStatus = {};
    if (lstat(thePath.c_str(), &theStatus) == 0 && S_ISDIR(theStatus.st_mode)) {
        chmod(thePath.c_str(), 0700);
        for (const std::string& theName : NamesIn(thePath)) {
            RemoveTree(std::string(thePath).append("/").append(theName));
        }
        rmdir(thePath.c_str());
    } else {
        unlink(thePath.c_str());
    }
}

// A property list in a file.
inline std::string FileWith(const std::string& theContent)
{
    return kHeader + theContent + "</plist>\n";
}

// Starts theWork in a process of its own; it ends with the number that theWork returns.
inline pid_t StartProcess(const std::function<int()>& theWork)
{
    const pid_t theProcess = fork();
    if (theProcess == 0) {
        _exit(theWork());
    }
    return theProcess;
}

// The number that a process has ended with; negative when a signal has ended it.
inline int ResultOf(pid_t theProcess)
{
    int theStatus = 0;
    waitpid(theProcess, &theStatus, 0);
    return WIFEXITED(theStatus) ? WEXITSTATUS(theStatus) : -1;
}

inline int RunInProcess(const std::function<int()>& theWork)
{
    return ResultOf(StartProcess(theWork));
}

// The ends of a pipe, closed at the end of the scope.
class Pipe
{
public:
    Pipe()
    {
        if (pipe(mEnds) != 0) {
            std::abort();
        }
    }
    ~Pipe()
    {
        close(mEnds[0]);
        CloseWriting();
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    void Write(int theNumber) const
    {
        if (write(mEnds[1], &theNumber, sizeof theNumber) != sizeof theNumber) {
            _exit(1);
        }
    }

    // False at the end, which comes when no process writes any more.
    bool Read(int& theNumber) const
    {
        return read(mEnds[0], &theNumber, sizeof theNumber) == sizeof theNumber;
    }

    void CloseWriting()
    {
        if (mEnds[1] >= 0) {
            close(std::exchange(mEnds[1], -1));
        }
    }

private:
    int mEnds[2];
};

// Numbers without a pattern, the same ones in every run.
class Numbers
{
public:
    unsigned Next(unsigned theLimit)
    {
        mState = mState * 1103515245 + 12345;
        return mState / 65536 % theLimit;
    }

private:
    unsigned mState = 2026;
};

// Passes some time without asking the clock.
inline void Spin(unsigned theTurns)
{
    for (volatile unsigned theTurn = 0; theTurn < theTurns; theTurn = theTurn + 1) {
    }
}

inline SInt64 IntegerIn(CFDictionaryRef theValues, CFStringRef theKey)
{
    const CFNumberRef theNumber = static_cast<CFNumberRef>(CFDictionaryGetValue(theValues, theKey));
    SInt64 theValue = -1;
    if (theNumber != nullptr) {
        CFNumberGetValue(theNumber, kCFNumberSInt64Type, &theValue);
    }
    return theValue;
}

// The test's application, with its file in a folder that goes away with the test.
class PreferenceFiles : public testing::Test
{
protected:
    void SetUp() override
    {
        // In memory where that is possible: what is tested is what a killed process leaves, not what a dead
        // disk does.
        std::string theTemplate = access("/dev/shm", W_OK) == 0 ? "/dev/shm" : "/tmp";
        theTemplate += "/LmPreferencesXXXXXX";
        ASSERT_NE(mkdtemp(theTemplate.data()), nullptr);
        mFolder = theTemplate;
        setenv("LM_PREFERENCES", "files", 1);
        setenv("XDG_CONFIG_HOME", mFolder.c_str(), 1);
    }

    void TearDown() override
    {
        if (!mFolder.empty()) {
            RemoveTree(mFolder);
        }
    }

    std::string PathInFolder(const std::string& theName) const { return mFolder + "/" + theName; }
    std::string Path() const { return PathInFolder(TextOf(mApplication) + ".plist"); }

    void Set(CFStringRef theKey, CFPropertyListRef theValue) const
    {
        CFPreferencesSetAppValue(theKey, theValue, mApplication);
    }

    Owned<CFPropertyListRef> Get(CFStringRef theKey) const
    {
        return Owned(CFPreferencesCopyAppValue(theKey, mApplication));
    }

    // Whether the value is equal to theExpected, or absent when that is NULL.
    bool Has(CFStringRef theKey, CFPropertyListRef theExpected) const
    {
        const Owned<CFPropertyListRef> theValue = Get(theKey);
        return theExpected == nullptr ? theValue == nullptr
                                      : theValue != nullptr && CFEqual(theValue, theExpected);
    }

    bool Synchronize() const { return CFPreferencesAppSynchronize(mApplication); }

    // The dictionary in a file, as it is now; NULL when there is no complete one.
    static Owned<CFDictionaryRef> ValuesIn(const std::string& thePath)
    {
        const std::string theText = FileText(thePath);
        return Owned(static_cast<CFDictionaryRef>(
            CFPropertyListCreateFromXMLData(nullptr, Data(std::vector<UInt8>(theText.begin(), theText.end())),
                                            kCFPropertyListImmutable, nullptr)));
    }

    Owned<CFDictionaryRef> FileValues() const { return ValuesIn(Path()); }

    // Each test has one of its own.
    static Owned<CFStringRef> ApplicationName()
    {
        std::string theName =
            std::string("com.example.") + testing::UnitTest::GetInstance()->current_test_info()->name();
        std::replace(theName.begin(), theName.end(), '/', '-');
        return String(theName);
    }

    std::string mFolder;
    const Owned<CFStringRef> mApplication = ApplicationName();
};

// The test's application, with its values in memory.
class PreferencesInMemory : public testing::Test
{
protected:
    PreferencesInMemory()
        : mApplication(String(std::string("com.example.") +
                              testing::UnitTest::GetInstance()->current_test_info()->name()))
    {
        setenv("LM_PREFERENCES", "memory", 1);
    }

    void Set(CFStringRef theKey, CFPropertyListRef theValue)
    {
        CFPreferencesSetAppValue(theKey, theValue, mApplication);
    }

    Owned<CFPropertyListRef> Get(CFStringRef theKey) const
    {
        return Owned(CFPreferencesCopyAppValue(theKey, mApplication));
    }

    // Whether the value is equal to theExpected, or absent when that is NULL.
    testing::AssertionResult Has(CFStringRef theKey, CFPropertyListRef theExpected) const
    {
        const Owned<CFPropertyListRef> theValue = Get(theKey);
        const bool theIsRight = theExpected == nullptr
                                    ? theValue == nullptr
                                    : theValue != nullptr && CFEqual(theValue, theExpected);
        return (theIsRight ? testing::AssertionSuccess() : testing::AssertionFailure())
               << TextOf(Owned(CFCopyDescription(theValue)));
    }

    CFNumberType TypeOf(CFStringRef theKey) const
    {
        return CFNumberGetType(static_cast<CFNumberRef>(static_cast<CFPropertyListRef>(Get(theKey))));
    }

    bool Synchronize() const { return CFPreferencesAppSynchronize(mApplication); }

    const Owned<CFStringRef> mApplication;
};

#endif
