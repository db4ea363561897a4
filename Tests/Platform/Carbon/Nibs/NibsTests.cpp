// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Nibs: how they are found and read, and what is asked of them.

#include "NibTestSupport.h"

namespace {

const char kWindow[] = "<object class=\"IBCarbonWindow\" id=\"1\">"
                       "<string name=\"windowRect\">100 100 200 300 </string></object>\n";

class Nibs : public NibTest
{
protected:
    std::string TitleMade()
    {
        CFStringRef theTitle = nullptr;
        EXPECT_EQ(CopyWindowTitleAsCFString(mMade, &theTitle), noErr);
        std::string theText = TextOf(theTitle);
        CFRelease(theTitle);
        return theText;
    }
};

} // namespace

TEST_F(Nibs, AreResourcesOfTheirBundleInTheLanguagesOfThePerson)
{
    Write(NibWith(kWindow), "English.lproj/Palette");
    EXPECT_EQ(CreateNibReferenceWithCFBundle(mBundle, CFSTR("Palette"), &mNib), noErr);
    EXPECT_NE(mNib, nullptr);
    EXPECT_EQ(CreateWindowFromNib(mNib, CFSTR("It"), &mMade), noErr);
}

TEST_F(Nibs, AreNotFoundWhereThereAreNone)
{
    EXPECT_EQ(CreateNibReferenceWithCFBundle(mBundle, CFSTR("Nowhere"), &mNib),
              kIBCarbonRuntimeCantFindNibFile);
    EXPECT_EQ(mNib, nullptr);
    std::filesystem::create_directories(mFolder / "Empty.nib");
    EXPECT_EQ(CreateNibReferenceWithCFBundle(mBundle, CFSTR("Empty"), &mNib),
              kIBCarbonRuntimeCantFindNibFile);
    EXPECT_EQ(CreateNibReference(CFSTR("No such nib"), &mNib), kIBCarbonRuntimeCantFindNibFile);
}

TEST_F(Nibs, RefuseMissingArguments)
{
    EXPECT_EQ(CreateNibReference(nullptr, &mNib), paramErr);
    EXPECT_EQ(CreateNibReference(CFSTR("Main"), nullptr), paramErr);
    EXPECT_EQ(CreateNibReferenceWithCFBundle(nullptr, CFSTR("Main"), &mNib), paramErr);
    ASSERT_EQ(Open(NibWith(kWindow)), noErr);
    EXPECT_EQ(CreateWindowFromNib(mNib, CFSTR("It"), nullptr), paramErr);
    EXPECT_EQ(CreateWindowFromNib(mNib, nullptr, &mMade), paramErr);
    EXPECT_EQ(CreateWindowFromNib(nullptr, CFSTR("It"), &mMade), paramErr);
    EXPECT_EQ(CreateMenuFromNib(mNib, CFSTR("It"), nullptr), paramErr);
    EXPECT_EQ(CreateMenuBarFromNib(mNib, CFSTR("It"), nullptr), paramErr);
    DisposeNibReference(nullptr);
}

TEST_F(Nibs, AreGoneOnceTheyAreDisposedOfAndWhatWasMadeLivesOn)
{
    ASSERT_EQ(MakeWindow(NibWith(kWindow)), noErr);
    DisposeNibReference(mNib);
    EXPECT_TRUE(IsValidWindowPtr(mMade));
    WindowRef theOther = mMade;
    EXPECT_EQ(CreateWindowFromNib(mNib, CFSTR("It"), &theOther), paramErr);
    EXPECT_EQ(theOther, nullptr);
    DisposeNibReference(mNib);
}

