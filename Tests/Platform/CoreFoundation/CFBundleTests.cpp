// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "BundleTestSupport.h"

namespace {

const char kInfo[] = "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict>"
                     "<key>CFBundleIdentifier</key><string>org.example.lamp</string>"
                     "<key>CFBundleName</key><string>Lamp</string>"
                     "<key>CFBundleVersion</key><string>1.2.3</string>"
                     "<key>CFBundleExecutable</key><string>Code</string>"
                     "<key>CFBundlePackageType</key><string>APPL</string>"
                     "<key>CFBundleSignature</key><string>lamp</string>"
                     "<key>CFBundleDevelopmentRegion</key><string>French</string>"
                     "</dict></plist>";

// A bundle in a folder of the test's own. What is in it is written before it is opened.
class CFBundle : public testing::Test
{
protected:
    CFBundle() { mFolder.Write(In("Info.plist"), kInfo); }

    static std::string In(const std::string& theName) { return "Lamp.app/Contents/" + theName; }

    void WriteResource(const std::string& theName, const std::string& theContent = "") const
    {
        mFolder.Write(In("Resources/" + theName), theContent);
    }

    Owned<CFBundleRef> Open(const std::string& theName = "Lamp.app") const
    {
        return Owned(CFBundleCreate(nullptr, mFolder.URL(theName)));
    }

    // The place of a resource in the bundle's resources; "NULL" for none.
    std::string Find(CFBundleRef theBundle, CFStringRef theName, CFStringRef theType = nullptr,
                     CFStringRef theSubfolder = nullptr) const
    {
        return InResources(CFBundleCopyResourceURL(theBundle, theName, theType, theSubfolder));
    }

    std::string InResources(CFURLRef theURL) const
    {
        if (theURL == nullptr) {
            return "NULL";
        }
        const Owned theOwned(theURL);
        const std::string thePath = TakeText(CFURLCopyFileSystemPath(theURL, kCFURLPOSIXPathStyle));
        const std::string theStart = mFolder.Path(In("Resources/"));
        EXPECT_EQ(thePath.substr(0, theStart.size()), theStart);
        return thePath.substr(std::min(theStart.size(), thePath.size()));
    }

    TemporaryFolder mFolder;
    const Variable mNoList{"LANGUAGE", nullptr};
};

std::string Word(CFBundleRef theBundle, CFStringRef theKey, CFStringRef theDefault = nullptr,
                 CFStringRef theTable = nullptr)
{
    return TakeText(CFBundleCopyLocalizedString(theBundle, theKey, theDefault, theTable));
}

std::vector<std::string> Texts(CFArrayRef theArray)
{
    std::vector<std::string> theTexts;
    const Owned theOwned(theArray);
    for (CFIndex theIndex = 0; theIndex < CFArrayGetCount(theArray); ++theIndex) {
        theTexts.push_back(TakeText(CFStringCreateCopy(
            nullptr, static_cast<CFStringRef>(CFArrayGetValueAtIndex(theArray, theIndex)))));
    }
    return theTexts;
}

using Names = std::vector<std::string>;

} // namespace

TEST_F(CFBundle, ItSaysWhatItIs)
{
    const Owned theBundle = Open();
    ASSERT_NE(theBundle, nullptr);
    EXPECT_EQ(CFGetTypeID(theBundle), CFBundleGetTypeID());
    EXPECT_TRUE(CFEqual(CFBundleGetIdentifier(theBundle), CFSTR("org.example.lamp")));
    EXPECT_EQ(CFBundleGetVersionNumber(theBundle), 0x01238000u);
    UInt32 theType = 0;
    UInt32 theCreator = 0;
    CFBundleGetPackageInfo(theBundle, &theType, &theCreator);
    EXPECT_EQ(theType, UInt32{'APPL'});
    EXPECT_EQ(theCreator, UInt32{'lamp'});
    CFBundleGetPackageInfo(theBundle, nullptr, nullptr);
    EXPECT_TRUE(CFEqual(CFBundleGetValueForInfoDictionaryKey(theBundle, kCFBundleNameKey), CFSTR("Lamp")));
    EXPECT_EQ(CFBundleGetValueForInfoDictionaryKey(theBundle, CFSTR("unknown")), nullptr);
    EXPECT_EQ(CFBundleGetLocalInfoDictionary(theBundle), nullptr);
    EXPECT_NE(TakeText(CFCopyDescription(theBundle)).find("Lamp.app"), std::string::npos);
}

