// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Describe.h"

#include "Text.h"

#include <array>
#include <string_view>

namespace Inspect {

namespace {

struct ActionName
{
    std::string_view theEvent;
    std::string_view theDeed;
};

constexpr std::array<ActionName, 21> kActions = {
    {{"kEventMouseDown", "pressed the mouse"},
     {"kEventMouseUp", "released the mouse"},
     {"kEventMouseDragged", "dragged the mouse"},
     {"kEventMouseMoved", "moved the mouse"},
     {"kEventMouseWheelMoved", "turned the wheel"},
     {"kEventRawKeyDown", "pressed a key"},
     {"kEventRawKeyRepeat", "held a key down"},
     {"kEventRawKeyUp", "released a key"},
     {"kEventRawKeyModifiersChanged", "pressed or released a modifier key"},
     {"kEventCommandProcess", "chose a menu item"},
     {"kEventMenuOpening", "opened a menu"},
     {"kEventMenuClosed", "closed a menu"},
     {"kEventWindowDragStarted", "moved a window"},
     {"kEventWindowResizeStarted", "resized a window"},
     {"kEventWindowActivated", "brought a window to the front"},
     {"kEventWindowClose", "asked a window to close"},
     {"kEventWindowZoom", "zoomed a window"},
     {"kEventWindowCollapse", "collapsed a window"},
     {"kEventWindowExpand", "expanded a window"},
     {"kEventTextInputUnicodeForKeyEvent", "edited a text"},
     {"kEventAppQuit", "asked the program to quit"}}};

// Its name, or its class and number: kEventMouseDown, event 1 of the class 'mous'.
std::string ShowEvent(const Entry& theEntry)
{
    if (!theEntry.theText.empty()) {
        return Escape(theEntry.theText);
    }
    return "event " + std::to_string(theEntry.theCode) + " of the class '" + Escape(theEntry.theDetail) + "'";
}

std::string ShowPlace(const Entry& theEntry)
{
    if (!theEntry.thePlace) {
        return {};
    }
    Value theX;
    theX.theKind = Value::Kind::Double;
    theX.theDouble = theEntry.thePlace->first;
    Value theY = theX;
    theY.theDouble = theEntry.thePlace->second;
    return " at " + Show(theX) + ", " + Show(theY);
}

std::string Through(const Entry& theEntry)
{
    return theEntry.theTransform.theID == 0 ? std::string()
                                            : " through " + Escape(theEntry.theTransform.theClass);
}

std::string Key(const Entry& theEntry)
{
    return ShowKey(theEntry.theObject, theEntry.theKey);
}

std::string OtherKey(const Entry& theEntry)
{
    return ShowKey(theEntry.theOther, theEntry.theOtherKey);
}

std::string Arrow(const Value& theOld, const Value& theNew)
{
    return Show(theOld) + " -> " + Show(theNew);
}

std::string DescribeMade(const Entry& theEntry)
{
    return ShowObject(theEntry.theObject) + " (" + Escape(theEntry.theObject.theClass) + ") was made" +
           (theEntry.theText.empty() ? "" : ": a " + Escape(theEntry.theText));
}

std::string DescribeDiagnostic(const Entry& theEntry)
{
    return "diagnostic: " + Escape(theEntry.theDetail) + ", line " + std::to_string(theEntry.theCode) + ": " +
           Escape(theEntry.theText);
}

} // namespace

std::string DescribeAction(const Entry& theEntry)
{
    std::string theDeed = "did something";
    for (const ActionName& theAction : kActions) {
        if (theAction.theEvent == theEntry.theText) {
            theDeed = theAction.theDeed;
        }
    }
    const std::string theKey =
        theEntry.theKeyCode ? ", key code " + std::to_string(*theEntry.theKeyCode) : std::string();
    const std::string theTitle =
        theEntry.theTitle.empty() ? std::string() : ", \"" + Escape(theEntry.theTitle) + "\"";
    return "a person " + theDeed + theTitle + ShowPlace(theEntry) + theKey + " (" + ShowEvent(theEntry) + ")";
}

std::string DescribeEquality(const Entry& theEntry)
{
    if (AreDifferentNumbers(theEntry.theNew, theEntry.theGoal)) {
        return Show(theEntry.theGoal) + " equals " + Show(theEntry.theNew) +
               ", since numbers are compared as integers";
    }
    return "it is " + Show(theEntry.theNew) + " already";
}

std::string Describe(const Entry& theEntry)
{
    switch (theEntry.theWhat) {
    case What::Unknown:
        return "an entry of a kind that this program does not know";
    case What::Begin:
        return "the journal begins, file " + std::to_string(theEntry.theFile) + ", started " +
               Escape(theEntry.theDetail);
    case What::End:
        return "the journal ends";
    case What::Lost:
        return Count(theEntry.theCode, "entry was", "entries were") + " lost";
    case What::Module:
        return "code of " + Escape(theEntry.theModule.thePath) + " at " +
               ShowAddress(theEntry.theModule.theBase);
    case What::Made:
        return DescribeMade(theEntry);
    case What::Named:
        return "object " + std::to_string(theEntry.theObject.theID) + " (" +
               Escape(theEntry.theObject.theClass) + ") is called " + ShowObject(theEntry.theObject);
    case What::Destroyed:
        return ShowObject(theEntry.theObject) + " is destroyed";
    case What::Observe:
        return ShowObject(theEntry.theOther) + " begins to observe " + Key(theEntry);
    case What::Unobserve:
        return ShowObject(theEntry.theOther) + " no longer observes " + Key(theEntry);
    case What::Depend:
        return Key(theEntry) + ": \"" + Escape(theEntry.theOtherKey) + "\" depends on it from now on";
    case What::Undepend:
        return Key(theEntry) + ": \"" + Escape(theEntry.theOtherKey) + "\" no longer depends on it";
    case What::Bind:
        return Key(theEntry) + " is bound to " + OtherKey(theEntry) + Through(theEntry);
    case What::Unbind:
        return Key(theEntry) + " is no longer bound to " + OtherKey(theEntry);
    case What::Changing:
        return Key(theEntry) + " is about to change: " + Arrow(theEntry.theOld, theEntry.theGoal);
    case What::Changed:
        return Key(theEntry) + ": " + Arrow(theEntry.theOld, theEntry.theNew);
    case What::Equal:
        return Key(theEntry) + " stays: " + DescribeEquality(theEntry);
    case What::Refused:
        return Key(theEntry) + " stays " + Show(theEntry.theNew) + ": the set of " + Show(theEntry.theGoal) +
               " is nested in itself too deep";
    case What::Told:
        return Key(theEntry) + " is " + Show(theEntry.theNew) + ": it depends on \"" +
               Escape(theEntry.theOtherKey) + "\"";
    case What::Notify:
        return Key(theEntry) + ": its store says that it " +
               (theEntry.isDone ? "has changed to " : "is changing, from ") + Show(theEntry.theNew);
    case What::Transform:
        return Escape(theEntry.theTransform.theClass) + ": " + Arrow(theEntry.theOld, theEntry.theNew);
    case What::Update:
        return Key(theEntry) + " gets " + Show(theEntry.theGoal) + " from " + OtherKey(theEntry);
    case What::Action:
        return DescribeAction(theEntry);
    case What::Event:
        return ShowObject(theEntry.theObject) + " is told of " + ShowEvent(theEntry);
    case What::Read:
        return "preference " + Key(theEntry) + " is read: " + Show(theEntry.theNew);
    case What::Write:
        return "preference " + Key(theEntry) + " is set: " + Show(theEntry.theGoal);
    case What::Flush:
        return ShowObject(theEntry.theObject) +
               (theEntry.isDone ? " is written to its file" : " could not be written to its file");
    case What::Diagnostic:
        return DescribeDiagnostic(theEntry);
    }
    return {};
}

} // namespace Inspect