TEST_F(Nibs, TellWhatHasNoNameFromWhatIsSomethingElse)
{
    ASSERT_EQ(Open(NibWith(kWindow)), noErr);
    EXPECT_EQ(CreateWindowFromNib(mNib, CFSTR("Other"), &mMade), kIBCarbonRuntimeCantFindObject);
    EXPECT_EQ(CreateWindowFromNib(mNib, CFSTR("File's Owner"), &mMade), kIBCarbonRuntimeCantFindObject);
    MenuRef theMenu = nullptr;
    EXPECT_EQ(CreateMenuFromNib(mNib, CFSTR("It"), &theMenu), kIBCarbonRuntimeObjectNotOfRequestedType);
    EXPECT_EQ(theMenu, nullptr);
    Handle theBar = nullptr;
    EXPECT_EQ(CreateMenuBarFromNib(mNib, CFSTR("It"), &theBar), kIBCarbonRuntimeObjectNotOfRequestedType);
    EXPECT_EQ(theBar, nullptr);
    EXPECT_EQ(SetMenuBarFromNib(mNib, CFSTR("It")), kIBCarbonRuntimeObjectNotOfRequestedType);
}

TEST_F(Nibs, MakeNewObjectsEachTime)
{
    ASSERT_EQ(MakeWindow(NibWith(kWindow)), noErr);
    WindowRef theSecond = nullptr;
    ASSERT_EQ(CreateWindowFromNib(mNib, CFSTR("It"), &theSecond), noErr);
    EXPECT_NE(theSecond, mMade);
    DisposeWindow(theSecond);
}

TEST_F(Nibs, AreReadWhateverCharactersStandInThem)
{
    ASSERT_EQ(MakeWindow(WindowWith("<string name=\"title\">A\x01 &amp; <![CDATA[<b>]]> \xC3\xA4</string>")),
              noErr);
    EXPECT_EQ(TitleMade(), "A\x01 & <b> \xC3\xA4");
}

TEST_F(Nibs, AreReadAsFarAsItGoesWhenTheyAreDamaged)
{
    std::string theText = WindowWith("<string name=\"title\">Damaged</string>");
    ASSERT_EQ(MakeWindow(theText + "<<<"), noErr);
    EXPECT_EQ(TitleMade(), "Damaged");
    // The names stand at the end.
    for (size_t theLength = 1; theLength < theText.size(); theLength += 7) {
        const OSStatus theStatus = Open(theText.substr(0, theLength));
        if (theStatus == noErr) {
            WindowRef theWindow = nullptr;
            const OSStatus theMade = CreateWindowFromNib(mNib, CFSTR("It"), &theWindow);
            EXPECT_TRUE(theMade == kIBCarbonRuntimeCantFindObject ||
                        theMade == kIBCarbonRuntimeObjectNotOfRequestedType || theMade == noErr)
                << theLength << ": " << theMade;
            EXPECT_EQ(theMade == noErr, theWindow != nullptr) << theLength;
            DisposeWindow(theWindow);
        } else {
            EXPECT_EQ(theStatus, kIBCarbonRuntimeCantFindNibFile) << theLength;
        }
    }
}

TEST_F(Nibs, AreNotReadWhenTheyHaveADocumentType)
{
    EXPECT_EQ(Open("<!DOCTYPE o [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;\">]>" +
                   NibWith(kWindow)),
              kIBCarbonRuntimeCantFindNibFile);
    EXPECT_EQ(Open("<!DOCTYPE o SYSTEM \"/etc/hostname\"><object class=\"&a;\"/>"),
              kIBCarbonRuntimeCantFindNibFile);
}

TEST_F(Nibs, AreNotReadWhenTheyAreTooDeepOrTooLarge)
{
    std::string theDeep;
    for (int theLevel = 0; theLevel < 250; ++theLevel) {
        theDeep += "<array>";
    }
    EXPECT_EQ(Open(theDeep), kIBCarbonRuntimeCantFindNibFile);
    std::string theLong = "<array>";
    for (int theElement = 0; theElement < 500000; ++theElement) {
        theLong += "<a/>";
    }
    EXPECT_EQ(Open(theLong + "</array>"), kIBCarbonRuntimeCantFindNibFile);
    EXPECT_EQ(Open("<object>" + std::string(size_t{16} << 20, ' ') + "</object>"),
              kIBCarbonRuntimeCantFindNibFile);
}