TEST_F(CFBundle, WhatItSaysInTheLanguageComesFirst)
{
    WriteResource("en.lproj/InfoPlist.strings", "CFBundleName = \"Light\";");
    const Owned theBundle = Open();
    EXPECT_TRUE(CFEqual(CFBundleGetValueForInfoDictionaryKey(theBundle, kCFBundleNameKey), CFSTR("Light")));
    EXPECT_TRUE(CFEqual(CFBundleGetIdentifier(theBundle), CFSTR("org.example.lamp")));
    ASSERT_NE(CFBundleGetLocalInfoDictionary(theBundle), nullptr);
    EXPECT_EQ(CFDictionaryGetCount(CFBundleGetLocalInfoDictionary(theBundle)), 1);
}

TEST_F(CFBundle, AFolderIsOneBundleAndNoFolderIsNone)
{
    const Owned theOne = Open();
    const Owned theOther = Open();
    EXPECT_EQ(static_cast<CFBundleRef>(theOne), static_cast<CFBundleRef>(theOther));
    EXPECT_EQ(CFBundleGetBundleWithIdentifier(CFSTR("org.example.lamp")), static_cast<CFBundleRef>(theOne));
    EXPECT_EQ(CFBundleGetBundleWithIdentifier(CFSTR("org.example.other")), nullptr);
    EXPECT_EQ(Open("Absent.app"), nullptr);
    EXPECT_EQ(Open(In("Info.plist")), nullptr);
    EXPECT_EQ(CFBundleCreate(nullptr, Owned(CFURLCreateWithString(nullptr, CFSTR("http://a/"), nullptr))),
              nullptr);
}

TEST_F(CFBundle, ABundleThatIsReleasedIsNotKnownAnyMore)
{
    CFRelease(CFBundleCreate(nullptr, mFolder.URL("Lamp.app")));
    EXPECT_EQ(CFBundleGetBundleWithIdentifier(CFSTR("org.example.lamp")), nullptr);
}

TEST_F(CFBundle, VersionsArePacked)
{
    const std::pair<const char*, UInt32> theRows[] = {
        {"1.2.3", 0x01238000},
        {"10.4", 0x10408000},
        {"99", 0x99008000},
        {"100", 0},
        {"1.10", 0},
        {"1.2.3.4", 0},
        {"1.", 0},
        {"1.2b3", 0},
        {"", 0},
        {"99999999999999999999", 0},
    };
    for (const auto& [theText, theVersion] : theRows) {
        mFolder.Write("V.app/Contents/Info.plist", std::string("{CFBundleVersion = \"") + theText + "\";}");
        EXPECT_EQ(CFBundleGetVersionNumber(Open("V.app")), theVersion) << theText;
    }
}

TEST_F(CFBundle, PkgInfoSaysWhatInfoPlistDoesNot)
{
    mFolder.Write("P.app/Contents/PkgInfo", "BNDLabcd");
    UInt32 theType = 0;
    UInt32 theCreator = 0;
    CFBundleGetPackageInfo(Open("P.app"), &theType, &theCreator);
    EXPECT_EQ(theType, UInt32{'BNDL'});
    EXPECT_EQ(theCreator, UInt32{'abcd'});
    mFolder.Write("Q.app/Contents/PkgInfo", "short");
    CFBundleGetPackageInfo(Open("Q.app"), &theType, &theCreator);
    EXPECT_EQ(theType, 0u);
    EXPECT_EQ(theCreator, 0u);
}

