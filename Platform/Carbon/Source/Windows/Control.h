// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Windows_Control_h
#define Windows_Control_h

#include "Base/Properties.h"
#include "Base/Text.h"
#include "Controls.h"

#include <optional>
#include <Presentation/Presenter.h>

namespace Host {

// Value, range and view size, which change and are told of together.
struct ControlRange
{
    SInt32 theValue = 0;
    SInt32 theMinimum = 0;
    SInt32 theMaximum = 0;
    SInt32 theViewSize = 0;

    // The nearest value inside; the minimum of a range that ends before it starts.
    SInt32 Nearest(SInt32 theWanted) const;
};

bool operator==(const ControlRange& theOne, const ControlRange& theOther);

// The three states that a control shares with everything around it.
enum class ControlState : unsigned
{
    kVisible = 1,
    kEnabled = 2,
    kActive = 4,
};

// Those of them that are on.
class ControlStates
{
public:
    bool Has(ControlState theState) const { return (mBits & static_cast<unsigned>(theState)) != 0; }
    void Set(ControlState theState, bool theIsOn);
    ControlStates operator&(ControlStates theOther) const;

private:
    static constexpr unsigned kAll = 7;

    unsigned mBits = kAll;
};

// One tag of Get/SetControlData.
struct ControlDataTag
{
    // The size of data that has as many bytes as its text.
    static constexpr Size kBytes = -1;

    ResType theTag;
    Size theSize;

    // Null when the tag is for writing, or for reading only. The read function fills a buffer of at least
    // theSize bytes; for kBytes it fills no buffer but gives the bytes.
    void (*theRead)(const Control& theControl, void* theBuffer);
    OSErr (*theWrite)(Control& theControl, const void* theData, size_t theSize);
    std::string (*theReadBytes)(const Control& theControl);

    // The same for data that each part has its own of; whichever sizes there are is up to them. theReadPart
    // is given the size of the buffer and sets it to that of the data; the buffer is null when only that is
    // asked for.
    OSErr (*theReadPart)(const Control& theControl, ControlPartCode thePart, void* theBuffer,
                         Size* theSize) = nullptr;
    OSErr (*theWritePart)(Control& theControl, ControlPartCode thePart, const void* theData,
                          size_t theSize) = nullptr;
};

// A key that no handler wanted, on its way through the default handling of the focused control and its
// window.
struct KeyPress
{
    UInt32 theCode = 0;
    UInt32 theModifiers = 0;
    Text theText;
};

// The command that a click on a part sends, 0 for none, and where it starts.
struct PartCommand
{
    UInt32 theCommand;
    EventTargetRef theTarget;
};

// A control.
//
// Life: the table of references and the control's container each hold one count; whoever sends an event holds
// one for as long. DisposeControl takes the first two away, so a control that is disposed in its own handler
// lives on, marked as gone, until the call that sent the event has returned. After every event ask IsGone
// before touching anything that leads outward. The container and the window are held weakly.
class Control : public std::enable_shared_from_this<Control>
{
public:
    Control(OSType theKind, UInt32 theFeatures);
    virtual ~Control();
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    // Identity.
    ObjectId Identifier() const { return mIdentifier; }
    ControlRef Reference() const;
    OSType Kind() const { return mKind; }
    UInt32 Features() const { return mFeatures; }
    void SetFeatures(UInt32 theFeatures) { mFeatures = theFeatures; }
    EventTargetRef Target() const { return mTarget; }
    EventTargetRef TargetAround() const; // the container's, the window's or the application's
    bool IsGone() const { return mIsGone; }
    bool IsGoing() const { return mIsGoing; } // from the start of its disposal

    // What CFRetain and CFRelease count; the last release disposes it. Roots go with their windows.
    CFIndex Count() const { return mCount; }
    void Retain() { ++mCount; }
    void Release();

