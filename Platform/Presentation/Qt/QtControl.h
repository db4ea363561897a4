// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef QtControl_h
#define QtControl_h

#include "QtInput.h"

#include <memory>
#include <Presentation/PresenterTypes.h>

namespace Host {

// One control as a widget. The widget is a child of the window's content, whatever holds the control: looks
// are placed in the content.
//
// It belongs to this object and outlives it a little: it may have a function on the stack when the control
// goes, so it is hidden at once and deleted when Qt is done.
class QtControl : public QObject
{
public:
    ~QtControl() override;

    // Makes the widget that suits a look.
    static std::unique_ptr<QtControl> Make(const ControlLook& theLook, QtInput& theInput,
                                           QWidget& theContent);

    // Whether this kind of widget can show theLook; else the control is made anew.
    virtual bool Suits(const ControlLook& theLook) const;

    // Shows the look. theWindowIsActive tells a control that is inactive with its window, which the desktop
    // shows in its own way, from one that the program made inactive. Reports nothing.
    void Show(const ControlLook& theLook, bool theWindowIsActive);

    // Says what a screen reader calls it and the group that it stands in.
    void Name(const std::string& theName, const std::string& theGroup);

    QWidget& Widget() const { return *mWidget; }

protected:
    QtControl(const ControlLook& theLook, QtInput& theInput, QWidget* theWidget);

    // Shows what only this kind has. The widget's signals are blocked meanwhile.
    virtual void ShowState(const ControlLook& theLook) = 0;

    // Where the widget goes, in the content. Widgets of the desktop that need more room than the bounds of
    // the control, for the frame around a text for example, reach over them evenly.
    virtual QRect PlaceFor(const QRect& theBounds) const;

    // Bounds made as high as the widget wants to be, around their middle.
    QRect AtLeastAsHigh(const QRect& theBounds) const;

    // Reports a click on the middle of the control: somebody has operated the widget without mouse or keys,
    // which a screen reader does. The widget then shows what the managers made of it.
    void ReportClick() { ReportClickAt(CentreOf(mLook.theBounds)); }

    // The same at a place in the content.
    void ReportClickAt(PixelPoint thePlace);

    // Takes the keys from the widget, which is about to be of no use for them: Qt would give them to another
    // widget, but that is the managers' to say.
    void GiveUpKeys();

    // Shows once more what was shown last: the person moved something that the managers may not have
    // followed.
    void ShowAgain();

    const ControlLook& Look() const { return mLook; }
    QtInput& Input() const { return mInput; }
    QtReports& Reports() const { return mInput.Reports(); }

private:
    void ShowNewState();
    void ShowHelp();

    QtInput& mInput;
    QPointer<QWidget> mWidget;
    ControlLook mLook;
    bool mIsShown = false;
};

// Makes a text of the program one that Qt does not look for mnemonics in.
QString WithoutMnemonics(const std::string& theText);

// Coordinates that no screen has are brought nearer, so that sums of them cannot overflow.
QRect ToQRect(const PixelRect& theRect);

// Whether bounds are higher than wide: controls with a direction take theirs from that.
bool IsUpright(const PixelRect& theBounds);

} // namespace Host

#endif
