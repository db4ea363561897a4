// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "RandomSession.h"

#include <algorithm>
#include <Carbon/Carbon.h>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <memory>
#include <numeric>
#include <random>
#include <Simulation/UserSimulator.h>
#include <Simulation/VirtualClock.h>
#include <sstream>

#include "ControlKinds.h"
#include "HeadlessPresenter.h"
#include "WatchedObjects.h"

#include <Presentation/PresenterRegistry.h>

namespace {

const size_t kMostWindows = 4;
const size_t kMostControls = 20;
const size_t kMostMenus = 6;
const UInt32 kCommand = 'cmd0'; // and the numbers after it

// The presenter in use, whose picture is looked at. One for all sessions: those that were replaced are kept.
const Host::HeadlessPresenter& Screen()
{
    static const Host::HeadlessPresenter* sScreen = nullptr;
    if (sScreen == nullptr) {
        auto thePresenter = std::make_unique<Host::HeadlessPresenter>();
        sScreen = thePresenter.get();
        Host::PresenterRegistry::Use(std::move(thePresenter));
    }
    return *sScreen;
}

// A string that is released at the end.
class Name
{
public:
    explicit Name(const std::string& theText)
        : mString(CFStringCreateWithCString(nullptr, theText.c_str(), kCFStringEncodingUTF8))
    {
    }
    ~Name() { CFRelease(mString); }
    Name(const Name&) = delete;
    Name& operator=(const Name&) = delete;
    operator CFStringRef() const { return mString; }

private:
    CFStringRef mString;
};

short Coordinate(unsigned theNumber, int theLowest, int theRange)
{
    return static_cast<short>(theLowest + static_cast<int>(theNumber % static_cast<unsigned>(theRange)));
}

Rect BoundsFrom(unsigned theNumber)
{
    const short theLeft = Coordinate(theNumber, 0, 300);
    const short theTop = Coordinate(theNumber / 300, 0, 200);
    return {theTop, theLeft, static_cast<short>(theTop + 20), static_cast<short>(theLeft + 90)};
}

OSStatus MakeControl(unsigned theKind, WindowRef theWindow, const Rect& theBounds, ControlRef* theControl)
{
    const KindRow& theRow = EveryKind()[theKind % EveryKind().size()];
    const Rect theLarge = {0, 0, 200, 300};
    return theRow.theMaker(theWindow, theRow.theHoldsOthers ? &theLarge : &theBounds, theControl);
}

// The program, the person, and everything that was ever made.
class Session
{
public:
    std::string Play(const Script& theScript);

    // Carries a script out and disposes of everything. What came of each step, line by line.
    Lines Record(const Script& theScript);

    // What the actions are made of. The objects are those that live; null, or a null reference, when there is
    // none.
    WindowRef WindowAt(unsigned theNumber) const { return ReferenceAt<WindowRef>(mWindows, theNumber); }
    ControlRef ControlAt(unsigned theNumber) const { return ReferenceAt<ControlRef>(mControls, theNumber); }
    WatchedMenu* MenuAt(unsigned theNumber) const { return LivingAt(mMenus, theNumber); }
    MenuRef MenuReferenceAt(unsigned theNumber) const { return ReferenceAt<MenuRef>(mMenus, theNumber); }
    Host::UserSimulator& Person() { return mPerson; }

    // Notes what the person did not do, and why.
    void Heed(const Host::UserResult& theResult) { Write(theResult ? "" : "refused: " + theResult.Reason()); }

    void AddWindow(const Step& theStep);
    void AddControl(const Step& theStep);
    void AddMenu(const Step& theStep);
    void TakeStatesOfPlaces();

private:
    template <class Object>
    static Object* LivingAt(const std::vector<std::unique_ptr<Object>>& theObjects, unsigned theNumber)
    {
        std::vector<Object*> theLiving;
        for (const auto& theObject : theObjects) {
            if (theObject->IsAlive()) {
                theLiving.push_back(theObject.get());
            }
        }
        return theLiving.empty() ? nullptr : theLiving[theNumber % theLiving.size()];
    }

    template <class Reference, class Object>
    static Reference ReferenceAt(const std::vector<std::unique_ptr<Object>>& theObjects, unsigned theNumber)
    {
        const Object* theObject = LivingAt(theObjects, theNumber);
        return theObject == nullptr ? nullptr : theObject->Get();
    }

    template <class Object>
    static size_t CountLiving(const std::vector<std::unique_ptr<Object>>& theObjects)
    {
        return static_cast<size_t>(std::count_if(theObjects.begin(), theObjects.end(),
                                                 [](const auto& theOne) { return theOne->IsAlive(); }));
    }