    // Place.
    const std::vector<SharedControl>& SubControls() const { return mSubControls; }
    SharedControl Parent() const { return mParent.lock(); }
    SharedWindow Owner() const;
    bool IsRoot() const { return mIsRoot; }
    bool IsInside(const Control& theContainer) const; // or is it
    bool IsInCompositingWindow() const;               // so its bounds count from the one around it
    bool CanEmbed() const;

    // The way to it from the root, as places in what holds it: containers come before what they hold.
    std::vector<size_t> Path() const;

    // Life. Begin makes the target and the reference; the others are the steps of EmbedControl and
    // DisposeControl, whose checks are made by the caller. Join puts the control in front of what
    // theContainer holds.
    void Begin(const SharedWindow& theOwner, const Rect& theBounds, const Text& theTitle);
    void BeginAsRoot(const SharedWindow& theOwner, const Rect& theBounds);
    void Join(const SharedControl& theContainer);
    void Dispose();
    void DisposeSubControls();

    // The steps of HIViewRemoveFromSuperview and HIViewSetZOrder: out of its container and its window, and to
    // another place in its container, counted from the back.
    void Withdraw();
    void PutAt(size_t theOrder);
    size_t Order() const { return mOrder; }

    // State. The setters tell the presenter and the handlers, if there is something to tell.
    bool Is(ControlState theState) const { return States().Has(theState); } // with everything around it
    ControlStates States() const;
    OSStatus Set(ControlState theState, bool theIsOn);
    bool CanBePressed() const;
    const ControlRange& Range() const { return mRange; }
    void SetRange(const ControlRange& theRange);
    void SetValue(SInt32 theValue);
    const Rect& Bounds() const { return mBounds; }
    Rect WindowBounds() const; // in the window's content
    void SetBounds(const Rect& theBounds);
    const Text& Title() const { return mTitle; }
    void SetTitle(Text theTitle);
    ControlPartCode Hilite() const { return mHilite; }
    void SetHilite(ControlPartCode thePart);

    // Events to this control. Tell goes up the chain; Ask asks this control alone and gives the
    // handler's answer, eventNotHandledErr when there was none.
    void Tell(OSType theClass, UInt32 theKind);
    OSStatus Ask(OSType theClass, UInt32 theKind);

    // Tells the presenter what the control looks like; with its sub-controls in the second form, and after a
    // change of what is in its bounds in the third.
    void Show() const;
    void ShowAll() const;
    void ShowChange();
    void Replay(Presenter& thePresenter) const;
    ControlLook Look() const;

    // What the kinds are made of.

    // The part at a point of the window's content that lies in the bounds; kControlNoPart where a press does
    // nothing.
    virtual ControlPartCode PartAt(Point thePoint) const;

    // Where a part is, in the window's content; an empty rectangle for parts that the control does not have.
    virtual Rect PlaceOf(ControlPartCode thePart) const;

    // Whether a press that took a part is still on it at this point.
    virtual bool HasPartAt(ControlPartCode thePart, Point thePoint) const;

    // Whether a part is an indicator that a person drags, and where it puts the value.
    virtual bool IsIndicator(ControlPartCode thePart) const;
    virtual SInt32 ValueAt(Point thePoint) const;
    virtual Point PlaceOfValue(SInt32 theValue) const;

    // What follows a press of a part in a loop of its own, as a menu does: gives the part that was hit, no
    // part when none was. Nothing for a control whose press is followed event by event.
    virtual std::optional<ControlPartCode> TrackInLoop(ControlPartCode thePart, UInt32 theModifiers);

    // The same by a procedure of the program, which is told where in the content it begins.
    virtual std::optional<ControlPartCode> TrackByProcedure(Point theContentPoint);

    // What a click on a part turns the value into before it is told of; gives false when it leaves the value
    // alone.
    virtual bool ToggledValue(ControlPartCode thePart, SInt32* theValue) const;

    // What a click on a part does beside that, before it is told of. Handlers may be called.
    virtual void PartClicked(ControlPartCode thePart);

    // The command of a click that no handler has taken: the control's own, from the control upwards.
    virtual PartCommand CommandOf(ControlPartCode thePart) const;

