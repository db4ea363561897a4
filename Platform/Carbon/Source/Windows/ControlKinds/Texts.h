// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ControlKinds_Texts_h
#define ControlKinds_Texts_h

#include "Windows/Control.h"

namespace Host {

// What teFlushRight and the like mean.
TextAlignment AlignmentOf(SInt16 theJustification);

class StaticText : public Control
{
public:
    explicit StaticText(Text theText);
    const Text& Shown() const { return mText; }
    void SetShown(const Text& theText) { mText = theText; }
    const ControlDataTag* FindTag(ResType theTag) const override;
    void AddToLook(ControlLook& theLook) const override;

    bool mIsMultiline = true;

private:
    Text mText;
};

// An edit text of either sort, or what is more than that. Positions count UTF-16 units; the selection runs
// from its start up to its end, and never reaches past the text.
class EditText : public Control
{
public:
    EditText(OSType theKind, Text theText, bool theIsPassword);

    const Text& Shown() const { return mText; }
    size_t SelectionStart() const { return mStart; }
    size_t SelectionEnd() const { return mEnd; }
    void Select(size_t theStart, size_t theEnd);

    // By the program: nobody is told.
    void SetShown(const Text& theText);
    void ReplaceSelection(const Text& theText);

    // By a person: the handlers are asked before and told after. theStart up to theEnd becomes theText.
    void Edit(size_t theStart, size_t theEnd, const Text& theText);

    // kEventTextAccepted; on leaving the field only when there was an edit since the last one.
    void Accept();

    bool TakesInput() const { return !mIsLocked && CanBePressed(); }

    ControlPartCode PartAt(Point thePoint) const override;
    OSStatus PressKey(const KeyPress& theKey) override;
    OSStatus PressCommandKey(char theCharacter) override;
    ControlPartCode FocusPart(bool theIsFullAccess) const override;
    void FocusMoved(bool theHasFocus) override;
    void EnteredByKey() override;
    const ControlDataTag* FindTag(ResType theTag) const override;
    void AddToLook(ControlLook& theLook) const override;

    bool mIsLocked = false;
    bool mIsSingleLine = false;

private:
    bool AskBeforeEdit(size_t theStart, size_t theEnd, Text* theText);
    OSStatus MoveSelection(const KeyPress& theKey);
    OSStatus DeleteByKey(bool theIsForward);
    void Copy() const;
    void Paste();
    size_t Before(size_t thePosition) const;
    size_t After(size_t thePosition) const;

    Text mText;
    size_t mStart = 0;
    size_t mEnd = 0;
    bool mIsPassword;
    bool mHasEdits = false; // that nobody accepted
};

} // namespace Host

#endif