TEST_F(CFBundle, AnInfoThatCannotBeReadIsEmpty)
{
    mFolder.Write("Bad.app/Contents/Info.plist", "<?xml version=\"1.0\"?><plist><dict><key>");
    const Owned theBundle = Open("Bad.app");
    ASSERT_NE(theBundle, nullptr);
    EXPECT_EQ(CFDictionaryGetCount(CFBundleGetInfoDictionary(theBundle)), 0);
    EXPECT_EQ(CFBundleGetIdentifier(theBundle), nullptr);
    mFolder.Write("List.app/Contents/Info.plist", "(1, 2)");
    EXPECT_EQ(CFDictionaryGetCount(CFBundleGetInfoDictionary(Open("List.app"))), 0);
}

TEST_F(CFBundle, ResourcesAreFoundInTheirOrder)
{
    WriteResource("a.txt");
    WriteResource("en.lproj/a.txt");
    WriteResource("en.lproj/b.txt");
    WriteResource("English.lproj/b.txt");
    WriteResource("English.lproj/c.txt");
    WriteResource("French.lproj/d.txt");
    WriteResource("German.lproj/e.txt");
    const Owned theBundle = Open();
    EXPECT_EQ(Find(theBundle, CFSTR("a"), CFSTR("txt")), "a.txt");
    EXPECT_EQ(Find(theBundle, CFSTR("a.txt")), "a.txt");
    EXPECT_EQ(Find(theBundle, CFSTR("b"), CFSTR("txt")), "en.lproj/b.txt");
    EXPECT_EQ(Find(theBundle, CFSTR("c"), CFSTR("txt")), "English.lproj/c.txt");
    EXPECT_EQ(Find(theBundle, CFSTR("d"), CFSTR("txt")), "French.lproj/d.txt") << "the development region";
    EXPECT_EQ(Find(theBundle, CFSTR("e"), CFSTR("txt")), "NULL");
    EXPECT_EQ(Find(theBundle, CFSTR("a"), CFSTR("png")), "NULL");
    EXPECT_EQ(Find(theBundle, CFSTR("")), "NULL");
}

TEST_F(CFBundle, ThePersonsLanguagesComeInTheirOrder)
{
    WriteResource("de_AT.lproj/a");
    WriteResource("German.lproj/a");
    WriteResource("German.lproj/b");
    WriteResource("nl.lproj/b");
    WriteResource("nl.lproj/c");
    WriteResource("en.lproj/c");
    WriteResource("en.lproj/d");
    const Variable theLocale("LC_ALL", "de_AT.UTF-8");
    const Variable theList("LANGUAGE", "de_AT:nl");
    const Owned theBundle = Open();
    EXPECT_EQ(Find(theBundle, CFSTR("a")), "de_AT.lproj/a");
    EXPECT_EQ(Find(theBundle, CFSTR("b")), "German.lproj/b");
    EXPECT_EQ(Find(theBundle, CFSTR("c")), "nl.lproj/c");
    EXPECT_EQ(Find(theBundle, CFSTR("d")), "en.lproj/d");
}

TEST_F(CFBundle, ResourcesLieInSubfoldersToo)
{
    WriteResource("sub/a.txt");
    WriteResource("English.lproj/sub/b.txt");
    const Owned theBundle = Open();
    EXPECT_EQ(Find(theBundle, CFSTR("a"), CFSTR("txt"), CFSTR("sub")), "sub/a.txt");
    EXPECT_EQ(Find(theBundle, CFSTR("b"), CFSTR("txt"), CFSTR("sub")), "English.lproj/sub/b.txt");
    EXPECT_EQ(Find(theBundle, CFSTR("a"), CFSTR("txt")), "NULL");
}

TEST_F(CFBundle, TheCaseOfANameMattersOnlyWhereBothAreThere)
{
    WriteResource("Main.nib/objects.xib");
    WriteResource("two.txt");
    WriteResource("Two.txt");
    const Owned theBundle = Open();
    EXPECT_EQ(Find(theBundle, CFSTR("main"), CFSTR("NIB")), "Main.nib");
    EXPECT_EQ(Find(theBundle, CFSTR("two"), CFSTR("txt")), "two.txt");
    EXPECT_EQ(Find(theBundle, CFSTR("Two"), CFSTR("txt")), "Two.txt");
}

