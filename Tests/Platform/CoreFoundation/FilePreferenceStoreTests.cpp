// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Where preferences are kept, and what becomes of damaged files.

#include "CFPropertyListTestSupport.h"
#include "PreferenceFileSupport.h"
#include "StandardErrorCapture.h"

namespace {

using FilePreferenceStore = PreferenceFiles;

// Bytes without a pattern, the same ones every time.
std::string NoiseOf(size_t theLength)
{
    std::string theNoise;
    unsigned theState = 12345;
    while (theNoise.size() < theLength) {
        theState = theState * 1103515245 + 12345;
        theNoise += static_cast<char>(theState >> 16);
    }
    return theNoise;
}

// What a command prints.
std::string OutputOf(const std::string& theCommand)
{
    std::string theOutput;
    if (FILE* const thePipe = popen(theCommand.c_str(), "r")) {
        char theBuffer[4096];
        size_t theCount = 0;
        while ((theCount = fread(theBuffer, 1, sizeof theBuffer, thePipe)) > 0) {
            theOutput.append(theBuffer, theCount);
        }
        pclose(thePipe);
    }
    return theOutput;
}

// A file in another form, made by an independent program.
void ConvertFile(const std::string& theOldPath, const char* theForm, const std::string& theNewPath)
{
    OutputOf("plistutil -i '" + theOldPath + "' -f " + theForm + " -o '" + theNewPath + "'");
}

// Tests that ask the program plistutil, which comes with the package libplist-utils.
class PreferenceFilesOfOthers : public PreferenceFiles
{
protected:
    void SetUp() override
    {
        PreferenceFiles::SetUp();
        if (OutputOf("command -v plistutil").empty()) {
            GTEST_SKIP() << "plistutil is not installed";
        }
    }
};

} // namespace

TEST_F(FilePreferenceStore, ADomainIsOneSortedPropertyListForItsUserAlone)
{
    Set(CFSTR("b"), Integer(5));
    Set(CFSTR("a"), CFSTR("x<y"));
    EXPECT_FALSE(Exists(Path()));
    EXPECT_TRUE(Synchronize());
    EXPECT_EQ(FileText(Path()), FileWith("<dict>\n\t<key>a</key>\n\t<string>x&lt;y</string>\n\t<key>b</"
                                         "key>\n\t<integer>5</integer>\n</dict>\n"));
    EXPECT_EQ(ModeOf(Path()), 0600U);
    EXPECT_EQ(NamesIn(mFolder).size(), 1U);
}

TEST_F(FilePreferenceStore, TheHomeFolderIsUsedWhenTheVariableSaysNothing)
{
    setenv("HOME", mFolder.c_str(), 1);
    for (const char* theValue : {"", "relative/path"}) {
        setenv("XDG_CONFIG_HOME", theValue, 1);
        Set(CFSTR("a"), CFSTR("value"));
        Set(CFSTR("b"), String(std::string("x") + theValue));
        EXPECT_TRUE(Synchronize());
        EXPECT_NE(FileText(PathInFolder(".config/") + TextOf(mApplication) + ".plist")
                      .find(std::string("<string>x") + theValue),
                  std::string::npos);
    }
}

TEST_F(FilePreferenceStore, OtherDomainsHaveOtherFiles)
{
    const CFStringRef kUser = kCFPreferencesCurrentUser;
    CFPreferencesSetValue(CFSTR("k"), kCFBooleanTrue, mApplication, kUser, kCFPreferencesCurrentHost);
    CFPreferencesSetValue(CFSTR("k"), kCFBooleanTrue, kCFPreferencesAnyApplication, kUser,
                          kCFPreferencesAnyHost);
    CFPreferencesSetValue(CFSTR("k"), kCFBooleanTrue, kCFPreferencesCurrentApplication, kUser,
                          kCFPreferencesAnyHost);
    EXPECT_TRUE(Synchronize());
    EXPECT_EQ(NamesIn(mFolder), (std::vector<std::string>{".GlobalPreferences.plist", "ByHost",
                                                          "platform.corefoundationTests.plist"}));
    const std::vector<std::string> theNames = NamesIn(PathInFolder("ByHost"));
    ASSERT_EQ(theNames.size(), 1U);
    EXPECT_EQ(theNames[0].find(TextOf(mApplication) + "."), 0U);
    CFPreferencesSetValue(CFSTR("k"), nullptr, kCFPreferencesAnyApplication, kUser, kCFPreferencesAnyHost);
    EXPECT_TRUE(Synchronize());
}

