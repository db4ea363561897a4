// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef AlertTestSupport_h
#define AlertTestSupport_h

#include "LoopSteps.h"
#include "ManagerTestSupport.h"

#include <Simulation/UserSimulator.h>

// What tests of alerts have in common: a person, who answers while the alert's loop runs.
class AlertTest : public WindowTest
{
protected:
    AlertTest() { GetStandardAlertDefaultParams(&mParams, kStdCFStringAlertVersionOne); }

    static CFStringRef DefaultText() { return reinterpret_cast<CFStringRef>(std::intptr_t{-1}); }

    // An alert as mParams says.
    DialogRef NewAlert(CFStringRef theError = CFSTR("Switch off?"), CFStringRef theExplanation = nullptr)
    {
        DialogRef theAlert = nullptr;
        EXPECT_EQ(CreateStandardAlert(kAlertNoteAlert, theError, theExplanation, &mParams, &theAlert), noErr);
        return theAlert;
    }

    static ControlRef Item(WindowRef theWindow, SInt32 theNumber)
    {
        const ControlID theID = {'alrt', theNumber};
        ControlRef theControl = nullptr;
        GetControlByID(theWindow, &theID, &theControl);
        return theControl;
    }

    static std::string TitleOf(ControlRef theControl)
    {
        CFStringRef theTitle = nullptr;
        if (CopyControlTitleAsCFString(theControl, &theTitle) != noErr) {
            return "(none)";
        }
        std::string theText = TextOf(theTitle);
        CFRelease(theTitle);
        return theText;
    }

    // What is in the alert: the texts, and the titles of the buttons from the first to the last.
    Log Items(DialogRef theAlert)
    {
        Log theItems;
        for (const SInt32 theNumber : {5, 6}) {
            if (ControlRef theText = Item(GetDialogWindow(theAlert), theNumber)) {
                theItems.push_back(TextIn(theText));
            }
        }
        for (const SInt32 theNumber : {1, 2, 3, 4}) {
            theItems.push_back(TitleOf(Item(GetDialogWindow(theAlert), theNumber)));
        }
        return theItems;
    }

    // A person presses a button of the alert in front once the loop runs.
    void PressLater(SInt32 theNumber)
    {
        mSteps.Then([theNumber] {
            Host::UserSimulator theUser;
            const Host::UserResult theResult = theUser.Click({FrontWindow(), {'alrt', theNumber}});
            EXPECT_TRUE(theResult) << theResult.Explain();
        });
    }
    void PressKeyLater(UInt32 theKey, UInt32 theModifiers = 0)
    {
        mSteps.Then([=] {
            Host::UserSimulator theUser;
            EXPECT_TRUE(theUser.PressKey(theKey, theModifiers));
        });
    }

    DialogItemIndex Run(DialogRef theAlert, OSStatus theExpected = noErr)
    {
        DialogItemIndex theItem = 99;
        EXPECT_EQ(RunStandardAlert(theAlert, nullptr, &theItem), theExpected);
        return theItem;
    }

    LoopSteps mSteps;
    AlertStdCFStringAlertParamRec mParams = {};
};

#endif
