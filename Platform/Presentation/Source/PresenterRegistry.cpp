// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <Presentation/PresenterRegistry.h>

#include "Common/NeverDestroyed.h"
#include "HeadlessPresenter.h"

#include <cstdio>
#include <cstdlib>
#include <map>
#include <utility>

namespace Host {

namespace {

constexpr char kVariable[] = "LM_PRESENTER";
constexpr char kHeadless[] = "headless";

struct Registry
{
    std::map<std::string, PresenterFactory> theFactories = {{kHeadless, HeadlessPresenter::Make}};
    std::string thePreferred = kHeadless;
    std::unique_ptr<Presenter> thePresenter;
    PresentedProgram* theProgram = nullptr; // not owned
    PopUpAnswer* theAnswer = nullptr;       // not owned; the youngest

    // Presenters that were stopped. They stay, since a handler that changes the presenter may run inside a
    // function of the one that it stops.
    std::vector<std::unique_ptr<Presenter>> theRetired;
};

// Programs dispose windows as late as in the destructors of their own static objects.
Registry& TheRegistry()
{
    static NeverDestroyed<Registry> sRegistry;
    return sRegistry.Get();
}

std::string ListOfNames()
{
    std::string theList;
    for (const std::string& theName : PresenterRegistry::Names()) {
        theList += (theList.empty() ? "" : ", ") + theName;
    }
    return theList;
}

// The name that LM_PRESENTER chooses, or an empty one.
std::string ChosenName()
{
    const char* theName = std::getenv(kVariable);
    return theName == nullptr ? "" : theName;
}

[[noreturn]] void Refuse(const std::string& theComplaint)
{
    std::fprintf(stderr, "%s: %s; there are: %s\n", kVariable, theComplaint.c_str(), ListOfNames().c_str());
    std::exit(EXIT_FAILURE);
}

// A person who has chosen nothing need not know that there is anything to choose.
[[noreturn]] void RefusePreferred(const std::string& theReason)
{
    std::fprintf(stderr, "No windows can be shown%s; %s=%s runs the program without\n", theReason.c_str(),
                 kVariable, kHeadless);
    std::exit(EXIT_FAILURE);
}

std::unique_ptr<Presenter> StartChosen()
{
    Registry& theRegistry = TheRegistry();
    const std::string theChosen = ChosenName();
    const std::string theName = theChosen.empty() ? theRegistry.thePreferred : theChosen;
    const auto theEntry = theRegistry.theFactories.find(theName);
    if (theEntry == theRegistry.theFactories.end()) {
        Refuse("no presenter is called \"" + theName + "\"");
    }
    std::unique_ptr<Presenter> thePresenter = theEntry->second();
    if (thePresenter == nullptr || !thePresenter->Start(PresenterRegistry::Events())) {
        const std::string theComplaint = thePresenter == nullptr ? "" : thePresenter->Complaint();
        const std::string theReason = theComplaint.empty() ? "" : ": " + theComplaint;
        if (theChosen.empty()) {
            RefusePreferred(theReason);
        }
        Refuse("the presenter \"" + theName + "\" cannot start" + theReason);
    }
    return thePresenter;
}

} // namespace

void PresenterRegistry::Register(const std::string& theName, PresenterFactory theFactory)
{
    TheRegistry().theFactories[theName] = theFactory;
}

void PresenterRegistry::RegisterPreferred(const std::string& theName, PresenterFactory theFactory)
{
    Register(theName, theFactory);
    TheRegistry().thePreferred = theName;
}

void PresenterRegistry::Present(PresentedProgram& theProgram)
{
    TheRegistry().theProgram = &theProgram;
}

std::vector<std::string> PresenterRegistry::Names()
{
    std::vector<std::string> theNames;
    for (const auto& theEntry : TheRegistry().theFactories) {
        theNames.push_back(theEntry.first);
    }
    return theNames;
}

Presenter& PresenterRegistry::Current()
{
    Registry& theRegistry = TheRegistry();
    if (theRegistry.thePresenter == nullptr) {
        theRegistry.thePresenter = StartChosen();
    }
    return *theRegistry.thePresenter;
}

PresenterEvents& PresenterRegistry::Events()
{
    return TheRegistry().theProgram->Gate();
}

bool PresenterRegistry::Use(std::unique_ptr<Presenter> theNext)
{
    Registry& theRegistry = TheRegistry();
    if (theNext == nullptr || !theNext->Start(Events())) {
        return false;
    }
    if (theRegistry.thePresenter != nullptr) {
        theRegistry.thePresenter->Stop();
        theRegistry.theRetired.push_back(std::move(theRegistry.thePresenter));
    }
    theRegistry.theProgram->ForgetWhatIsHeld();
    theRegistry.thePresenter = std::move(theNext);
    ReplayLooks(*theRegistry.thePresenter);
    return true;
}

void PresenterRegistry::ReplayLooks(Presenter& thePresenter)
{
    TheRegistry().theProgram->ReplayLooks(thePresenter);
}

MenuChoice PresenterRegistry::RunPopUp(const PopUpLook& theLook)
{
    const PopUpAnswer* theAnswer = TheRegistry().theAnswer;
    if (theAnswer == nullptr) {
        return Current().RunPopUp(theLook);
    }
    return theAnswer->mFunction ? theAnswer->mFunction(theLook) : MenuChoice();
}

PopUpAnswer::PopUpAnswer(Function theFunction)
    : mFunction(std::move(theFunction)),
      mOlder(std::exchange(TheRegistry().theAnswer, this))
{
}

PopUpAnswer::~PopUpAnswer()
{
    TheRegistry().theAnswer = mOlder;
}

} // namespace Host
