// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "NamedBinding.h"
#include "StandardErrorCapture.h"

#include <Carbon/Carbon.h>
#include <gtest/gtest.h>
#include <map>
#include <string>

TEST(Diagnostics, TheTraceLooksAsTheDocumentShows)
{
    const char* const kShown =
        // @text 1
        ;
    NamedBinding theModel("[Thermostat]");
    LmDebugObject::SetLogging(true);
    theModel.SetKeyPathValue("target", LmValue(21L));
    LmDebugObject::SetLogging(false);
    EXPECT_EQ(StandardErrorCapture::TakeText(), kShown);
}

TEST(Diagnostics, StatusesAreCalledAsTheDocumentSays)
{
    const char* const kShown[][3] = {
        // @table Statuses
    };
    const std::map<std::string, OSStatus> kStatuses = {
        {"paramErr", paramErr},
        {"memFullErr", memFullErr},
        {"errInvalidWindowRef", errInvalidWindowRef},
        {"menuItemNotFoundErr", menuItemNotFoundErr},
        {"menuInvalidErr", menuInvalidErr},
        {"eventParameterNotFoundErr", eventParameterNotFoundErr},
        {"errControlDoesntSupportFocus", errControlDoesntSupportFocus},
        {"errUnknownControl", errUnknownControl},
        {"errCouldntSetFocus", errCouldntSetFocus}};
    EXPECT_EQ(std::size(kShown), kStatuses.size());
    for (const auto& theRow : kShown) {
        EXPECT_EQ(theRow[0], std::to_string(kStatuses.at(theRow[1])));
    }
}
