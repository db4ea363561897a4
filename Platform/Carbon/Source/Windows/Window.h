// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Windows_Window_h
#define Windows_Window_h

#include "Control.h"
#include "WindowGroups.h"
#include "Windows.h"

namespace Host {

// What the classes of windows differ in.
struct WindowTraits
{
    WindowClass theClass;
    WindowShape theShape;
    StandardGroup theGroup;
    int theTitleHeight; // 0 without a title bar
    int theFrame;       // at the other sides
    WindowModality theModality;
    WindowActivationScope theScope;
    WindowAttributes theAllowed; // of the attributes that depend on the class
    WindowAttributes theAllowedLater;
};

// The traits of a class, or null when there is no such class.
const WindowTraits* TraitsOf(WindowClass theClass);

// A window.
//
// Life: the table of references holds one count, and so does whoever sends an event, for as long. The
// application's own references are counted by RetainWindow and ReleaseWindow; with the last one Close runs,
// from inside whatever handler released it. The object then lives on, marked as gone, until the last call on
// the way has returned.
class Window : public std::enable_shared_from_this<Window>
{
public:
    Window(const WindowTraits& theTraits, WindowAttributes theAttributes, const Rect& theContent);
    ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    // Makes the target, the reference and the place in the order; a window that there is no memory for is
    // closed again.
    OSStatus Begin();

    // Identity.
    ObjectId Identifier() const { return mIdentifier; }
    WindowRef Reference() const;
    EventTargetRef Target() const { return mTarget; }
    bool IsGone() const { return mIsGone; }
    bool IsClosing() const { return mIsClosing; }
    const WindowTraits& Traits() const { return mTraits; }
    WindowAttributes Attributes() const { return mAttributes; }
    bool Has(WindowAttributes theAttribute) const { return (mAttributes & theAttribute) != 0; }
    void SetAttributes(WindowAttributes theAttributes);

    // Life.
    void Retain() { ++mReferences; }
    void Release();
    ItemCount References() const { return mReferences; }

    // State.
    bool IsVisible() const { return mIsVisible; }
    bool IsCollapsed() const { return mIsCollapsed; }
    bool IsActive() const { return mIsActive; }
    bool TakesPart() const; // on the screen
    void SetVisible(bool theIsOn);
    void SetCollapsed(bool theIsOn);
    void SetActive(bool theIsOn);
    const Text& Title() const { return mTitle; }
    void SetTitle(Text theTitle);
    bool IsModified() const { return mIsModified; }
    void SetModified(bool theIsOn);

    // Modality. A modal window keeps the person from all windows behind it; one of
    // kWindowModalityWindowModal, from the one that KeptOut answers.
    bool IsModal() const;
    WindowModality Modality() const { return mModality; }
    SharedWindow KeptOut() const { return mKeptOut.lock(); }
    void SetModality(WindowModality theModality, const SharedWindow& theKeptOut);
    int mModalStates = 0; // of BeginAppModalStateForWindow and modal loops

    // Sheets. The window that this one hangs from, and the sheet that hangs from this one; null for none.
    // A parent is retained.
    const SharedWindow& Parent() const { return mParent; }
    SharedWindow Sheet() const { return mSheet.lock(); }
    void HangFrom(const SharedWindow& theParent);
    void LetGoOfParent();

    // Order and activation.
    const SharedGroup& Group() const { return mGroup; }
    void JoinGroup(const SharedGroup& theGroup) { mGroup = theGroup; }
    SInt32 Layer() const; // of the front to back order; higher is further in front
    bool SharesActivity() const { return mScope == kWindowActivationScopeAll; } // at most one is active
    bool IsAlwaysActive() const { return mScope == kWindowActivationScopeIndependent; } // while shown
    WindowActivationScope Scope() const { return mScope; }
    void SetScope(WindowActivationScope theScope) { mScope = theScope; }

    // Bounds. The content, in global coordinates. SetContent asks and tells the handlers; theCause is added
    // to the attributes of its events, and theOriginal is where a drag by a person began.
    const Rect& Content() const { return mContent; }
    Rect Structure() const;
    Rect FrameWidths() const;                       // a side each
    Rect PlaceOf(WindowRegionCode theRegion) const; // empty for what the window does not have
    void SetContent(const Rect& theContent, UInt32 theCause = 0, const Rect* theOriginal = nullptr);