    template <class Action>
    void ForEach(const Action& theAction) const;

    // Calls theFunction with the number of each step that was done.
    template <class Function>
    void DoSteps(const Script& theScript, const Function& theFunction);

    void Do(const Step& theStep);
    void SetTrap(const Step& theWhen, const Step& theThen);
    void EventArrived(const std::string& theName, EventRef theEvent);

    void Write(const std::string& theLine);
    void WriteState();

    void Check(Promises& thePromises) const;
    void CheckFocus(Promises& thePromises) const;
    static void CheckPicture(Promises& thePromises);
    void DisposeEverything();
    void CheckEnd(Promises& thePromises) const;

    Host::VirtualClock mClock;
    Host::UserSimulator mPerson;
    EventCourse mCourse = {
        [this](const std::string& theName, EventRef theEvent) { EventArrived(theName, theEvent); },
        false,
        {}};
    std::vector<std::unique_ptr<WatchedWindow>> mWindows; // with those that are gone
    std::vector<std::unique_ptr<WatchedControl>> mControls;
    std::vector<std::unique_ptr<WatchedMenu>> mMenus;
    bool mHasTrap = false;
    unsigned mEventsToTrap = 0;
    Step mTrapped;           // done from inside a handler
    Lines* mLines = nullptr; // where what happens is written; null: nowhere
};

// Actions -------------------------------------------------------------------------------------------------

struct Action
{
    const char* theName;
    void (*theFunction)(Session& theSession, const Step& theStep);
};

UInt32 CommandFrom(unsigned theNumber)
{
    return kCommand + theNumber % 4;
}

std::string TextFrom(unsigned theNumber)
{
    return "text " + std::to_string(theNumber % 5);
}

std::string CodeText(UInt32 theCode)
{
    std::string theText;
    for (int theShift = 24; theShift >= 0; theShift -= 8) {
        theText += static_cast<char>(theCode >> theShift & 0xFF);
    }
    return theText;
}

// The step after this one is done from inside a handler, as soon as some more events have arrived.
const size_t kInHandler = 0;

const Action kActions[] = {
    {"InHandler", [](Session&, const Step&) {}},
    {"TurnLoop", [](Session&, const Step&) { RunCurrentEventLoop(0); }},

    // Windows.
    {"NewWindow", [](Session& theSession, const Step& theStep) { theSession.AddWindow(theStep); }},
    {"DisposeWindow",
     [](Session& theSession, const Step& theStep) { DisposeWindow(theSession.WindowAt(theStep.theFirst)); }},
    {"ShowWindow",
     [](Session& theSession, const Step& theStep) { ShowWindow(theSession.WindowAt(theStep.theFirst)); }},
    {"HideWindow",
     [](Session& theSession, const Step& theStep) { HideWindow(theSession.WindowAt(theStep.theFirst)); }},
    {"ShowHide",
     [](Session& theSession, const Step& theStep) {
         ShowHide(theSession.WindowAt(theStep.theFirst), theStep.theSecond % 2 != 0);
     }},
    {"SelectWindow",
     [](Session& theSession, const Step& theStep) { SelectWindow(theSession.WindowAt(theStep.theFirst)); }},
    {"BringToFront",
     [](Session& theSession, const Step& theStep) { BringToFront(theSession.WindowAt(theStep.theFirst)); }},
    {"SendBehind",
     [](Session& theSession, const Step& theStep) {
         SendBehind(theSession.WindowAt(theStep.theFirst),
                    theStep.theThird % 2 == 0 ? nullptr : theSession.WindowAt(theStep.theSecond));
     }},
    {"CollapseWindow",
     [](Session& theSession, const Step& theStep) {
         CollapseWindow(theSession.WindowAt(theStep.theFirst), theStep.theSecond % 2 != 0);
     }},
    {"MoveWindow",
     [](Session& theSession, const Step& theStep) {
         MoveWindow(theSession.WindowAt(theStep.theFirst), Coordinate(theStep.theSecond, -100, 800),
                    Coordinate(theStep.theThird, 0, 600), theStep.theThird % 2 != 0);
     }},
    {"SizeWindow",
     [](Session& theSession, const Step& theStep) {
         SizeWindow(theSession.WindowAt(theStep.theFirst), Coordinate(theStep.theSecond, -10, 500),
                    Coordinate(theStep.theThird, -10, 400), true);
     }},
    {"SetWindowTitle",
     [](Session& theSession, const Step& theStep) {
         SetWindowTitleWithCFString(theSession.WindowAt(theStep.theFirst), Name(TextFrom(theStep.theSecond)));
     }},
    {"SetUserFocusWindow",
     [](Session& theSession, const Step& theStep) {
         SetUserFocusWindow(theStep.theSecond % 2 == 0 ? kUserFocusAuto : theSession.WindowAt(theStep.theFirst));
     }},
    {"SetDefaultButton",
     [](Session& theSession, const Step& theStep) {
         SetWindowDefaultButton(theSession.WindowAt(theStep.theFirst), theSession.ControlAt(theStep.theSecond));
     }},

    // Controls.
    {"NewControl", [](Session& theSession, const Step& theStep) { theSession.AddControl(theStep); }},
    {"DisposeControl",
     [](Session& theSession, const Step& theStep) { DisposeControl(theSession.ControlAt(theStep.theFirst)); }},
    {"KillControls",
     [](Session& theSession, const Step& theStep) {
         if (theStep.theSecond % 8 == 0) {
             KillControls(theSession.WindowAt(theStep.theFirst));
         }
     }},
    {"EmbedControl",
     [](Session& theSession, const Step& theStep) {
         EmbedControl(theSession.ControlAt(theStep.theFirst), theSession.ControlAt(theStep.theSecond));
         theSession.TakeStatesOfPlaces();
     }},
    {"EmbedInRoot",
     [](Session& theSession, const Step& theStep) {
         ControlRef theRoot = nullptr;
         GetRootControl(theSession.WindowAt(theStep.theSecond), &theRoot);
         EmbedControl(theSession.ControlAt(theStep.theFirst), theRoot);
         theSession.TakeStatesOfPlaces();
     }},
    {"AutoEmbedControl",
     [](Session& theSession, const Step& theStep) {
         AutoEmbedControl(theSession.ControlAt(theStep.theFirst), theSession.WindowAt(theStep.theSecond));
         theSession.TakeStatesOfPlaces();
     }},
    {"SetValue",
     [](Session& theSession, const Step& theStep) {
         SetControl32BitValue(theSession.ControlAt(theStep.theFirst), Coordinate(theStep.theSecond, -5, 120));
     }},
    {"SetMinimum",
     [](Session& theSession, const Step& theStep) {
         SetControl32BitMinimum(theSession.ControlAt(theStep.theFirst), Coordinate(theStep.theSecond, -5, 50));
     }},
    {"SetMaximum",
     [](Session& theSession, const Step& theStep) {
         SetControl32BitMaximum(theSession.ControlAt(theStep.theFirst), Coordinate(theStep.theSecond, -5, 120));
     }},
    {"SetViewSize",
     [](Session& theSession, const Step& theStep) {
         SetControlViewSize(theSession.ControlAt(theStep.theFirst), Coordinate(theStep.theSecond, 0, 30));
     }},
    {"EnableControl",
     [](Session& theSession, const Step& theStep) {
         const auto theCall = theStep.theSecond % 2 == 0 ? DisableControl : EnableControl;
         theCall(theSession.ControlAt(theStep.theFirst));
     }},
    {"ActivateControl",
     [](Session& theSession, const Step& theStep) {
         const auto theCall = theStep.theSecond % 2 == 0 ? DeactivateControl : ActivateControl;
         theCall(theSession.ControlAt(theStep.theFirst));
     }},
    {"SetControlVisibility",
     [](Session& theSession, const Step& theStep) {
         SetControlVisibility(theSession.ControlAt(theStep.theFirst), theStep.theSecond % 3 != 0, true);
     }},
    {"HiliteControl",
     [](Session& theSession, const Step& theStep) {
         static const ControlPartCode kParts[] = {kControlNoPart, kControlButtonPart, kControlDisabledPart,
                                                  kControlInactivePart};
         HiliteControl(theSession.ControlAt(theStep.theFirst), kParts[theStep.theSecond % 4]);
     }},
    {"SetControlBounds",
     [](Session& theSession, const Step& theStep) {
         const Rect theBounds = BoundsFrom(theStep.theSecond);
         SetControlBounds(theSession.ControlAt(theStep.theFirst), &theBounds);
     }},
    {"SetControlTitle",
     [](Session& theSession, const Step& theStep) {
         SetControlTitleWithCFString(theSession.ControlAt(theStep.theFirst), Name(TextFrom(theStep.theSecond)));
     }},
    {"SetControlText",
     [](Session& theSession, const Step& theStep) {
         const Name theName(TextFrom(theStep.theSecond));
         CFStringRef theText = theName;
         SetControlData(theSession.ControlAt(theStep.theFirst), kControlEntireControl,
                        kControlEditTextCFStringTag, sizeof theText, &theText);
     }},
    {"SetControlCommand",
     [](Session& theSession, const Step& theStep) {
         SetControlCommandID(theSession.ControlAt(theStep.theFirst), CommandFrom(theStep.theSecond));
     }},
    {"SetPopUpMenu",
     [](Session& theSession, const Step& theStep) {
         SetControlPopupMenuHandle(theSession.ControlAt(theStep.theFirst),
                                   theSession.MenuReferenceAt(theStep.theSecond));
     }},
    {"SetKeyboardFocus",
     [](Session& theSession, const Step& theStep) {
         const ControlRef theControl = theSession.ControlAt(theStep.theFirst);
         SetKeyboardFocus(GetControlOwner(theControl), theControl, kControlFocusNextPart);
     }},
    {"AdvanceKeyboardFocus",
     [](Session& theSession, const Step& theStep) {
         const auto theCall = theStep.theSecond % 2 == 0 ? AdvanceKeyboardFocus : ReverseKeyboardFocus;
         theCall(theSession.WindowAt(theStep.theFirst));
     }},
    {"ClearKeyboardFocus",
     [](Session& theSession, const Step& theStep) { ClearKeyboardFocus(theSession.WindowAt(theStep.theFirst)); }},
    {"SimulateClick",
     [](Session& theSession, const Step& theStep) {
         HIViewSimulateClick(theSession.ControlAt(theStep.theFirst), 0, 0, nullptr);
     }},

    // Menus.
    {"NewMenu", [](Session& theSession, const Step& theStep) { theSession.AddMenu(theStep); }},
    {"ReleaseMenu",
     [](Session& theSession, const Step& theStep) {
         if (WatchedMenu* theMenu = theSession.MenuAt(theStep.theFirst)) {
             theMenu->Release();
         }
     }},
    {"InsertMenu",
     [](Session& theSession, const Step& theStep) {
         InsertMenu(theSession.MenuReferenceAt(theStep.theFirst),
                    theStep.theSecond % 4 == 0 ? MenuID{kInsertHierarchicalMenu}
                                               : GetMenuID(theSession.MenuReferenceAt(theStep.theThird)));
     }},
    {"DeleteMenu",
     [](Session& theSession, const Step& theStep) {
         DeleteMenu(GetMenuID(theSession.MenuReferenceAt(theStep.theFirst)));
     }},
    {"AppendItem",
     [](Session& theSession, const Step& theStep) {
         AppendMenuItemTextWithCFString(theSession.MenuReferenceAt(theStep.theFirst),
                                        Name(TextFrom(theStep.theSecond)),
                                        theStep.theThird % 5 == 0 ? MenuItemAttributes{kMenuItemAttrAutoDisable}
                                                                  : MenuItemAttributes{0},
                                        CommandFrom(theStep.theSecond), nullptr);
     }},
    {"DeleteItem",
     [](Session& theSession, const Step& theStep) {
         DeleteMenuItem(theSession.MenuReferenceAt(theStep.theFirst),
                        static_cast<MenuItemIndex>(1 + theStep.theSecond % 4));
     }},
    {"SetSubmenu",
     [](Session& theSession, const Step& theStep) {
         SetMenuItemHierarchicalMenu(theSession.MenuReferenceAt(theStep.theFirst),
                                     static_cast<MenuItemIndex>(1 + theStep.theSecond % 4),
                                     theSession.MenuReferenceAt(theStep.theThird));
     }},
    {"EnableItem",
     [](Session& theSession, const Step& theStep) {
         const auto theCall = theStep.theThird % 2 == 0 ? DisableMenuItem : EnableMenuItem;
         theCall(theSession.MenuReferenceAt(theStep.theFirst), static_cast<MenuItemIndex>(theStep.theSecond % 5));
     }},
    {"CheckItem",
     [](Session& theSession, const Step& theStep) {
         CheckMenuItem(theSession.MenuReferenceAt(theStep.theFirst),
                       static_cast<MenuItemIndex>(1 + theStep.theSecond % 4), theStep.theThird % 2 != 0);
     }},
    {"SetItemText",
     [](Session& theSession, const Step& theStep) {
         SetMenuItemTextWithCFString(theSession.MenuReferenceAt(theStep.theFirst),
                                     static_cast<MenuItemIndex>(1 + theStep.theSecond % 4),
                                     Name(TextFrom(theStep.theThird)));
     }},
    {"SetItemKey",
     [](Session& theSession, const Step& theStep) {
         SetMenuItemCommandKey(theSession.MenuReferenceAt(theStep.theFirst),
                               static_cast<MenuItemIndex>(1 + theStep.theSecond % 4), theStep.theThird % 2 != 0,
                               theStep.theThird % 2 != 0 ? UInt16{kVK_ANSI_K} : UInt16{'J'});
     }},

    // The person.
    {"PersonClicks",
     [](Session& theSession, const Step& theStep) {
         theSession.Heed(theSession.Person().Click(theSession.ControlAt(theStep.theFirst)));
     }},
    {"PersonChoosesInPopUp",
     [](Session& theSession, const Step& theStep) {
         theSession.Heed(theSession.Person().ChooseInPopUp(theSession.ControlAt(theStep.theFirst), TextFrom(theStep.theSecond)));
     }},
    {"PersonDrags",
     [](Session& theSession, const Step& theStep) {
         theSession.Heed(theSession.Person().DragSlider(theSession.ControlAt(theStep.theFirst),
                                        Coordinate(theStep.theSecond, 0, 11)));
     }},
    {"PersonPresses",
     [](Session& theSession, const Step& theStep) {
         static const UInt32 kKeys[] = {kVK_Tab,       kVK_Return,    kVK_Space,  kVK_LeftArrow, kVK_RightArrow,
                                        kVK_UpArrow,   kVK_DownArrow, kVK_Escape, kVK_ANSI_K,    kVK_ANSI_J,
                                        kVK_Delete};
         static const UInt32 kModifiers[] = {0, 0, shiftKey, cmdKey};
         theSession.Heed(theSession.Person().PressKey(kKeys[theStep.theFirst % std::size(kKeys)],
                                      kModifiers[theStep.theSecond % std::size(kModifiers)]));
     }},
    {"PersonTypes",
     [](Session& theSession, const Step& theStep) {
         theSession.Heed(theSession.Person().TypeText(theStep.theFirst % 2 == 0 ? "ab" : "c\t"));
     }},
    {"PersonCloses",
     [](Session& theSession, const Step& theStep) {
         theSession.Heed(theSession.Person().CloseWindow(theSession.WindowAt(theStep.theFirst)));
     }},
    {"PersonMoves",
     [](Session& theSession, const Step& theStep) {
         theSession.Heed(theSession.Person().MoveWindow(theSession.WindowAt(theStep.theFirst),
                                        Coordinate(theStep.theSecond, 0, 500),
                                        Coordinate(theStep.theThird, 50, 400)));
     }},
    {"PersonResizes",
     [](Session& theSession, const Step& theStep) {
         theSession.Heed(theSession.Person().ResizeWindow(theSession.WindowAt(theStep.theFirst),
                                          Coordinate(theStep.theSecond, 100, 300),
                                          Coordinate(theStep.theThird, 100, 300)));
     }},
    {"PersonZooms",
     [](Session& theSession, const Step& theStep) {
         theSession.Heed(theSession.Person().ZoomWindow(theSession.WindowAt(theStep.theFirst)));
     }},
    {"PersonCollapses",
     [](Session& theSession, const Step& theStep) {
         theSession.Heed(theSession.Person().CollapseWindow(theSession.WindowAt(theStep.theFirst)));
     }},
    {"PersonExpands",
     [](Session& theSession, const Step& theStep) {
         theSession.Heed(theSession.Person().ExpandWindow(theSession.WindowAt(theStep.theFirst)));
     }},
    {"PersonActivates",
     [](Session& theSession, const Step& theStep) {
         theSession.Heed(theSession.Person().ActivateWindow(theSession.WindowAt(theStep.theFirst)));
     }},
    {"PersonOpensMenu",
     [](Session& theSession, const Step& theStep) {
         if (const WatchedMenu* theMenu = theSession.MenuAt(theStep.theFirst)) {
             theSession.Heed(theSession.Person().OpenMenu(theMenu->Name()));
         }
     }},
    {"PersonClosesMenus", [](Session& theSession, const Step&) { theSession.Heed(theSession.Person().CloseMenus()); }},
    {"PersonChooses",
     [](Session& theSession, const Step& theStep) {
         theSession.Heed(theSession.Person().ChooseCommand(CommandFrom(theStep.theFirst)));
     }},
};

// What a session needs most of, and what would be rare if every action were as likely as any other.
const char* const kMakers[] = {"NewWindow", "NewControl", "NewControl",  "NewControl",
                               "NewMenu",   "AppendItem", "SetPopUpMenu"};

// The place of an action; one behind the last when there is none of that name.
size_t ActionNamed(const std::string& theName)
{
    const auto theFound = std::find_if(std::begin(kActions), std::end(kActions),
                                       [&](const Action& theOne) { return theOne.theName == theName; });
    return static_cast<size_t>(theFound - std::begin(kActions));
}

// Making --------------------------------------------------------------------------------------------------

void Session::AddWindow(const Step& theStep)
{
    static const WindowClass kClasses[] = {kDocumentWindowClass, kDocumentWindowClass, kFloatingWindowClass,
                                           kMovableModalWindowClass, kPlainWindowClass};
    static const WindowAttributes kAttributes[] = {
        kWindowStandardDocumentAttributes | kWindowStandardHandlerAttribute,
        kWindowStandardDocumentAttributes | kWindowStandardHandlerAttribute | kWindowCompositingAttribute,
        kWindowCloseBoxAttribute | kWindowStandardHandlerAttribute, kWindowNoAttributes};
    const WindowClass theClass = kClasses[theStep.theFirst % std::size(kClasses)];
    const WindowAttributes theAttributes = kAttributes[theStep.theSecond % std::size(kAttributes)];
    const short theLeft = Coordinate(theStep.theThird, 0, 400);
    const short theTop = Coordinate(theStep.theThird / 400, 60, 300);
    const Rect theBounds = {theTop, theLeft, static_cast<short>(theTop + 240),
                            static_cast<short>(theLeft + 400)};
    WindowRef theWindow = nullptr;
    if (CountLiving(mWindows) < kMostWindows &&
        CreateNewWindow(theClass, theAttributes, &theBounds, &theWindow) == noErr) {
        mWindows.push_back(
            std::make_unique<WatchedWindow>("window " + std::to_string(mWindows.size()), theWindow, mCourse));
        ShowWindow(theWindow);
    }
}

void Session::AddControl(const Step& theStep)
{
    const WindowRef theWindow = theStep.theThird % 16 == 0 ? nullptr : WindowAt(theStep.theSecond);
    ControlRef theControl = nullptr;
    if (CountLiving(mControls) < kMostControls &&
        MakeControl(theStep.theFirst, theWindow, BoundsFrom(theStep.theThird), &theControl) == noErr) {
        mControls.push_back(std::make_unique<WatchedControl>("control " + std::to_string(mControls.size()),
                                                             theControl, mCourse));
    }
}

void Session::AddMenu(const Step& theStep)
{
    MenuRef theMenu = nullptr;
    const auto theNumber = static_cast<MenuID>(100 + mMenus.size());
    if (CountLiving(mMenus) >= kMostMenus || CreateNewMenu(theNumber, 0, &theMenu) != noErr) {
        return;
    }
    const std::string theTitle = "menu " + std::to_string(mMenus.size());
    SetMenuTitleWithCFString(theMenu, Name(theTitle));
    mMenus.push_back(std::make_unique<WatchedMenu>(theTitle, theMenu, mCourse));
    if (theStep.theFirst % 2 == 0) {
        InsertMenu(theMenu, 0);
    }
}

void Session::TakeStatesOfPlaces()
{
    for (const auto& theControl : mControls) {
        if (theControl->IsAlive()) {
            theControl->TakeStatesOfItsPlace();
        }
    }
}

// Playing -------------------------------------------------------------------------------------------------

void Session::Do(const Step& theStep)
{
    kActions[theStep.theAction].theFunction(*this, theStep);
}

void Session::SetTrap(const Step& theWhen, const Step& theThen)
{
    mHasTrap = true;
    mEventsToTrap = theWhen.theFirst % 6;
    mTrapped = theThen;
}

void Session::EventArrived(const std::string& theName, EventRef theEvent)
{
    Write(theName + " hears " + CodeText(GetEventClass(theEvent)) + " " +
          std::to_string(GetEventKind(theEvent)));
    if (mHasTrap && mEventsToTrap-- == 0) {
        mHasTrap = false;
        mCourse.theIsNested = true;
        const Step theStep = mTrapped;
        Do(theStep);
    }
}

template <class Action>
void Session::ForEach(const Action& theAction) const
{
    for (const auto& theWindow : mWindows) {
        theAction(*theWindow);
    }
    for (const auto& theControl : mControls) {
        theAction(*theControl);
    }
    for (const auto& theMenu : mMenus) {
        theAction(*theMenu);
    }
}

template <class Function>
void Session::DoSteps(const Script& theScript, const Function& theFunction)
{
    for (size_t theNumber = 0; theNumber < theScript.size(); ++theNumber) {
        const Step& theStep = theScript[theNumber];
        if (theStep.theAction == kInHandler && theNumber + 1 < theScript.size()) {
            SetTrap(theStep, theScript[++theNumber]);
            continue;
        }
        mCourse.theIsNested = false;
        Do(theStep);
        RunCurrentEventLoop(0);
        if (!theFunction(theNumber)) {
            break;
        }
    }
    mHasTrap = false;
}

std::string Session::Play(const Script& theScript)
{
    Promises thePromises;
    std::string theWhere;
    DoSteps(theScript, [&](size_t theNumber) {
        theWhere = "after step " + std::to_string(theNumber + 1);
        Check(thePromises);
        return thePromises.Broken().empty();
    });
    DisposeEverything();
    if (thePromises.Broken().empty()) {
        theWhere = "at the end";
        CheckEnd(thePromises);
    }
    return thePromises.Broken().empty() ? std::string() : theWhere + ": " + thePromises.Broken();
}

Lines Session::Record(const Script& theScript)
{
    Lines theLines;
    mLines = &theLines;
    // Wherever an earlier session has left the pointer.
    Host::PresenterRegistry::Events().PointerMoved(Host::PointerAction());
    DoSteps(theScript, [&](size_t theNumber) {
        WriteState();
        Write("-- this was step " + std::to_string(theNumber + 1) + ", " +
              kActions[theScript[theNumber].theAction].theName);
        return true;
    });
    DisposeEverything();
    WriteState();
    mLines = nullptr;
    return theLines;
}

void Session::Write(const std::string& theLine)
{
    if (mLines != nullptr && !theLine.empty()) {
        mLines->push_back(theLine);
    }
}

// What the calls report, and what a presenter would show that starts now.
void Session::WriteState()
{
    ForEach([&](const WatchedObject& theObject) {
        Write(theObject.IsAlive() ? theObject.Describe() : theObject.Name() + " is gone");
    });
    Host::HeadlessSnapshot theFresh;
    Host::PresenterRegistry::ReplayLooks(theFresh);
    std::istringstream thePicture(theFresh.DescribeScreen());
    for (std::string theLine; std::getline(thePicture, theLine);) {
        Write(theLine);
    }
}

// Promises ------------------------------------------------------------------------------------------------

void Session::Check(Promises& thePromises) const
{
    ForEach([&](const WatchedObject& theObject) {
        theObject.CheckLife(thePromises);
        if (theObject.IsAlive()) {
            theObject.Check(Screen(), thePromises);
        }
    });
    thePromises.Expect(mCourse.theIdleEvent.empty(), mCourse.theIdleEvent);
    CheckFocus(thePromises);
    CheckPicture(thePromises);
}

// The focus is on something that is there: of each window, and of all.
void Session::CheckFocus(Promises& thePromises) const
{
    for (const auto& theWindow : mWindows) {
        ControlRef theFocused = nullptr;
        if (theWindow->IsAlive() && GetKeyboardFocus(theWindow->Get(), &theFocused) == noErr &&
            theFocused != nullptr) {
            thePromises.Expect(GetControlOwner(theFocused) == theWindow->Get(),
                               theWindow->Name() + ": the focus is on a control of another window");
        }
    }
    // ShowHide hides the active window without taking that from it.
    const WindowRef theKeys = GetUserFocusWindow();
    const bool theIsSeen = IsWindowVisible(theKeys) != 0 && IsWindowCollapsed(theKeys) == 0;
    thePromises.Expect(theKeys == nullptr || theIsSeen || IsWindowActive(theKeys) != 0,
                       "keys go to a window that can neither be seen nor is active");
}

// What the presenter was told step by step is what one is told that starts now.
void Session::CheckPicture(Promises& thePromises)
{
    Host::HeadlessSnapshot theFresh;
    Host::PresenterRegistry::ReplayLooks(theFresh);
    const std::string theOld = Screen().DescribeScreen();
    const std::string theNew = theFresh.DescribeScreen();
    thePromises.Expect(theOld == theNew, "the picture is\n" + theOld + "and should be\n" + theNew);
}

void Session::DisposeEverything()
{
    mPerson.CloseMenus();
    for (const auto& theWindow : mWindows) {
        DisposeWindow(theWindow->Get());
    }
    for (const auto& theControl : mControls) {
        DisposeControl(theControl->Get());
    }
    ClearMenuBar();
    for (const auto& theMenu : mMenus) {
        DeleteMenu(GetMenuID(theMenu->Get()));
        theMenu->Release();
    }
    RunCurrentEventLoop(0);
}

void Session::CheckEnd(Promises& thePromises) const
{
    ForEach([&](const WatchedObject& theObject) {
        thePromises.Expect(!theObject.IsAlive(), theObject.Name() + " was disposed and is there");
        theObject.CheckLife(thePromises);
    });
    thePromises.Expect(GetWindowList() == nullptr, "there is a window");
    CheckPicture(thePromises);
    thePromises.Expect(Screen().WindowsFrontToBack().empty() && Screen().MenuBar().theMenus.empty(),
                       "there is something on the screen");
}

} // namespace

