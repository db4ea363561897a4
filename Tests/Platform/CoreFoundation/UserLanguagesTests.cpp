// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Which language a person reads, by the words that a bundle finds.

#include "BundleTestSupport.h"

namespace {

class UserLanguages : public testing::Test
{
protected:
    UserLanguages()
    {
        for (const char* const theName : {"en", "de", "de_CH", "French", "Dutch", "ja", "sv"}) {
            mFolder.Write(std::string("B.app/Contents/Resources/") + theName + ".lproj/Localizable.strings",
                          std::string("key = \"") + theName + "\";");
        }
    }

    std::string Language() const
    {
        const Owned theBundle(CFBundleCreate(nullptr, mFolder.URL("B.app")));
        return TakeText(CFBundleCopyLocalizedString(theBundle, CFSTR("key"), CFSTR("none"), nullptr));
    }

    TemporaryFolder mFolder;
    const Variable mAll{"LC_ALL", nullptr};
    const Variable mMessages{"LC_MESSAGES", nullptr};
    const Variable mLang{"LANG", nullptr};
    const Variable mList{"LANGUAGE", nullptr};
};

} // namespace

TEST_F(UserLanguages, NothingSaidIsEnglish)
{
    EXPECT_EQ(Language(), "en");
    const Variable theLang("LANG", "C.UTF-8");
    EXPECT_EQ(Language(), "en");
    const Variable theList("LANGUAGE", "de");
    EXPECT_EQ(Language(), "en") << "as everywhere, the list counts only where there is a language";
}

TEST_F(UserLanguages, TheStrongestVariableCounts)
{
    const Variable theLang("LANG", "de_DE.UTF-8");
    EXPECT_EQ(Language(), "de");
    const Variable theMessages("LC_MESSAGES", "fr_FR@euro");
    EXPECT_EQ(Language(), "French");
    const Variable theAll("LC_ALL", "nl");
    EXPECT_EQ(Language(), "Dutch");
    const Variable theNone("LC_ALL", "POSIX");
    EXPECT_EQ(Language(), "en");
}

TEST_F(UserLanguages, TheListComesFirst)
{
    const Variable theLang("LANG", "de_DE.UTF-8");
    const Variable theList("LANGUAGE", "xx::sv:ja");
    EXPECT_EQ(Language(), "sv");
    const Variable theOther("LANGUAGE", "xx");
    EXPECT_EQ(Language(), "de");
}

TEST_F(UserLanguages, ARegionComesBeforeItsLanguage)
{
    const Variable theSwiss("LANG", "de_CH.UTF-8");
    EXPECT_EQ(Language(), "de_CH");
    const Variable theAustrian("LANG", "de_AT.UTF-8");
    EXPECT_EQ(Language(), "de");
}

TEST_F(UserLanguages, EnglishIsBetterThanNothing)
{
    const Variable theLang("LANG", "tlh_XX.UTF-8");
    EXPECT_EQ(Language(), "en");
}
