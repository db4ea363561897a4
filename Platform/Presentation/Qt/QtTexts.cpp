// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "QtTexts.h"

#include <QPainter>
#include <QSignalBlocker>
#include <QStyle>
#include <QTextCursor>
#include <QTextOption>

#include <algorithm>
#include <functional>
#include <utility>

namespace Host {

namespace {

// From the bounds of an edit text, which hold the text alone, to the outer edge of its frame.
constexpr int kFrame = 3;

// Bounds of fewer lines hold one line with some room around it.
constexpr int kFewestLines = 2;

// Programs of the platform end lines with a return, Qt with a line feed.
constexpr QLatin1Char kReturn('\r');
constexpr QLatin1Char kLineFeed('\n');

Qt::AlignmentFlag AlignmentOf(const ControlLook& theLook)
{
    return theLook.theAlignment == TextAlignment::kRight    ? Qt::AlignRight
           : theLook.theAlignment == TextAlignment::kCentre ? Qt::AlignHCenter
                                                            : Qt::AlignLeft;
}

} // namespace

// Static texts -----------------------------------------------------------------------------------------

QtStaticText::QtStaticText(const ControlLook& theLook, QtInput& theInput, QWidget& theContent)
    : QtControl(theLook, theInput, new QLabel(&theContent)),
      mLabel(static_cast<QLabel&>(Widget()))
{
    mLabel.setTextFormat(Qt::PlainText);
    theInput.Watch(mLabel, QtInput::MouseUse::kManagers);
}

// One line is centred, so that it stands level with the control beside it.
void QtStaticText::ShowState(const ControlLook& theLook)
{
    const int theHeight = ToQRect(theLook.theBounds).height();
    const bool theIsTall = theHeight >= kFewestLines * mLabel.fontMetrics().lineSpacing();
    mLabel.setWordWrap(theIsTall);
    mLabel.setAlignment(AlignmentOf(theLook) | (theIsTall ? Qt::AlignTop : Qt::AlignVCenter));
    mLabel.setText(QString::fromStdString(theLook.theText));
}

// Edit texts -------------------------------------------------------------------------------------------

bool QtEditText::IsTall(const ControlLook& theLook)
{
    const int theHeight = ToQRect(theLook.theBounds).height();
    return theLook.theIsMultiline && !theLook.theIsPassword &&
           theHeight >= kFewestLines * QFontMetrics(QFont()).lineSpacing();
}

bool QtEditText::Suits(const ControlLook& theLook) const
{
    return QtControl::Suits(theLook) && IsTall(theLook) == IsTall(Look());
}

void QtEditText::ShowState(const ControlLook& theLook)
{
    ChangeTextTo(QString::fromStdString(theLook.theText).replace(kReturn, kLineFeed));
    const Selection theSelection = Selected();
    if (theSelection.theStart != theLook.theSelectionStart ||
        theSelection.theEnd != theLook.theSelectionEnd) {
        Select({theLook.theSelectionStart, theLook.theSelectionEnd});
    }
}

// Exchanges only what is different, so that the person can undo it step by step.
void QtEditText::ChangeTextTo(const QString& theText)
{
    const QString theOld = Text();
    if (theText == theOld) {
        return;
    }
    const auto theFirst = std::mismatch(theOld.begin(), theOld.end(), theText.begin(), theText.end());
    const auto theHead = theFirst.first - theOld.begin();
    const auto theLast =
        std::mismatch(theOld.rbegin(), theOld.rend() - theHead, theText.rbegin(), theText.rend() - theHead);
    const auto theTail = theLast.first - theOld.rbegin();
    Select({static_cast<int>(theHead), static_cast<int>(theOld.size() - theTail)});
    Insert(theText.mid(theHead, theText.size() - theTail - theHead));
}

void QtEditText::ReportEdit()
{
    const Selection theSelection = Selected();
    QString theText = Text();
    if (Look().theText.find('\r') != std::string::npos) {
        theText.replace(kLineFeed, kReturn);
    }
    const TextEdit theEdit = {Look().theId, theText.toStdString(), theSelection.theStart,
                              theSelection.theEnd};
    const QPointer<QtEditText> theControl(this);
    Reports().Add(
        [theEdit, theControl](PresenterEvents& theEvents) {
            theEvents.TextEdited(theEdit);
            // The managers may have kept the text that they had.
            if (theControl != nullptr && theControl->Reports().IsEmpty()) {
                theControl->Reports().Add([theControl](PresenterEvents&) {
                    if (theControl != nullptr) {
                        theControl->ShowAgain();
                    }
                });
            }
        },
        QtReports::Subject::kTextEdit, theEdit.theControl);
}

// One line ---------------------------------------------------------------------------------------------

QtField::QtField(const ControlLook& theLook, QtInput& theInput, QWidget& theContent)
    : QtField(theLook, theInput, new QLineEdit(&theContent))
{
}

QtField::QtField(const ControlLook& theLook, QtInput& theInput, QLineEdit* theEdit)
    : QtField(theLook, theInput, theEdit, *theEdit)
{
}

QtField::QtField(const ControlLook& theLook, QtInput& theInput, QWidget* theWidget, QLineEdit& theEdit)
    : QtEditText(theLook, theInput, theWidget),
      mEdit(theEdit)
{
    theInput.Watch(mEdit, QtInput::MouseUse::kBoth);
    if (theWidget != &mEdit) {
        // The keys arrive at the widget around, and so does the focus.
        theInput.Watch(*theWidget, QtInput::MouseUse::kNone);
        theWidget->installEventFilter(this);
    }
    connect(&mEdit, &QLineEdit::textEdited, this, &QtField::ReportEdit);
    connect(&mEdit, &QLineEdit::selectionChanged, this, &QtField::ReportSelection);
    connect(&mEdit, &QLineEdit::cursorPositionChanged, this, &QtField::ReportSelection);
    mEdit.installEventFilter(this);
}

// A field without the focus gives up its selection by itself, sooner or later. That is nobody's edit.
void QtField::ReportSelection()
{
    const ControlLook& theLook = Look();
    mHasLostSelection = !mEdit.hasFocus() && !mEdit.hasSelectedText() &&
                        theLook.theSelectionStart != theLook.theSelectionEnd &&
                        theLook.theSelectionEnd == mEdit.cursorPosition() &&
                        theLook.theText == mEdit.text().toStdString();
    if (!mHasLostSelection) {
        ReportEdit();
    }
}

// It is selected again with the focus, unless a click takes it away for good.
bool QtField::eventFilter(QObject* theObject, QEvent* theEvent)
{
    if (theEvent->type() == QEvent::FocusIn && std::exchange(mHasLostSelection, false)) {
        ShowAgain();
    } else if (theEvent->type() == QEvent::MouseButtonPress && std::exchange(mHasLostSelection, false)) {
        ReportEdit();
    }
    return QtEditText::eventFilter(theObject, theEvent);
}

void QtField::ShowState(const ControlLook& theLook)
{
    const QSignalBlocker theBlocker(mEdit); // which may be a part of the widget
    mEdit.setEchoMode(theLook.theIsPassword ? QLineEdit::Password : QLineEdit::Normal);
    mEdit.setReadOnly(theLook.theIsLocked);
    mEdit.setAlignment(AlignmentOf(theLook) | Qt::AlignVCenter);
    QtEditText::ShowState(theLook);
}

QRect QtField::PlaceFor(const QRect& theBounds) const
{
    return AtLeastAsHigh(theBounds.adjusted(-kFrame, -kFrame, kFrame, kFrame));
}

QString QtField::Text() const
{
    return mEdit.text();
}

QtEditText::Selection QtField::Selected() const
{
    if (mEdit.hasSelectedText()) {
        return {mEdit.selectionStart(), mEdit.selectionEnd()};
    }
    return {mEdit.cursorPosition(), mEdit.cursorPosition()};
}

void QtField::Select(Selection theSelection)
{
    const int theLength = static_cast<int>(mEdit.text().size());
    const int theStart = std::clamp(theSelection.theStart, 0, theLength);
    mEdit.setSelection(theStart, std::clamp(theSelection.theEnd, theStart, theLength) - theStart);
}

void QtField::Insert(const QString& theText)
{
    theText.isEmpty() ? mEdit.del() : mEdit.insert(theText);
}

void QtField::ReportPart(ControlPart thePart)
{
    const PartPress thePress = {Look().theId, thePart, true, kNoModifiers};
    Reports().Add([thePress](PresenterEvents& theEvents) {
        theEvents.PartPressed(thePress);
        theEvents.PartPressed({thePress.theControl, thePress.thePart, false, kNoModifiers});
    });
}

// Combo boxes ------------------------------------------------------------------------------------------

namespace {

class ComboWidget : public QComboBox
{
public:
    explicit ComboWidget(QWidget* theParent)
        : QComboBox(theParent)
    {
        setEditable(true);
        setInsertPolicy(QComboBox::NoInsert);
        setCompleter(nullptr);
    }