TEST_F(CFBundle, OneLanguageCanBeAskedFor)
{
    WriteResource("French.lproj/a");
    WriteResource("en.lproj/a");
    WriteResource("b");
    const Owned theBundle = Open();
    const auto theFinding = [&](CFStringRef theName, CFStringRef theLanguage) {
        return InResources(
            CFBundleCopyResourceURLForLocalization(theBundle, theName, nullptr, nullptr, theLanguage));
    };
    EXPECT_EQ(theFinding(CFSTR("a"), CFSTR("French")), "French.lproj/a");
    EXPECT_EQ(theFinding(CFSTR("a"), CFSTR("German")), "NULL");
    EXPECT_EQ(theFinding(CFSTR("b"), CFSTR("French")), "b");
}

TEST_F(CFBundle, ResourcesOfATypeAreListedOnce)
{
    WriteResource("b.png");
    WriteResource("a.PNG");
    WriteResource("a.txt");
    WriteResource("en.lproj/b.png");
    WriteResource("en.lproj/c.png");
    const Owned theBundle = Open();
    const Owned theURLs(CFBundleCopyResourceURLsOfType(theBundle, CFSTR("png"), nullptr));
    Names theFound;
    for (CFIndex theIndex = 0; theIndex < CFArrayGetCount(theURLs); ++theIndex) {
        theFound.push_back(
            InResources(static_cast<CFURLRef>(CFRetain(CFArrayGetValueAtIndex(theURLs, theIndex)))));
    }
    EXPECT_EQ(theFound, (Names{"a.PNG", "b.png", "en.lproj/c.png"}));
    EXPECT_EQ(CFArrayGetCount(Owned(CFBundleCopyResourceURLsOfType(theBundle, CFSTR("icns"), CFSTR("sub")))),
              0);
}

TEST_F(CFBundle, WordsComeFromTheTables)
{
    WriteResource("en.lproj/Localizable.strings", "\"lamp\" = \"Lamp\"; \"empty\" = \"\";");
    WriteResource("en.lproj/Errors.strings", "\"lamp\" = \"The lamp is broken.\";");
    const Owned theBundle = Open();
    EXPECT_EQ(Word(theBundle, CFSTR("lamp")), "Lamp");
    EXPECT_EQ(Word(theBundle, CFSTR("lamp"), nullptr, CFSTR("")), "Lamp");
    EXPECT_EQ(Word(theBundle, CFSTR("lamp"), CFSTR("default"), CFSTR("Errors")), "The lamp is broken.");
    EXPECT_EQ(Word(theBundle, CFSTR("empty"), CFSTR("default")), "");
    EXPECT_EQ(Word(theBundle, CFSTR("unknown")), "unknown");
    EXPECT_EQ(Word(theBundle, CFSTR("unknown"), CFSTR("")), "unknown");
    EXPECT_EQ(Word(theBundle, CFSTR("unknown"), CFSTR("default")), "default");
    EXPECT_EQ(Word(theBundle, CFSTR("lamp"), CFSTR("default"), CFSTR("NoTable")), "default");
    EXPECT_EQ(TakeText(CFCopyLocalizedStringFromTableInBundle(CFSTR("lamp"), CFSTR("Errors"), theBundle, "")),
              "The lamp is broken.");
    EXPECT_EQ(TakeText(CFCopyLocalizedStringWithDefaultValue(CFSTR("x"), nullptr, theBundle, CFSTR("y"), "")),
              "y");
    EXPECT_EQ(TakeText(CFCopyLocalizedString(CFSTR("of the program"), "")), "of the program");
    EXPECT_EQ(TakeText(CFCopyLocalizedStringFromTable(CFSTR("x"), CFSTR("y"), "")), "x");
}