    // A key that arrived at this control while it had the focus; eventNotHandledErr lets the window have it.
    virtual OSStatus PressKey(const KeyPress& theKey);

    // A letter with the command key alone, which no menu and no handler has taken: a, x, c and v select all,
    // cut, copy and paste.
    virtual OSStatus PressCommandKey(char theCharacter);

    // The part that gets the focus; kControlFocusNoPart when the control takes none. theIsFullAccess: full
    // keyboard access is on.
    virtual ControlPartCode FocusPart(bool theIsFullAccess) const;

    // The value or its range is another. Called before the handlers are told; may send events.
    virtual void RangeChanged();

    // What a container does when one of its controls has another value, and when one has come or gone.
    virtual void SubControlChanged(const Control& theSubControl);
    virtual void SubControlsChanged();

    // Whether a click on a control in this one is a choice among them all, of which this one is told too.
    virtual bool ChoosesAmong(const Control& theSubControl) const;

    // The part that takes the focus when no handler has said so, kControlFocusNoPart to refuse it. thePart is
    // kControlFocusNoPart when the control is to lose the focus, and the answer means nothing.
    virtual ControlPartCode AnswerFocus(ControlPartCode thePart);

    // A state that it has with everything around it is another. Called before the handlers are told.
    virtual void StateChanged(ControlState theState, bool theIsOn);

    // The focus came or went. Called after the handlers were asked and before they are told.
    virtual void FocusMoved(bool theHasFocus);

    // A key has brought the focus here.
    virtual void EnteredByKey();

    // It is disposed, and handlers on it are about to go.
    virtual void Disposed();

    virtual const ControlDataTag* FindTag(ResType theTag) const;
    virtual void AddToLook(ControlLook& theLook) const = 0;

    // Set the range and hide it at creation, when there is nobody to tell.
    void StartWithRange(const ControlRange& theRange);
    void StartHidden() { mStates.Set(ControlState::kVisible, false); }

    // The program's own name for the control, which need not be the only one of that name.
    const ControlID& ID() const { return mID; }
    void SetID(const ControlID& theID);

    // Plain data that nothing follows from.
    UInt32 mCommand = 0;
    SRefCon mReference = {};
    ControlActionUPP mAction = nullptr;
    bool mIsLive = false; // the value follows a drag step by step
    ControlFontStyleRec mStyle = {};
    ControlSize mSize = kControlSizeNormal;
    Properties mProperties;
    bool mIsLayoutSuspended = false;
    bool mIsLeading = false; // others are following it right now

    // A state of its own, whatever is around it.
    bool OwnState(ControlState theState) const { return mStates.Has(theState); }

protected:
    // What is in the bounds of one that its program draws is no longer what is shown.
    virtual void Changed();

    bool mIsDrawnByProgram = false; // so that all others need not be asked at each change

private:
    void AddPlaceToLook(ControlLook& theLook) const;
    void Leave();
    void MoveTo(const SharedWindow& theOwner);
    void DisappearFrom(Presenter& thePresenter) const;
    void TellContainer(UInt32 theKind, const SharedControl& theContainer);
    SharedControl LastSubControl(ObjectId theNewest) const;
    void MakeRoom();
    void CollectInState(ControlState theState, std::vector<SharedControl>* theControls);

    ObjectId mIdentifier = NewObjectId();
    ControlID mID = {0, 0};
    OSType mKind;
    UInt32 mFeatures;
    EventTargetRef mTarget = nullptr;
    std::weak_ptr<Control> mParent;
    std::weak_ptr<Window> mOwner;
    std::vector<SharedControl> mSubControls; // from back to front
    size_t mOrder = 0;                       // place among those of the parent
    CFIndex mCount = 1;
    bool mIsGone = false;
    bool mIsGoing = false; // being disposed; handlers are hearing of it
    bool mIsRoot = false;
    ControlStates mStates;
    ControlRange mRange;
    Rect mBounds = {0, 0, 0, 0};
    Text mTitle;
    ControlPartCode mHilite = kControlNoPart;
};

} // namespace Host

#endif