TEST_F(FilePreferenceStore, NoIdentifierLeadsOutOfTheFolder)
{
    CFPreferencesSetAppValue(CFSTR("k"), kCFBooleanTrue, CFSTR("../../up%"));
    EXPECT_TRUE(Synchronize());
    EXPECT_EQ(NamesIn(mFolder), (std::vector<std::string>{"..%2F..%2Fup%25.plist"}));
}

TEST_F(FilePreferenceStore, AnEmptyDomainHasNoFile)
{
    Set(CFSTR("a"), kCFBooleanTrue);
    EXPECT_TRUE(Synchronize());
    Set(CFSTR("a"), nullptr);
    EXPECT_TRUE(Exists(Path()));
    EXPECT_TRUE(Synchronize());
    EXPECT_FALSE(Exists(Path()));
}

TEST_F(FilePreferenceStore, WhatOthersWriteIsSeenAfterSynchronizing)
{
    Set(CFSTR("a"), CFSTR("mine"));
    EXPECT_TRUE(Synchronize());
    WriteFile(Path(), FileWith("<dict><key>a</key><string>theirs</string></dict>"));
    EXPECT_TRUE(Has(CFSTR("a"), CFSTR("mine")));
    EXPECT_TRUE(Synchronize());
    EXPECT_TRUE(Has(CFSTR("a"), CFSTR("theirs")));
    unlink(Path().c_str());
    EXPECT_TRUE(Synchronize());
    EXPECT_TRUE(Has(CFSTR("a"), nullptr));
}

TEST_F(FilePreferenceStore, AnEqualValueIsNotWrittenOnPurpose)
{
    Set(CFSTR("a"), CFSTR("mine"));
    EXPECT_TRUE(Synchronize());
    WriteFile(Path(), FileWith("<dict><key>a</key><string>theirs</string></dict>"));
    Set(CFSTR("a"), CFSTR("mine"));
    EXPECT_TRUE(Synchronize());
    EXPECT_TRUE(Has(CFSTR("a"), CFSTR("theirs")));
}

TEST_F(FilePreferenceStore, EveryApplicationIsSynchronized)
{
    Set(CFSTR("a"), kCFBooleanTrue);
    EXPECT_TRUE(CFPreferencesAppSynchronize(CFSTR("com.example.never.used")));
    EXPECT_TRUE(Exists(Path()));
}

TEST_F(FilePreferenceStore, OneDomainCanBeSynchronizedAlone)
{
    Set(CFSTR("a"), kCFBooleanTrue);
    EXPECT_TRUE(CFPreferencesSynchronize(mApplication, kCFPreferencesCurrentUser, kCFPreferencesCurrentHost));
    EXPECT_FALSE(Exists(Path()));
    EXPECT_TRUE(CFPreferencesSynchronize(mApplication, kCFPreferencesCurrentUser, kCFPreferencesAnyHost));
    EXPECT_TRUE(Exists(Path()));
}

TEST_F(FilePreferenceStore, TypesOfNumbersAreThoseOfTheFile)
{
    WriteFile(Path(),
              FileWith("<dict><key>a</key><integer>1000</integer><key>b</key><integer>5000000000</integer>"
                       "<key>c</key><real>2</real></dict>"));
    EXPECT_EQ(CFNumberGetType(static_cast<CFNumberRef>(static_cast<CFTypeRef>(Get(CFSTR("a"))))),
              kCFNumberSInt64Type);
    EXPECT_EQ(CFNumberGetType(static_cast<CFNumberRef>(static_cast<CFTypeRef>(Get(CFSTR("b"))))),
              kCFNumberSInt64Type);
    EXPECT_EQ(CFNumberGetType(static_cast<CFNumberRef>(static_cast<CFTypeRef>(Get(CFSTR("c"))))),
              kCFNumberFloat64Type);
}