TEST_F(CFBundle, WordsAreReadOnce)
{
    WriteResource("Localizable.strings", "a = b;");
    const Owned theBundle = Open();
    EXPECT_EQ(Word(theBundle, CFSTR("a")), "b");
    WriteResource("Localizable.strings", "a = c;");
    EXPECT_EQ(Word(theBundle, CFSTR("a")), "b");
}

TEST_F(CFBundle, ItHasLanguages)
{
    WriteResource("de.lproj/x");
    WriteResource("English.lproj/x");
    WriteResource("nothing/x");
    EXPECT_EQ(Texts(CFBundleCopyBundleLocalizations(Open())), (Names{"English", "de"}));
    EXPECT_EQ(Texts(CFBundleCopyBundleLocalizations(Open("Lamp.app/Contents/Resources/nothing"))), Names{});
}

TEST_F(CFBundle, TheBestOfManyLanguagesIsFirst)
{
    const void* theNames[] = {CFSTR("French"), CFSTR("English"), CFSTR("de"), CFSTR("en")};
    const Owned theAll(CFArrayCreate(nullptr, theNames, 4, &kCFTypeArrayCallBacks));
    EXPECT_EQ(Texts(CFBundleCopyPreferredLocalizationsFromArray(theAll)), (Names{"en", "English"}));
    const Owned theFew(CFArrayCreate(nullptr, theNames, 1, &kCFTypeArrayCallBacks));
    EXPECT_EQ(Texts(CFBundleCopyPreferredLocalizationsFromArray(theFew)), Names{"French"});
    const Owned theNone(CFArrayCreate(nullptr, nullptr, 0, &kCFTypeArrayCallBacks));
    EXPECT_EQ(Texts(CFBundleCopyPreferredLocalizationsFromArray(theNone)), Names{});
    const Variable theLocale("LC_ALL", "de_CH.UTF-8");
    EXPECT_EQ(Texts(CFBundleCopyPreferredLocalizationsFromArray(theAll)), (Names{"de", "en", "English"}));
}

TEST_F(CFBundle, ItHasPlaces)
{
    mFolder.Write(In("MacOS/Code"), "");
    WriteResource("x");
    const Owned theBundle = Open();
    const std::string theStart = "file://localhost" + mFolder.Path("Lamp.app");
    EXPECT_EQ(TakeText(CFBundleCopyBundleURL(theBundle)), theStart + "/");
    EXPECT_EQ(TakeText(CFBundleCopySupportFilesDirectoryURL(theBundle)), theStart + "/Contents/");
    EXPECT_EQ(TakeText(CFBundleCopyExecutableURL(theBundle)), theStart + "/Contents/MacOS/Code");
    EXPECT_EQ(TakeText(CFBundleCopyResourcesDirectoryURL(theBundle)), theStart + "/Contents/Resources/");
}

TEST_F(CFBundle, CodeThatIsNoneIsNotLoaded)
{
    const Owned theBare = Open();
    EXPECT_FALSE(CFBundleLoadExecutable(theBare));
    EXPECT_EQ(CFBundleGetFunctionPointerForName(theBare, CFSTR("main")), nullptr);
    mFolder.Write("Text.app/Contents/MacOS/Text", "no library");
    const Owned theText = Open("Text.app");
    EXPECT_FALSE(CFBundleLoadExecutable(theText));
    EXPECT_FALSE(CFBundleLoadExecutable(theText));
}

TEST_F(CFBundle, TheProgramHasFunctions)
{
    EXPECT_TRUE(CFBundleLoadExecutable(CFBundleGetMainBundle()));
    EXPECT_EQ(CFBundleGetFunctionPointerForName(CFBundleGetMainBundle(), CFSTR("CFBundleGetMainBundle")),
              reinterpret_cast<void*>(CFBundleGetMainBundle));
    EXPECT_EQ(CFBundleGetFunctionPointerForName(CFBundleGetMainBundle(), CFSTR("NoSuchFunction")), nullptr);
}
