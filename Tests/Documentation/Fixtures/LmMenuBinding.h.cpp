// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmMenuBinding.h"
#include "KeyTable.h"
#include "StandardErrorCapture.h"

#include <Carbon/Carbon.h>
#include <gtest/gtest.h>

namespace {

// A menu in the bar with one item, which carries the command.
class CommandMenu
{
public:
    CommandMenu()
    {
        CreateNewMenu(1, 0, &mMenu);
        AppendMenuItemTextWithCFString(mMenu, CFSTR("Heating"), 0, 'heat', nullptr);
        InsertMenu(mMenu, 0);
    }
    ~CommandMenu() { Dispose(); }
    CommandMenu(const CommandMenu&) = delete;
    CommandMenu& operator=(const CommandMenu&) = delete;

    void Dispose()
    {
        if (mMenu != nullptr) {
            ClearMenuBar();
            DisposeMenu(mMenu);
            mMenu = nullptr;
        }
    }

    CharParameter GetMark() const
    {
        CharParameter theMark = 0;
        GetItemMark(mMenu, 1, &theMark);
        return theMark;
    }

private:
    MenuRef mMenu = nullptr; // owned
};

} // namespace

TEST(LmMenuBinding, FollowsTheModelAsItsHeaderShows)
{
    CommandMenu theMenu;
    LmKeyValueBinding theModel;
    theModel.SetKeyPathValue("heating", LmValue(false));
    // @code 1
    EXPECT_EQ(theMenu.GetMark(), noMark);
    theModel.SetKeyPathValue("heating", LmValue(true));
    EXPECT_EQ(theMenu.GetMark(), checkMark);
    theMenu.Dispose();
    // The one-way binding has no other half to remove.
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(),
              Lines{"Source/Core/LmKeyValueBinding.cpp, line #: Error -50"});
}

TEST(LmMenuBinding, HasTheKeysThatItsHeaderLists)
{
    KeyRow kShown[] = {
        // @rows 2
    };
    CommandMenu theMenu;
    const LmMenuBinding* theHeating = new LmMenuBinding('heat');
    EXPECT_EQ(NameOf(kShown[0]), "mark");
    EXPECT_TRUE(theHeating->GetKeyPathValue("mark").IsBoolean());
    ExpectKey(*theHeating, kShown[1]);
    ExpectKey(*theHeating, kShown[2]);
    static_assert(std::size(kShown) == 3);
}