TEST_F(FilePreferenceStore, TheOpenStepFormIsReadAndRewrittenAsXML)
{
    WriteFile(Path(), "{ a = 5; }");
    EXPECT_TRUE(Has(CFSTR("a"), CFSTR("5")));
    Set(CFSTR("b"), kCFBooleanTrue);
    EXPECT_TRUE(Synchronize());
    EXPECT_EQ(FileText(Path()).substr(0, 5), "<?xml");
    EXPECT_TRUE(
        CFEqual(FileValues(), ObjectDictionary({{CFSTR("a"), CFSTR("5")}, {CFSTR("b"), kCFBooleanTrue}})));
}

// The other program gets the file in the binary form and back, so that it has to understand it.
TEST_F(PreferenceFilesOfOthers, HaveTheSameTextAsTheHostsOwn)
{
    const Owned<CFDateRef> theDate(CFDateCreate(nullptr, 0));
    Set(CFSTR("text"), String(u8"a<b> \u20AC"));
    Set(CFSTR("number"), Integer(-5000000000));
    Set(CFSTR("real"), Float(0.1));
    Set(CFSTR("list"), ObjectArray({theDate, Data({1, 2, 3}), Data(std::vector<UInt8>(100, 9)),
                                    kCFBooleanTrue, ObjectArray({}), ObjectDictionary({})}));
    EXPECT_TRUE(Synchronize());
    ConvertFile(Path(), "bin", PathInFolder("binary"));
    ASSERT_EQ(FileText(PathInFolder("binary")).substr(0, 8), "bplist00");
    ConvertFile(PathInFolder("binary"), "xml", PathInFolder("text"));
    EXPECT_EQ(FileText(PathInFolder("text")), FileText(Path()));
}

TEST_F(PreferenceFilesOfOthers, AreReadInTheBinaryFormAndRewrittenAsXML)
{
    const std::string theText =
        FileWith("<dict>\n\t<key>a</key>\n\t<array>\n\t\t<date>2005-06-07T08:09:10Z</date>\n"
                 "\t\t<integer>70000</integer>\n\t</array>\n</dict>\n");
    WriteFile(PathInFolder("text"), theText);
    ConvertFile(PathInFolder("text"), "bin", Path());
    ASSERT_EQ(FileText(Path()).substr(0, 8), "bplist00");
    const Owned<CFDateRef> theDate(CFDateCreate(nullptr, 139824550));
    EXPECT_TRUE(Has(CFSTR("a"), ObjectArray({theDate, Integer(70000)})));
    Set(CFSTR("b"), kCFBooleanTrue);
    EXPECT_TRUE(Synchronize());
    EXPECT_EQ(FileText(Path()).substr(0, 5), "<?xml");
    EXPECT_TRUE(CFEqual(FileValues(), ObjectDictionary({{CFSTR("a"), ObjectArray({theDate, Integer(70000)})},
                                                        {CFSTR("b"), kCFBooleanTrue}})));
}

TEST_F(PreferenceFilesOfOthers, AreWhatTheHostsBinaryFormSays)
{
    const auto theList = ObjectDictionary(
        {{CFSTR("list"), ObjectArray({Integer(5), Integer(-1), Float(0.5), Data({1, 2, 3}), kCFBooleanTrue})},
         {CFSTR("text"), String(u8"\u00E9\U0001F600")}});
    const Owned<CFDataRef> theData(
        CFPropertyListCreateData(nullptr, theList, kCFPropertyListBinaryFormat_v1_0, 0, nullptr));
    const std::vector<UInt8> theBytes = BytesOf(theData);
    WriteFile(PathInFolder("binary"), std::string(theBytes.begin(), theBytes.end()));
    ConvertFile(PathInFolder("binary"), "xml", Path());
    EXPECT_TRUE(CFEqual(FileValues(), theList));
}

