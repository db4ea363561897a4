// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// A scripted person in front of the gallery: uses a control of each kind and reads what it shows then.

#include "GalleryWindow.h"

#include <cstdio>
#include <Simulation/UserSession.h>
#include <Simulation/UserSimulator.h>
#include <string>

using Host::UserResult;
using Host::UserSimulator;

namespace {

class GallerySession
{
public:
    explicit GallerySession(Gallery& theGallery)
        : mGallery(theGallery)
    {
        WriteFields();
        WriteButtons();
        WriteTabs();
        WriteRest();
    }

    bool WasSuccessful() const { return mSession.IsOver() && mWasSuccessful; }

private:
    Host::ControlAddress At(Gallery::ControlNumber theNumber) const
    {
        return {mGallery.Window(), Gallery::Name(theNumber)};
    }

    // One thing that the person does, and what the control shows then.
    template <class Action>
    void Do(const char* theWords, Gallery::ControlNumber theNumber, const Action& theAction)
    {
        mSession.Then([this, theWords, theNumber, theAction](UserSimulator& theUser) {
            const UserResult theResult = theAction(theUser);
            mWasSuccessful = mWasSuccessful && theResult;
            std::printf("%s\n    %s\n%s", theWords, theUser.DescribeControl(At(theNumber)).c_str(),
                        theResult.Explain().c_str());
        });
    }

    void Click(const char* theWords, Gallery::ControlNumber theNumber)
    {
        Do(theWords, theNumber, [=](UserSimulator& theUser) { return theUser.Click(At(theNumber)); });
    }

    void Choose(const char* theWords, Gallery::ControlNumber theNumber, const char* theItem)
    {
        Do(theWords, theNumber,
           [=](UserSimulator& theUser) { return theUser.ChooseInPopUp(At(theNumber), theItem); });
    }

    void WriteFields();
    void WriteButtons();
    void WriteTabs();
    void WriteRest();

    Gallery& mGallery;
    Host::UserSession mSession;
    bool mWasSuccessful = true;
};

void GallerySession::WriteFields()
{
    Click("The person clicks into the search field.", Gallery::kSearch);
    Do("They type a name.", Gallery::kSearch, [](UserSimulator& theUser) { return theUser.TypeText("Ada"); });
    Do("Escape takes it away again.", Gallery::kSearch,
       [](UserSimulator& theUser) { return theUser.PressKey(kVK_Escape); });
    Choose("They choose a city from the list.", Gallery::kCity, "Rome");
    Do("The down arrow has nowhere to go, the up arrow has.", Gallery::kCity, [](UserSimulator& theUser) {
        theUser.PressKey(kVK_DownArrow);
        return theUser.PressKey(kVK_UpArrow);
    });
    Choose("They choose a unit.", Gallery::kUnit, "Kelvin");
}

void GallerySession::WriteButtons()
{
    Click("They press a button that stays down.", Gallery::kBold);
    Choose("They choose from the menu of a button.", Gallery::kAlign, "Centre");
    Click("They press the round button.", Gallery::kHelpButton);
    mSession.Then([this](UserSimulator& theUser) {
        std::printf("Its help says: %s\n", theUser.DescribeHelp(At(Gallery::kHelpButton)).c_str());
    });
}

void GallerySession::WriteTabs()
{
    Do("They bring the second tab to the front.", Gallery::kTabs,
       [this](UserSimulator& theUser) { return theUser.ClickPart(At(Gallery::kTabs), 2); });
    Click("They click on the image there.", Gallery::kWell);
}

void GallerySession::WriteRest()
{
    Click("They open the details.", Gallery::kDetails);
    Click("They ask for more.", Gallery::kMore);
    Do("They drag the slider, and the relevance follows.", Gallery::kRelevance,
       [this](UserSimulator& theUser) { return theUser.DragSlider(At(Gallery::kSlider), 70); });
    Do("They look at icons.", Gallery::kView,
       [this](UserSimulator& theUser) { return theUser.ClickPart(At(Gallery::kView), 2); });
    Do("They put the minutes of the clock on.", Gallery::kTime, [this](UserSimulator& theUser) {
        theUser.ClickPart(At(Gallery::kTime), kControlClockMinuteMonthPart);
        return theUser.ClickPart(At(Gallery::kTime), kControlUpButtonPart);
    });
    Do("They type an hour.", Gallery::kTime, [](UserSimulator& theUser) {
        theUser.PressKey(kVK_LeftArrow);
        return theUser.TypeText("9");
    });
    Click("They turn everything off.", Gallery::kSwitch);
    mSession.Then([](UserSimulator& theUser) { std::printf("\n%s", theUser.DescribeScreen().c_str()); });
}

} // namespace

int main()
{
    Gallery theGallery;
    ShowWindow(theGallery.Window());
    GallerySession theSession(theGallery);
    RunApplicationEventLoop();
    return theSession.WasSuccessful() ? 0 : 1;
}
