// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "QtMenuBar.h"

#include "QtControl.h"
#include "QtEventPump.h"
#include "QtKeys.h"

#include <QApplication>
#include <QIconEngine>
#include <QKeyEvent>
#include <QMenuBar>
#include <QPainter>
#include <QPixmap>

#include <algorithm>
#include <set>
#include <utility>

namespace Host {

namespace {

constexpr std::uint32_t kCheckMark = 0x2713;
constexpr std::uint32_t kHeavyCheckMark = 0x2714;

// How much of the height of an icon its letter takes.
constexpr double kLetterShare = 0.9;

// A mark as an icon. It is drawn anew each time, in the colours that menus have then and for the screen that
// they are on.
class MarkEngine : public QIconEngine
{
public:
    explicit MarkEngine(std::uint32_t theMark)
        : mMark(theMark)
    {
    }

    void paint(QPainter* thePainter, const QRect& theRect, QIcon::Mode theMode, QIcon::State) override
    {
        QFont theFont = QApplication::font("QMenu");
        theFont.setPixelSize(std::max(qRound(theRect.height() * kLetterShare), 1));
        thePainter->setFont(theFont);
        thePainter->setPen(ColourFor(theMode));
        const char32_t theCharacter = mMark;
        const QString theText = QString::fromUcs4(&theCharacter, 1);
        // Centred by what is seen of it; the line that it would stand on has room for letters of other
        // shapes.
        const QRectF theInk = QFontMetricsF(theFont).tightBoundingRect(theText);
        thePainter->drawText(QRectF(theRect).center() - theInk.center(), theText);
    }

    QPixmap pixmap(const QSize& theSize, QIcon::Mode theMode, QIcon::State theState) override
    {
        QPixmap thePicture(theSize);
        thePicture.fill(Qt::transparent);
        QPainter thePainter(&thePicture);
        paint(&thePainter, QRect(QPoint(), theSize), theMode, theState);
        return thePicture;
    }

    QIconEngine* clone() const override { return new MarkEngine(mMark); }

private:
    static QColor ColourFor(QIcon::Mode theMode)
    {
        const QPalette thePalette = QApplication::palette("QMenu");
        if (theMode == QIcon::Disabled) {
            return thePalette.color(QPalette::Disabled, QPalette::Text);
        }
        return thePalette.color(theMode == QIcon::Active ? QPalette::HighlightedText : QPalette::Text);
    }

    std::uint32_t mMark;
};

// Qt's menus have a place for a check mark. Other marks are drawn where an icon goes.
void ShowMark(QAction& theAction, std::uint32_t theMark)
{
    const bool theIsCheck = theMark == kCheckMark || theMark == kHeavyCheckMark;
    theAction.setCheckable(theIsCheck);
    theAction.setChecked(theIsCheck);
    theAction.setIcon(theMark == 0 || theIsCheck ? QIcon() : QIcon(new MarkEngine(theMark)));
    theAction.setIconVisibleInMenu(true);
}

// For show only: the managers find the item of a command key themselves.
void ShowKey(QAction& theAction, const MenuItemLook& theItem)
{
    const QString theKey = QString::fromStdString(theItem.theKey);
    if (theKey.isEmpty()) {
        theAction.setShortcut({});
        return;
    }
    const int theModifiers = static_cast<int>(QtModifiersOf(theItem.theKeyModifiers).toInt());
    theAction.setShortcut(QKeySequence(theModifiers | theKey.at(0).toUpper().unicode()));
    theAction.setShortcutContext(Qt::WidgetShortcut);
}

void ShowItem(QAction& theAction, const MenuItemLook& theItem)
{
    theAction.setText(WithoutMnemonics(theItem.theText));
    theAction.setSeparator(theItem.theIsSeparator);
    theAction.setEnabled(theItem.theIsEnabled);
    theAction.setVisible(!theItem.theIsHidden);
    ShowMark(theAction, theItem.theMark);
    ShowKey(theAction, theItem);
}

// Marks the first letter or digit of a title that is not among those taken, for Qt to underline, and takes
// it.
QString WithMnemonic(const QString& theTitle, std::set<QChar>& theTaken)
{
    const auto theLetter = std::find_if(theTitle.begin(), theTitle.end(), [&theTaken](QChar theCharacter) {
        return theCharacter.isLetterOrNumber() && theTaken.count(theCharacter.toUpper()) == 0;
    });
    const auto thePlace = theLetter - theTitle.begin();
    const auto theEscaped = [](QString theText) {
        return theText.replace(QLatin1Char('&'), QLatin1String("&&"));
    };
    if (theLetter == theTitle.end()) {
        return theEscaped(theTitle);
    }
    theTaken.insert(theLetter->toUpper());
    return theEscaped(theTitle.left(thePlace)) + QLatin1Char('&') + theEscaped(theTitle.mid(thePlace));
}

bool CanOpen(const QAction& theMenu)
{
    return theMenu.isVisible() && theMenu.isEnabled() && theMenu.menu() != nullptr;
}

// Whether a key opens a menu with this title.
bool IsKeyOf(const QAction& theMenu, const QKeyEvent& theEvent)
{
    const Qt::KeyboardModifiers theModifiers =
        theEvent.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::ShiftModifier | Qt::MetaModifier);
    if (theEvent.key() == Qt::Key_F10) {
        return theModifiers == Qt::NoModifier;
    }
    const QKeySequence theMnemonic = QKeySequence::mnemonic(theMenu.text());
    return theModifiers == Qt::AltModifier && !theMnemonic.isEmpty() &&
           theMnemonic == QKeySequence(static_cast<int>(Qt::ALT) | theEvent.key());
}

} // namespace