    // The control that holds all others; EnsureRoot makes it if need be.
    const SharedControl& Root() const { return mRoot; }
    SharedControl EnsureRoot();

    // Events to this window. Tell reaches every handler on the way to the application; Ask ends with the
    // first that handles it.
    void Tell(UInt32 theKind);
    void TellHere(UInt32 theKind); // not on to the application
    OSStatus Ask(UInt32 theKind);

    // Tells the presenter what the window looks like.
    void Show() const;
    WindowLook Look() const;

    // Plain data that nothing follows from.
    SRefCon mReference = {};
    short mKind = 8; // what the platform gives to windows of applications
    HISize mSmallest = {0, 0};
    HISize mLargest = {32767, 32767};
    Properties mProperties;
    std::weak_ptr<Control> mDefaultButton;
    std::weak_ptr<Control> mCancelButton;
    std::weak_ptr<Control> mFocus;
    ControlPartCode mFocusPart = kControlFocusNoPart;
    bool mIsFocusChosen = false;   // by the program, by the person, or as the first one
    Rect mUnzoomed = {0, 0, 0, 0}; // where a zoomed window came from; empty when it is not zoomed

private:
    void Close();
    void PlaceContent(const Rect& theContent);
    void PlaceSheet();
    void ShowSheet() const;
    void LetGoOfSheets();

    ObjectId mIdentifier = NewObjectId();
    const WindowTraits& mTraits;
    WindowAttributes mAttributes;
    EventTargetRef mTarget = nullptr;
    ItemCount mReferences = 1;
    bool mIsGone = false;
    bool mIsClosing = false;
    bool mIsVisible = false;
    bool mIsCollapsed = false;
    bool mIsActive = false;
    bool mIsModified = true;
    bool mIsModifiedKnown = false; // the program has said it; until then no screen should claim it
    WindowModality mModality;
    WindowActivationScope mScope;
    SharedGroup mGroup;
    std::weak_ptr<Window> mKeptOut;
    WindowModality mModalityOnItsOwn = kWindowModalityNone; // of a sheet, before it was one
    SharedWindow mParent;
    std::weak_ptr<Window> mSheet;
    Rect mContent;
    Text mTitle;
    SharedControl mRoot;
};

// Whether a window is another one, or hangs from it, directly or by the sheets in between.
bool HangsFrom(const SharedWindow& theWindow, const SharedWindow& theOther);

// The part of a window at a global point that lies in its structure.
WindowPartCode PartAt(const Window& theWindow, Point thePoint);

// The order of windows, frontmost first, and who is active in it. A new window stands in front of its layer;
// a closed one leaves the order.
void AddToOrder(const SharedWindow& theWindow);
void RemoveFromOrder(const SharedWindow& theWindow);
void PutInFront(const SharedWindow& theWindow);
void PutBehind(const SharedWindow& theWindow, const SharedWindow& theFront); // null: to the back of its layer
int IndexInOrder(const Window& theWindow);
SharedWindow ActiveWindow();

// Puts the sheets of a window right in front of it, each in front of the one that it hangs from.
void PutSheetsInFrontOf(const SharedWindow& theBase);

// The window came to another layer: to the front of it, or to the back.
void PutIntoLayer(const SharedWindow& theWindow, bool theIsFront);

// The window that a sheet hangs from in the end, and the sheet that hangs from a window in the end; the
// window itself when there is none.
SharedWindow BaseOf(const SharedWindow& theWindow);
SharedWindow TopSheetOf(const SharedWindow& theWindow);

// A window has moved: moves the others of a group whose windows move together.
void MoveGroupWith(const SharedWindow& theWindow, int theHorizontal, int theVertical);

// Keep the frontmost window that can be active the active one, and those that always are so. They send what
// that changes, and are called after the window was shown or expanded, hidden, collapsed or closed, or moved
// in the order.
void ActivateAfterShowing(const SharedWindow& theWindow);
void ActivateAfterHiding(const SharedWindow& theWindow);
void ActivateAfterReordering();

// Makes this window the active one, or none for null; the one before becomes inactive first.
void MakeActive(const SharedWindow& theWindow);

} // namespace Host

#endif
