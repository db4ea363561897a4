// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef HeadlessSnapshot_h
#define HeadlessSnapshot_h

#include <map>

#include <Presentation/Picture.h>
#include <Presentation/Presenter.h>

namespace Host {

// What the screen would show: a presenter that remembers the looks and shows nothing.
//
// Filled by being the presenter in use, or at any moment by PresenterRegistry::ReplayLooks. The pointers
// that it gives out are valid until the next look arrives.
class HOST_PUBLIC HeadlessSnapshot : public Presenter
{
public:
    void Stop() override;
    void WindowLooks(const WindowLook& theLook) override;
    void WindowGone(ObjectId theWindow) override;
    void ControlLooks(const ControlLook& theLook) override;
    void ControlGone(ObjectId theControl) override;
    void MenuBarLooks(const MenuBarLook& theLook) override;
    void FocusIsAt(ObjectId theWindow, ObjectId theControl) override;
    void PointerLooks(const PointerLook& theLook) override;
    void Beep() override;

    // Asking ------------------------------------------------------------------------------------------

    // Null when there is no such window or control.
    const WindowLook* FindWindow(ObjectId theWindow) const;
    const ControlLook* FindControl(ObjectId theControl) const;

    // All windows, the frontmost first.
    std::vector<const WindowLook*> WindowsFrontToBack() const;

    // The controls directly in theParent, or the roots of theWindow for kNoObject, the backmost first.
    std::vector<const ControlLook*> ControlsIn(ObjectId theWindow, ObjectId theParent) const;

    const MenuBarLook& MenuBar() const { return mMenuBar; }
    ObjectId FocusedWindow() const { return mFocusedWindow; }
    ObjectId FocusedControl() const { return mFocusedControl; }
    const PointerLook& Pointer() const { return mPointer; }

    // How often the person was asked for attention since the presenter was made.
    int Beeps() const { return mBeeps; }

    // What programs have drawn into the views of a window, over white, one view over the other: the controls
    // are not in it. As fine as the finest of them; empty for a window that is not there.
    Picture DrawingOf(ObjectId theWindow) const;

    // Telling -----------------------------------------------------------------------------------------

    // The whole screen as text, made to be read: the menu bar's titles, then each window from front to back
    // with its controls as a tree. A hidden or collapsed window is one line. Ends with a line end; a screen
    // with nothing on it reads "Nothing is on the screen."
    std::string DescribeScreen() const;

    // One control without the controls in it, as in the window's tree and without a line end.
    std::string DescribeControl(ObjectId theControl) const;

    // The items of a menu, one a line, as they appear when the menu is open.
    static std::string DescribeMenu(const MenuLook& theMenu);

private:
    void DrawBranches(ObjectId theWindow, ObjectId theParent, Picture& theGround) const;
    std::string DescribeMenuBar() const;
    std::string DescribeWindow(const WindowLook& theWindow) const;
    std::string DescribeBranches(ObjectId theWindow, ObjectId theParent, const std::string& theIndent) const;
    std::string DescribeBranch(const ControlLook& theControl, const std::string& theIndent) const;

    std::map<ObjectId, WindowLook> mWindows;
    std::map<ObjectId, ControlLook> mControls;
    MenuBarLook mMenuBar;
    ObjectId mFocusedWindow = kNoObject;
    ObjectId mFocusedControl = kNoObject;
    PointerLook mPointer;
    int mBeeps = 0;
};

} // namespace Host

#endif