// Their year had no padding, which made the whole domain count as damaged.
TEST_F(PreferenceFilesOfOthers, MayHoldADateBeforeTheYear1000)
{
    const Owned<CFDateRef> theDate(CFDateCreate(nullptr, -63113904000.0));
    WriteFile(PathInFolder("text"),
              FileWith("<dict><key>never</key><date>0001-01-01T00:00:00Z</date></dict>"));
    ConvertFile(PathInFolder("text"), "bin", PathInFolder("binary"));
    ConvertFile(PathInFolder("binary"), "xml", Path());
    ASSERT_NE(FileText(Path()).find("<date>1-01-01T00:00:00Z</date>"), std::string::npos);
    EXPECT_TRUE(Has(CFSTR("never"), theDate));
    Set(CFSTR("other"), kCFBooleanTrue);
    EXPECT_TRUE(Synchronize());
    EXPECT_NE(FileText(Path()).find("<date>0001-01-01T00:00:00Z</date>"), std::string::npos);
}

TEST_F(FilePreferenceStore, ADateBeforeTheYear1000IsThereAtTheNextStart)
{
    const Owned<CFDateRef> theDate(CFDateCreate(nullptr, -63113904000.0));
    Set(CFSTR("never"), theDate);
    EXPECT_TRUE(Synchronize());
    EXPECT_NE(FileText(Path()).find("<date>0001-01-01T00:00:00Z</date>"), std::string::npos);
    EXPECT_EQ(RunInProcess([this, &theDate] { return Has(CFSTR("never"), theDate) ? 0 : 1; }), 0);
    EXPECT_TRUE(Synchronize());
    EXPECT_TRUE(Has(CFSTR("never"), theDate));
}

// Such a string was cut, or made every later synchronising fail.
TEST_F(FilePreferenceStore, ZeroCharactersAreKeptInBothForms)
{
    const auto theText = String(Units{'a', 0, 'b'});
    const auto theKey = String(Units{'k', 0});
    for (const CFPropertyListFormat theFormat :
         {kCFPropertyListXMLFormat_v1_0, kCFPropertyListBinaryFormat_v1_0}) {
        WriteFile(Path(), TextOf(Owned(CFPropertyListCreateData(
                              nullptr, ObjectDictionary({{theKey, theText}}), theFormat, 0, nullptr))));
        EXPECT_TRUE(Synchronize());
        EXPECT_TRUE(Has(theKey, theText));
        Set(CFSTR("other"), theText);
        EXPECT_TRUE(Synchronize());
        EXPECT_TRUE(CFEqual(FileValues(), ObjectDictionary({{theKey, theText}, {CFSTR("other"), theText}})));
        Set(CFSTR("other"), nullptr);
        EXPECT_TRUE(Synchronize());
    }
}

TEST_F(FilePreferenceStore, AnIdentifierDoesNotEndAtAZeroCharacter)
{
    CFPreferencesSetAppValue(CFSTR("k"), kCFBooleanTrue, String(Units{'a', 0, 'b'}));
    EXPECT_TRUE(Synchronize());
    EXPECT_EQ(NamesIn(mFolder), (std::vector<std::string>{"a%00b.plist"}));
}

// The domain's own dictionary is one level more.
TEST_F(FilePreferenceStore, AValueThatIsNestedTooDeepForTheFileIsNotSet)
{
    for (const int theDepth : {511, 512}) {
        Set(CFSTR("a"), NestedArray(theDepth));
        EXPECT_TRUE(Synchronize()) << theDepth;
    }
    EXPECT_EQ(StandardErrorCapture::TakeLines(),
              Lines{"CFPreferences: a value that is no property list was not set"});
}

namespace {

struct DamagedRow
{
    const char* theName;
    std::string theContent;
    const char* theReason;
};

void PrintTo(const DamagedRow& theRow, std::ostream* theStream)
{
    *theStream << theRow.theName;
}

class DamagedPreferenceFiles : public PreferenceFiles, public testing::WithParamInterface<DamagedRow>
{
};

const DamagedRow kDamagedRows[] = {
    {"Empty", "", "there is nothing"},
    {"Truncated", FileWith("<dict><key>a</key><true/></dict>").substr(0, 200), "an end tag is missing"},
    {"Noise", NoiseOf(10000), "an object is expected"},
    {"NoDictionary", FileWith("<array/>"), "it holds no dictionary"},
    {"DeepNesting",
     FileWith("<dict><key>a</key>" + Repeated("<array>", 100000) + Repeated("</array>", 100000) + "</dict>"),
     "the nesting is too deep"},
    {"EntityBomb",
     "<!DOCTYPE plist [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;\">]>"
     "<plist><dict><key>a</key><string>&b;</string></dict></plist>",
     "the document type defines something"},
    {"HugeInteger", FileWith("<dict><key>a</key><integer>" + std::string(100000, '9') + "</integer></dict>"),
     "an integer is none, or is too large"},
    {"BinaryNoise", "bplist00" + NoiseOf(10000), "the binary form is damaged"},
};

} // namespace

