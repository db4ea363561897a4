// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef RecordingGate_h
#define RecordingGate_h

#include <functional>
#include <string>
#include <vector>

#include <Presentation/PresenterEvents.h>

// A gate that notes what is reported to it, one line for each report: "moved 1 to 100,80".
class RecordingGate : public Host::PresenterEvents
{
public:
    using Reports = std::vector<std::string>;

    // What was reported since the last call.
    Reports Take()
    {
        Reports theReports;
        theReports.swap(mReports);
        return theReports;
    }

    // Called after each report, as a handler of the program would be.
    std::function<void(const std::string&)> mHandler;

    // The timers of the program.
    std::function<double()> mTimers;

    bool PointerPressed(const Host::PointerAction& theAction) override
    {
        return Note("pressed", theAction.theWindow);
    }
    bool PointerMoved(const Host::PointerAction& theAction) override
    {
        return Note("pointer moved over", theAction.theWindow);
    }
    bool PointerReleased(const Host::PointerAction& theAction) override
    {
        return Note("released", theAction.theWindow);
    }
    bool WheelTurned(const Host::WheelAction& theAction) override
    {
        return Note("wheel", theAction.theWindow);
    }
    bool KeyPressed(const Host::KeyAction& theAction) override { return Note("key", theAction.theKey); }
    bool KeyRepeated(const Host::KeyAction& theAction) override { return Note("repeat", theAction.theKey); }
    bool KeyReleased(const Host::KeyAction& theAction) override { return Note("key up", theAction.theKey); }
    bool ModifiersChanged(std::uint32_t theModifiers) override { return Note("modifiers", theModifiers); }
    bool ControlDragged(const Host::ControlDrag& theDrag) override
    {
        return Note("dragged", theDrag.theControl);
    }
    bool PartPressed(const Host::PartPress& thePress) override
    {
        return Note(thePress.theIsDown ? "part pressed" : "part released", thePress.theControl);
    }
    bool TextEdited(const Host::TextEdit& theEdit) override { return Note("edited", theEdit.theControl); }
    bool CloseAsked(Host::ObjectId theWindow) override { return Note("close", theWindow); }
    bool ZoomAsked(Host::ObjectId theWindow) override { return Note("zoom", theWindow); }
    bool CollapseAsked(Host::ObjectId theWindow, bool theCollapse) override
    {
        return Note(theCollapse ? "collapse" : "expand", theWindow);
    }
    bool WindowShown(Host::ObjectId theWindow) override { return Note("shown", theWindow); }
    bool WindowMoved(Host::ObjectId theWindow, Host::PixelPoint thePlace) override
    {
        return Note("moved", theWindow, " to ", thePlace.theX, thePlace.theY);
    }
    bool WindowResized(Host::ObjectId theWindow, Host::PixelSize theSize) override
    {
        return Note("resized", theWindow, " to ", theSize.theWidth, theSize.theHeight);
    }
    bool WindowActivated(Host::ObjectId theWindow) override { return Note("activated", theWindow); }
    bool MenuOpened(Host::ObjectId theMenu) override { return Note("menu opened", theMenu); }
    bool MenuChosen(const Host::MenuChoice& theChoice, std::uint32_t) override
    {
        return Note("menu chosen", theChoice.theMenu);
    }
    bool MenuClosed(Host::ObjectId theMenu) override { return Note("menu closed", theMenu); }
    bool QuitAsked() override { return Note("quit", 0); }
    double FireTimers() override { return mTimers ? mTimers() : -1; }

private:
    bool Note(const char* theWhat, std::uint32_t theWhom)
    {
        return Keep(std::string(theWhat) + " " + std::to_string(theWhom));
    }

    bool Note(const char* theWhat, std::uint32_t theWhom, const char* theWhere, int theOne, int theOther)
    {
        return Keep(std::string(theWhat) + " " + std::to_string(theWhom) + theWhere + std::to_string(theOne) +
                    "," + std::to_string(theOther));
    }

    bool Keep(const std::string& theReport)
    {
        mReports.push_back(theReport);
        if (mHandler) {
            mHandler(theReport);
        }
        return true;
    }

    Reports mReports;
};

#endif