// Scripts -------------------------------------------------------------------------------------------------

Script RandomScript(unsigned theSeed, size_t theLength)
{
    std::mt19937 theNumbers(theSeed);
    const auto theNext = [&] { return static_cast<unsigned>(theNumbers() & 0xFFFFF); };
    Script theScript;
    theScript.reserve(theLength);
    while (theScript.size() < theLength) {
        Step theStep;
        const bool theIsMaking = theNext() % 4 == 0;
        theStep.theAction = theIsMaking ? ActionNamed(kMakers[theNext() % std::size(kMakers)])
                                        : theNext() % std::size(kActions);
        theStep.theFirst = theNext();
        theStep.theSecond = theNext();
        theStep.theThird = theNext();
        theScript.push_back(theStep);
    }
    return theScript;
}

namespace {

const size_t kLength = 250;

unsigned NumberInEnvironment(const char* theName, unsigned theDefault)
{
    const char* const theText = std::getenv(theName);
    return theText == nullptr ? theDefault : static_cast<unsigned>(std::strtoul(theText, nullptr, 10));
}

} // namespace

std::vector<unsigned> SeedsToPlay(unsigned theCount)
{
    std::vector<unsigned> theSeeds(NumberInEnvironment("LM_RANDOM_SESSIONS", theCount));
    std::iota(theSeeds.begin(), theSeeds.end(), NumberInEnvironment("LM_RANDOM_SEED", 1));
    return theSeeds;
}

