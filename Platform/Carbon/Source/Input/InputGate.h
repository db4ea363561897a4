// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Input_InputGate_h
#define Input_InputGate_h

#include "Windows/Controls.h"

#include <optional>
#include <Presentation/PresenterEvents.h>
#include <set>

namespace Host {

// The gate as the managers keep it: turns what a person did into Carbon events and requests to the managers.
//
// It delivers and nothing more. What a press or a key does when no handler of the program wants it is the
// managers' default handling of the event. The gate knows only what no manager needs to know: which buttons
// and keys are down, and which window the pointer was pressed in.
class InputGate : public PresenterEvents
{
public:
    bool PointerPressed(const PointerAction& theAction) override;
    bool PointerMoved(const PointerAction& theAction) override;
    bool PointerReleased(const PointerAction& theAction) override;
    bool WheelTurned(const WheelAction& theAction) override;

    bool KeyPressed(const KeyAction& theAction) override;
    bool KeyRepeated(const KeyAction& theAction) override;
    bool KeyReleased(const KeyAction& theAction) override;
    bool ModifiersChanged(std::uint32_t theModifiers) override;

    bool WasTaken() const override { return mWasTaken; }

    bool ControlDragged(const ControlDrag& theDrag) override;
    bool PartPressed(const PartPress& thePress) override;
    bool TextEdited(const TextEdit& theEdit) override;

    bool CloseAsked(ObjectId theWindow) override;
    bool ZoomAsked(ObjectId theWindow) override;
    bool CollapseAsked(ObjectId theWindow, bool theIsCollapse) override;
    bool WindowShown(ObjectId theWindow) override;
    bool WindowMoved(ObjectId theWindow, PixelPoint theContentTopLeft) override;
    bool WindowResized(ObjectId theWindow, PixelSize theContentSize) override;
    bool WindowActivated(ObjectId theWindow) override;

    bool MenuOpened(ObjectId theMenu) override;
    bool MenuChosen(const MenuChoice& theChoice, std::uint32_t theModifiers) override;
    bool MenuClosed(ObjectId theMenu) override;

    bool OpenAsked(const std::vector<std::string>& theFiles) override;
    bool PrintAsked(const std::vector<std::string>& theFiles) override;
    bool ReopenAsked() override;
    bool QuitAsked() override;
    double FireTimers() override;

    // Forgets what is held down: whoever has reported it will not report the release.
    void LetGo();

private:
    void TellState() const;
    bool Deliver(UInt32 theKind, const KeyAction& theAction);
    bool PressPart(const SharedControl& theControl, ControlPartCode thePart, std::uint32_t theModifiers);
    bool SendMove(const PointerAction& theAction, std::optional<SInt32> theExactValue = std::nullopt);
    bool SendRelease(const PointerAction& theAction, std::optional<SInt32> theExactValue = std::nullopt);
    bool DragIndicator(const ControlDrag& theDrag);

    ObjectId mPressedWindow = kNoObject;  // where the first button went down; none while no button is down
    ObjectId mTrackedControl = kNoObject; // that the presenter tracks itself
    std::uint32_t mButtonsDown = 0;       // bit 0 is the primary button
    std::uint32_t mModifiers = 0;
    PixelPoint mPlace; // where the pointer was last
    std::set<std::uint32_t> mKeysDown;
    bool mWasTaken = false; // the key, press or turn of the wheel that was reported last
};

} // namespace Host

#endif