TEST_P(DamagedPreferenceFiles, AreKeptUnderAnotherNameAndReportedInOneLine)
{
    const std::string theContent = GetParam().theContent;
    WriteFile(Path(), theContent);
    EXPECT_TRUE(Has(CFSTR("a"), nullptr));
    const std::string theNewPath = Path() + ".damaged-1";
    EXPECT_EQ(StandardErrorCapture::TakeLines(),
              Lines{"CFPreferences: " + Path() + " is damaged (" + GetParam().theReason +
                    ") and was kept as " + theNewPath});
    EXPECT_EQ(FileText(theNewPath), theContent);
    EXPECT_FALSE(Exists(Path()));
    // The application goes on.
    Set(CFSTR("b"), kCFBooleanTrue);
    EXPECT_TRUE(Synchronize());
    EXPECT_TRUE(CFEqual(FileValues(), ObjectDictionary({{CFSTR("b"), kCFBooleanTrue}})));
    EXPECT_EQ(FileText(theNewPath), theContent);
    Set(CFSTR("b"), nullptr);
    EXPECT_TRUE(Synchronize());
    EXPECT_TRUE(Synchronize());
}

INSTANTIATE_TEST_SUITE_P(Kinds, DamagedPreferenceFiles, testing::ValuesIn(kDamagedRows),
                         [](const testing::TestParamInfo<DamagedRow>& theInfo) {
                             return theInfo.param.theName;
                         });

TEST_F(FilePreferenceStore, AFileThatIsDamagedMeanwhileIsKeptWhenWriting)
{
    Set(CFSTR("a"), kCFBooleanTrue);
    EXPECT_TRUE(Synchronize());
    WriteFile(Path(), "broken");
    Set(CFSTR("b"), kCFBooleanTrue);
    EXPECT_TRUE(Synchronize());
    EXPECT_EQ(StandardErrorCapture::TakeLines(),
              Lines{"CFPreferences: " + Path() + " is damaged (it holds no dictionary) and was kept as " +
                    Path() + ".damaged-1"});
    EXPECT_EQ(FileText(Path() + ".damaged-1"), "broken");
    EXPECT_TRUE(CFEqual(FileValues(), ObjectDictionary({{CFSTR("b"), kCFBooleanTrue}})));
}

TEST_F(FilePreferenceStore, EachDamagedFileGetsANameOfItsOwn)
{
    for (const char* theContent : {"first", "second"}) {
        WriteFile(Path(), theContent);
        EXPECT_TRUE(Synchronize());
        EXPECT_TRUE(Has(CFSTR("a"), nullptr));
    }
    EXPECT_EQ(StandardErrorCapture::TakeLines().size(), 2U);
    EXPECT_EQ(FileText(Path() + ".damaged-1"), "first");
    EXPECT_EQ(FileText(Path() + ".damaged-2"), "second");
}

TEST_F(FilePreferenceStore, ADamagedFileThatCannotBeKeptAsideIsNeverWrittenOver)
{
    WriteFile(Path(), "broken");
    chmod(Path().c_str(), 0666);
    chmod(mFolder.c_str(), 0555);
    EXPECT_EQ(RunInProcess([this] {
                  const uid_t kNobody = 65534;
                  if (getuid() == 0 && setuid(kNobody) != 0) {
                      return 2;
                  }
                  Set(CFSTR("a"), kCFBooleanTrue);
                  return !Synchronize() && !Synchronize() && Has(CFSTR("a"), kCFBooleanTrue) ? 0 : 1;
              }),
              0);
    EXPECT_EQ(StandardErrorCapture::TakeLines(),
              Lines{"CFPreferences: " + Path() +
                    " is damaged (it holds no dictionary) and cannot be kept under another name"});
    EXPECT_EQ(FileText(Path()), "broken");
}