    void showPopup() override { mOpen(); }

    std::function<void()> mOpen;
};

} // namespace

QtComboBox::QtComboBox(const ControlLook& theLook, QtInput& theInput, QComboBox* theBox)
    : QtField(theLook, theInput, theBox, *theBox->lineEdit())
{
    static_cast<ComboWidget*>(theBox)->mOpen = [this] { ReportPart(ControlPart::kMenuButton); };
}

QtComboBox::QtComboBox(const ControlLook& theLook, QtInput& theInput, QWidget& theContent)
    : QtComboBox(theLook, theInput, new ComboWidget(&theContent))
{
}

// Search fields ----------------------------------------------------------------------------------------

namespace {

// For desktops without an icon of that name.
QIcon DrawnGlass(const QWidget& theWidget)
{
    constexpr int kSide = 64;
    QPixmap thePicture(kSide, kSide);
    thePicture.fill(Qt::transparent);
    QPainter thePainter(&thePicture);
    thePainter.setRenderHint(QPainter::Antialiasing);
    thePainter.setPen(QPen(theWidget.palette().color(QPalette::PlaceholderText), kSide / 10.0));
    thePainter.drawEllipse(10, 10, 30, 30);
    thePainter.drawLine(36, 36, 54, 54);
    return {thePicture};
}

} // namespace

QtSearchField::QtSearchField(const ControlLook& theLook, QtInput& theInput, QWidget& theContent)
    : QtField(theLook, theInput, theContent),
      mField(static_cast<QLineEdit&>(Widget())),
      mGlass(AddButton(QLineEdit::LeadingPosition, ControlPart::kMenuButton)),
      mCancelButton(AddButton(QLineEdit::TrailingPosition, ControlPart::kCancelButton))
{
    mGlass->setIcon(QIcon::fromTheme(QStringLiteral("edit-find"), DrawnGlass(mField)));
    mGlass->setText(tr("Search"));
    mCancelButton->setIcon(mField.style()->standardIcon(QStyle::SP_LineEditClearButton, nullptr, &mField));
    mCancelButton->setText(tr("Clear"));
}

QAction* QtSearchField::AddButton(QLineEdit::ActionPosition thePosition, ControlPart thePart)
{
    auto* const theAction = new QAction(&mField);
    connect(theAction, &QAction::triggered, this, [this, thePart] { ReportPart(thePart); });
    mField.addAction(theAction, thePosition);
    return theAction;
}

void QtSearchField::ShowState(const ControlLook& theLook)
{
    const RareLook& theRareLook = theLook.Rare();
    mGlass->setVisible(theRareLook.theHasGlass);
    mCancelButton->setVisible(theRareLook.theHasCancelButton);
    mField.setPlaceholderText(QString::fromStdString(theRareLook.theDescription));
    QtField::ShowState(theLook);
}

// More lines -------------------------------------------------------------------------------------------

QtTextArea::QtTextArea(const ControlLook& theLook, QtInput& theInput, QWidget& theContent)
    : QtEditText(theLook, theInput, new QPlainTextEdit(&theContent)),
      mEdit(static_cast<QPlainTextEdit&>(Widget()))
{
    // The keys arrive at the frame, the mouse at the text.
    theInput.Watch(mEdit, QtInput::MouseUse::kNone);
    theInput.Watch(*mEdit.viewport(), QtInput::MouseUse::kBoth);
    connect(&mEdit, &QPlainTextEdit::textChanged, this, &QtTextArea::ReportEdit);
    connect(&mEdit, &QPlainTextEdit::selectionChanged, this, &QtTextArea::ReportEdit);
    connect(&mEdit, &QPlainTextEdit::cursorPositionChanged, this, &QtTextArea::ReportEdit);
}

void QtTextArea::ShowState(const ControlLook& theLook)
{
    mEdit.setReadOnly(theLook.theIsLocked);
    ShowAlignment(AlignmentOf(theLook));
    QtEditText::ShowState(theLook);
}

// Setting it makes the text be laid out anew.
void QtTextArea::ShowAlignment(Qt::Alignment theAlignment)
{
    QTextOption theOption = mEdit.document()->defaultTextOption();
    if (theOption.alignment() != theAlignment) {
        theOption.setAlignment(theAlignment);
        mEdit.document()->setDefaultTextOption(theOption);
    }
}

QRect QtTextArea::PlaceFor(const QRect& theBounds) const
{
    return theBounds.adjusted(-kFrame, -kFrame, kFrame, kFrame);
}

QString QtTextArea::Text() const
{
    return mEdit.toPlainText();
}

QtEditText::Selection QtTextArea::Selected() const
{
    const QTextCursor theCursor = mEdit.textCursor();
    return {theCursor.selectionStart(), theCursor.selectionEnd()};
}

void QtTextArea::Select(Selection theSelection)
{
    const int theLength = static_cast<int>(Text().size());
    QTextCursor theCursor = mEdit.textCursor();
    theCursor.setPosition(std::clamp(theSelection.theStart, 0, theLength));
    theCursor.setPosition(std::clamp(theSelection.theEnd, 0, theLength), QTextCursor::KeepAnchor);
    mEdit.setTextCursor(theCursor);
}

void QtTextArea::Insert(const QString& theText)
{
    mEdit.textCursor().insertText(theText);
}

} // namespace Host