Script ScriptToPlay(unsigned theSeed)
{
    const char* const theFile = std::getenv("LM_RANDOM_SCRIPT");
    if (theFile == nullptr) {
        return RandomScript(theSeed, kLength);
    }
    std::ifstream theText(theFile);
    return ReadScript(theText);
}

std::string PlayScript(const Script& theScript)
{
    Screen();
    return Session().Play(theScript);
}

Lines RecordScript(const Script& theScript)
{
    return Session().Record(theScript);
}

namespace {

// Leaves out every piece of that length that is not needed; false when all are.
bool LeaveOut(size_t theLength, const Failure& theFailure, Script* theScript)
{
    bool theIsShorter = false;
    for (size_t theStart = 0; theStart < theScript->size();) {
        Script theRest = *theScript;
        const auto theFirst = theRest.begin() + static_cast<std::ptrdiff_t>(theStart);
        const size_t theCount = std::min(theLength, theRest.size() - theStart);
        theRest.erase(theFirst, theFirst + static_cast<std::ptrdiff_t>(theCount));
        if (theFailure(theRest)) {
            *theScript = std::move(theRest);
            theIsShorter = true;
        } else {
            theStart += theLength;
        }
    }
    return theIsShorter;
}

} // namespace

Script Shortest(Script theScript, const Failure& theFailure)
{
    for (size_t theLength = theScript.size(); theLength > 1; theLength /= 2) {
        LeaveOut(theLength, theFailure, &theScript);
    }
    while (LeaveOut(1, theFailure, &theScript)) {
    }
    return theScript;
}

std::string Describe(const Script& theScript)
{
    std::ostringstream theText;
    for (const Step& theStep : theScript) {
        theText << kActions[theStep.theAction].theName << ' ' << theStep.theFirst << ' ' << theStep.theSecond
                << ' ' << theStep.theThird << '\n';
    }
    return theText.str();
}

Script ReadScript(std::istream& theText)
{
    Script theScript;
    std::string theName;
    Step theStep;
    while (theText >> theName >> theStep.theFirst >> theStep.theSecond >> theStep.theThird) {
        theStep.theAction = ActionNamed(theName);
        if (theStep.theAction == std::size(kActions)) {
            break;
        }
        theScript.push_back(theStep);
    }
    return theScript;
}