struct QtMenuBar::Menu
{
    Menu() = default;
    // A menu may be on the screen, with a function on the stack, when the program disposes it.
    ~Menu()
    {
        theMenu->hide();
        theMenu->blockSignals(true);
        theMenu->deleteLater();
    }
    Menu(const Menu&) = delete;
    Menu& operator=(const Menu&) = delete;

    ObjectId theId = kNoObject;
    QMenu* theMenu = new QMenu;
};

QtMenuBar::QtMenuBar(QtReports& theReports, Opening theOpening)
    : mReports(theReports),
      mOpening(std::move(theOpening))
{
}

QtMenuBar::~QtMenuBar() = default;

void QtMenuBar::Show(const MenuBarLook& theLook)
{
    mLook = theLook;
    Menus theKept;
    for (const MenuLook& theMenu : theLook.theMenus) {
        MenuFor(theMenu, theKept);
    }
    mMenus.swap(theKept);
    ShowTitles();
}

// Each title has a letter of its own for the Alt key, the first that no title before it has.
void QtMenuBar::ShowTitles()
{
    std::set<QChar> theTaken;
    for (const MenuLook& theLook : mLook.theMenus) {
        QMenu& theWidget = *mMenus.at(theLook.theId)->theMenu;
        const QString theTitle = WithMnemonic(QString::fromStdString(theLook.theTitle), theTaken);
        if (theWidget.title() != theTitle) {
            theWidget.setTitle(theTitle);
        }
    }
}

QtMenuBar::SharedMenu QtMenuBar::MenuFor(const MenuLook& theLook, Menus& theKept)
{
    SharedMenu& theMenu = theKept[theLook.theId];
    if (theMenu == nullptr) {
        const auto theOld = mMenus.find(theLook.theId);
        if (theOld != mMenus.end()) {
            theMenu = theOld->second;
        } else {
            theMenu = std::make_shared<Menu>();
            theMenu->theId = theLook.theId;
            Connect(theMenu);
        }
    }
    SharedMenu theResult = theMenu;
    ShowItems(*theResult, theLook, theKept);
    return theResult;
}

// Items are told apart by their number alone, so an item that stays keeps its action and an open menu stays
// open.
void QtMenuBar::ShowItems(Menu& theMenu, const MenuLook& theLook, Menus& theKept)
{
    QMenu& theWidget = *theMenu.theMenu;
    theWidget.menuAction()->setEnabled(theLook.theIsEnabled);
    const auto theCount = static_cast<qsizetype>(theLook.theItems.size());
    while (theWidget.actions().size() > theCount) {
        // Else the submenu that hung there would go on being shown by the item, wherever it is now.
        theWidget.actions().last()->setMenu(nullptr);
        theWidget.actions().last()->deleteLater();
        theWidget.removeAction(theWidget.actions().last());
    }
    while (theWidget.actions().size() < theCount) {
        theWidget.addAction(QString());
    }
    for (qsizetype theIndex = 0; theIndex < theCount; ++theIndex) {
        const MenuItemLook& theItem = theLook.theItems[static_cast<size_t>(theIndex)];
        QAction& theAction = *theWidget.actions().at(theIndex);
        ShowItem(theAction, theItem);
        theAction.setData(static_cast<int>(theIndex) + 1);
        theAction.setMenu(theItem.theSubmenu.empty() ? nullptr
                                                     : MenuFor(theItem.theSubmenu.front(), theKept)->theMenu);
    }
}

void QtMenuBar::Connect(const SharedMenu& theMenu)
{
    QMenu* const theWidget = theMenu->theMenu;
    const ObjectId theId = theMenu->theId;
    QObject::connect(theWidget, &QMenu::aboutToShow, theWidget, [this, theId] { mOpening(theId); });
    QObject::connect(theWidget, &QMenu::aboutToHide, theWidget, [this, theId] {
        mReports.Add([theId](PresenterEvents& theEvents) { theEvents.MenuClosed(theId); });
    });
    // A menu hears of what is chosen in its submenus too.
    QObject::connect(theWidget, &QMenu::triggered, theWidget,
                     [this, theId, theWidget](const QAction* theAction) {
                         if (!theWidget->actions().contains(theAction)) {
                             return;
                         }
                         const MenuChoice theChoice = {theId, theAction->data().toInt()};
                         const std::uint32_t theModifiers = ModifiersOf(QGuiApplication::keyboardModifiers());
                         mReports.Add([theChoice, theModifiers](PresenterEvents& theEvents) {
                             theEvents.MenuChosen(theChoice, theModifiers);
                         });
                     });
}

void QtMenuBar::Fill(QMenuBar& theBar) const
{
    QList<QAction*> theActions;
    for (const MenuLook& theMenu : mLook.theMenus) {
        theActions.append(mMenus.at(theMenu.theId)->theMenu->menuAction());
    }
    // Lists are not compared themselves: two empty ones would compare bytes at no address.
    const QList<QAction*> theOldActions = theBar.actions();
    if (!std::equal(theOldActions.begin(), theOldActions.end(), theActions.begin(), theActions.end())) {
        theBar.clear();
        theBar.addActions(theActions);
    }
}

bool QtMenuBar::OpenByKey(QMenuBar& theBar, const QKeyEvent& theEvent)
{
    const QList<QAction*> theMenus = theBar.actions();
    const auto theMenu =
        std::find_if(theMenus.begin(), theMenus.end(), [&theEvent](const QAction* theAction) {
            return CanOpen(*theAction) && IsKeyOf(*theAction, theEvent);
        });
    if (!theBar.isVisible() || theMenu == theMenus.end()) {
        return false;
    }
    theBar.setActiveAction(*theMenu);
    return true;
}

// Pop-ups ----------------------------------------------------------------------------------------------

namespace {

// A menu that is made for one choice and goes with it.
void FillPopUp(QMenu& theMenu, const MenuLook& theLook)
{
    int theNumber = 0;
    for (const MenuItemLook& theItem : theLook.theItems) {
        QAction& theAction = *theMenu.addAction(QString());
        ShowItem(theAction, theItem);
        theAction.setData(++theNumber);
        theAction.setProperty("menu", static_cast<uint>(theLook.theId));
        if (!theItem.theSubmenu.empty()) {
            auto* const theSubmenu = new QMenu(&theMenu);
            FillPopUp(*theSubmenu, theItem.theSubmenu.front());
            theAction.setMenu(theSubmenu);
        }
    }
}

} // namespace

MenuChoice QtMenuBar::Choose(const PopUpLook& theLook, const std::function<double()>& theTimers)
{
    QMenu theMenu;
    FillPopUp(theMenu, theLook.theMenu);
    if (theMenu.isEmpty()) {
        return {};
    }
    const auto theCurrent = static_cast<qsizetype>(theLook.theItem) - 1;
    const bool theHasCurrent = theCurrent >= 0 && theCurrent < theMenu.actions().size();
    QTimer theTimer;
    theTimer.setSingleShot(true);
    QObject::connect(&theTimer, &QTimer::timeout, &theMenu, [&] {
        if (const double theWait = theTimers(); theWait >= 0) {
            theTimer.start(QtEventPump::Milliseconds(theWait));
        }
    });
    theTimer.start(0);
    const QAction* const theChosen = theMenu.exec(QPoint(theLook.thePlace.theX, theLook.thePlace.theY),
                                                  theHasCurrent ? theMenu.actions().at(theCurrent) : nullptr);
    if (theChosen == nullptr) {
        return {};
    }
    return {theChosen->property("menu").toUInt(), theChosen->data().toInt()};
}

} // namespace Host
