// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "InspectorWindow.h"

#include "InspectorGraph.h"
#include "InspectorPick.h"

#include <Carbon/Carbon.h>

#include <map>
#include <memory>

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QTableWidget>
#include <QTabWidget>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <utility>
#include <vector>

namespace {

constexpr int kInterval = 150; // milliseconds
constexpr std::size_t kShownChanges = 200;
constexpr int kNumber = Qt::UserRole; // of an object, in an item
constexpr int kTyped = Qt::UserRole;  // the text of a value as it is typed

enum Column
{
    kKeyColumn,
    kValueColumn,
    kTypeColumn,
    kBindingColumn
};

QString Text(const std::string& theText)
{
    return QString::fromStdString(theText);
}

// A set that the program's event loop makes: the window may be closed before.
struct Wish
{
    std::function<void()> theWork;
    EventLoopTimerRef theTimer = nullptr;
};

void FulfilWish(EventLoopTimerRef theTimer, void* theData)
{
    const std::unique_ptr<Wish> theWish(static_cast<Wish*>(theData));
    RemoveEventLoopTimer(theTimer);
    theWish->theWork();
}

void DoSoon(std::function<void()> theWork)
{
    static const EventLoopTimerUPP kFulfil = NewEventLoopTimerUPP(FulfilWish);
    auto theWish = std::make_unique<Wish>();
    theWish->theWork = std::move(theWork);
    EventLoopTimerRef theTimer = nullptr;
    if (InstallEventLoopTimer(GetMainEventLoop(), 0, 0, kFulfil, theWish.get(), &theTimer) == noErr) {
        // The timer has it now.
        static_cast<void>(theWish.release());
    }
}

// The text of a value as it is edited: a string without its quotation marks.
class ValueItem : public QTableWidgetItem
{
public:
    QVariant data(int theRole) const override
    {
        return theRole == Qt::EditRole ? QTableWidgetItem::data(kTyped) : QTableWidgetItem::data(theRole);
    }

    void setData(int theRole, const QVariant& theData) override
    {
        QTableWidgetItem::setData(theRole == Qt::EditRole ? kTyped : theRole, theData);
    }

    void Show(const LmSurveyedKey& theKey)
    {
        QTableWidgetItem::setData(Qt::DisplayRole, Text(theKey.theValue));
        QTableWidgetItem::setData(kTyped, Text(theKey.theEditText));
    }
};

QTreeWidget* MakeTree(const QString& theName)
{
    auto* const theTree = new QTreeWidget;
    theTree->setHeaderHidden(true);
    theTree->setAccessibleName(theName);
    theTree->setUniformRowHeights(true);
    return theTree;
}

bool BeginsWith(const QTreeWidgetItem& theItem, const QString& theText)
{
    return theItem.text(0).startsWith(theText, Qt::CaseInsensitive);
}

// The objects of a tree as it is shown, without its items.
std::vector<std::pair<QString, std::uint64_t>> LinesOf(const std::vector<LmSurveyedGroup>& theGroups)
{
    std::vector<std::pair<QString, std::uint64_t>> theLines;
    for (const LmSurveyedGroup& theGroup : theGroups) {
        theLines.emplace_back(Text(theGroup.theTitle), 0);
        for (const LmSurveyedObject& theObject : theGroup.theObjects) {
            theLines.emplace_back(Text(theObject.theName), theObject.theNumber);
        }
    }
    return theLines;
}

std::vector<std::pair<QString, std::uint64_t>> LinesOf(const QTreeWidget& theTree)
{
    std::vector<std::pair<QString, std::uint64_t>> theLines;
    for (int theIndex = 0; theIndex < theTree.topLevelItemCount(); ++theIndex) {
        const QTreeWidgetItem& theGroup = *theTree.topLevelItem(theIndex);
        theLines.emplace_back(theGroup.text(0), 0);
        for (int theChild = 0; theChild < theGroup.childCount(); ++theChild) {
            theLines.emplace_back(theGroup.child(theChild)->text(0),
                                  theGroup.child(theChild)->data(0, kNumber).toULongLong());
        }
    }
    return theLines;
}

} // namespace

InspectorWindow::InspectorWindow(LmLiveSurvey& theSurvey)
    : QWidget(nullptr, Qt::Window),
      mSurvey(theSurvey),
      mPick(std::make_unique<InspectorPick>(theSurvey, *this,
                                            [this](std::uint64_t theObject) { EndPick(theObject); }))
{
    setAttribute(Qt::WA_DeleteOnClose);
    // The program ends as it would without this window.
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowTitle(QStringLiteral("Inspector"));
    auto* const theLayout = new QVBoxLayout(this);
    theLayout->addWidget(MakeTools());
    auto* const theRight = new QSplitter(Qt::Vertical);
    theRight->addWidget(MakeKeys());
    theRight->addWidget(MakeDetails());
    auto* const theWhole = new QSplitter(Qt::Horizontal);
    theWhole->addWidget(MakeObjects());
    theWhole->addWidget(theRight);
    theWhole->setStretchFactor(1, 1);
    theWhole->setSizes({230, 600});
    theLayout->addWidget(theWhole, 1);
    mMessage = new QLabel;
    mMessage->setTextFormat(Qt::PlainText);
    mMessage->setText(QStringLiteral("Return or F2 edits a value.  Ctrl+Shift+C picks a control."));
    theLayout->addWidget(mMessage);
    resize(860, 560);
    connect(&mTimer, &QTimer::timeout, this, [this] { Refresh(); });
    mTimer.start(kInterval);
    ShowAll();
    ChooseKey();
    mObjects->setFocus();
}

InspectorWindow::~InspectorWindow() = default;

// ---- Parts

QWidget* InspectorWindow::MakeTools()
{
    auto* const theTools = new QWidget;
    auto* const theLayout = new QHBoxLayout(theTools);
    theLayout->setContentsMargins(0, 0, 0, 0);
    mPickButton = new QToolButton;
    mPickButton->setText(QStringLiteral("&Pick a control"));
    mPickButton->setToolTip(QStringLiteral("Click a control to see its binding (Ctrl+Shift+C)"));
    mPickButton->setCheckable(true);
    mPickButton->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C));
    mPickButton->setFocusPolicy(Qt::StrongFocus);
    connect(mPickButton, &QToolButton::toggled, this, [this](bool isOn) { BeginPick(isOn); });
    theLayout->addWidget(mPickButton);
    mTitle = new QLabel;
    mTitle->setTextFormat(Qt::PlainText);
    theLayout->addWidget(mTitle, 1);
    return theTools;
}

QWidget* InspectorWindow::MakeObjects()
{
    auto* const thePart = new QWidget;
    auto* const theLayout = new QVBoxLayout(thePart);
    theLayout->setContentsMargins(0, 0, 0, 0);
    mFilter = new QLineEdit;
    mFilter->setPlaceholderText(QStringLiteral("Find an object"));
    mFilter->setAccessibleName(QStringLiteral("Find an object"));
    mFilter->setClearButtonEnabled(true);
    // There are dark desktops that leave this colour as it is on bright ones.
    QPalette thePalette = mFilter->palette();
    QColor theFaint = thePalette.color(QPalette::Text);
    theFaint.setAlpha(140);
    thePalette.setColor(QPalette::PlaceholderText, theFaint);
    mFilter->setPalette(thePalette);
    connect(mFilter, &QLineEdit::textChanged, this, [this] { FilterObjects(); });
    auto* const theFind = new QShortcut(QKeySequence::Find, this);
    connect(theFind, &QShortcut::activated, this, [this] {
        mFilter->setFocus();
        mFilter->selectAll();
    });
    theLayout->addWidget(mFilter);
    mObjects = MakeTree(QStringLiteral("Objects"));
    connect(mObjects, &QTreeWidget::currentItemChanged, this,
            [this](QTreeWidgetItem* theItem) { ChooseItem(theItem); });
    theLayout->addWidget(mObjects, 1);
    return thePart;
}

QWidget* InspectorWindow::MakeKeys()
{
    mKeys = new QTableWidget(0, 4);
    mKeys->setAccessibleName(QStringLiteral("Keys"));
    mKeys->setHorizontalHeaderLabels(
        {QStringLiteral("Key"), QStringLiteral("Value"), QStringLiteral("Type"), QStringLiteral("Bound to")});
    mKeys->horizontalHeader()->setStretchLastSection(true);
    mKeys->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    mKeys->verticalHeader()->hide();
    mKeys->setTabKeyNavigation(false);
    mKeys->setSelectionMode(QAbstractItemView::SingleSelection);
    mKeys->setColumnWidth(kValueColumn, 150);
    mKeys->setColumnWidth(kTypeColumn, 160);
    mKeys->setWordWrap(false);
    mKeys->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    mKeys->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                           QAbstractItemView::AnyKeyPressed);
    connect(mKeys, &QTableWidget::itemChanged, this,
            [this](QTableWidgetItem* theItem) { TakeEdit(*theItem); });
    connect(mKeys, &QTableWidget::currentCellChanged, this, [this] { ShowReasons(); });
    return mKeys;
}

QWidget* InspectorWindow::MakeDetails()
{
    auto* const theTabs = new QTabWidget;
    mChanges = MakeTree(QStringLiteral("Last changes"));
    mReasons = MakeTree(QStringLiteral("Why the key has its value"));
    mReasons->setRootIsDecorated(false);
    mGraph = new InspectorGraph(nullptr);
    mGraph->SetChooser([this](std::uint64_t theObject) { Choose(theObject); });
    auto* const theScroll = new QScrollArea;
    theScroll->setWidget(mGraph);
    theScroll->setWidgetResizable(true);
    theTabs->addTab(mChanges, QStringLiteral("&Last changes"));
    theTabs->addTab(mReasons, QStringLiteral("&Why"));
    theTabs->addTab(theScroll, QStringLiteral("&Graph"));
    return theTabs;
}

// Where the end of the changes is shows when there is a place for them.
void InspectorWindow::showEvent(QShowEvent* theEvent)
{
    QWidget::showEvent(theEvent);
    mChanges->scrollToBottom();
}

void InspectorWindow::keyPressEvent(QKeyEvent* theEvent)
{
    if (theEvent->key() == Qt::Key_Escape) {
        close();
        return;
    }
    const bool isReturn = theEvent->key() == Qt::Key_Return || theEvent->key() == Qt::Key_Enter;
    if (isReturn && mKeys->hasFocus() && mKeys->currentRow() >= 0) {
        mKeys->setCurrentCell(mKeys->currentRow(), kValueColumn);
        mKeys->editItem(mKeys->currentItem());
        return;
    }
    QWidget::keyPressEvent(theEvent);
}

// ---- What is shown

void InspectorWindow::Refresh()
{
    const bool isEditing = mKeys->viewport()->findChild<QLineEdit*>() != nullptr;
    if (!isEditing && mSurvey.CountEntries() != mSeen) {
        ShowAll();
    }
}

void InspectorWindow::ShowAll()
{
    mSeen = mSurvey.CountEntries();
    ShowObjects();
    ShowKeys();
    ShowChanges();
    ShowReasons();
    mGraph->Show(mSurvey, mChosen);
}

void InspectorWindow::ShowObjects()
{
    const std::vector<LmSurveyedGroup> theGroups = mSurvey.FindGroups();
    if (LinesOf(theGroups) == LinesOf(*mObjects)) {
        return;
    }
    mIsFilling = true;
    mObjects->clear();
    QTreeWidgetItem* theChosen = nullptr;
    QTreeWidgetItem* theFirst = nullptr;
    for (const LmSurveyedGroup& theGroup : theGroups) {
        auto* const theParent = new QTreeWidgetItem({Text(theGroup.theTitle)});
        mObjects->addTopLevelItem(theParent);
        for (const LmSurveyedObject& theObject : theGroup.theObjects) {
            auto* const theItem = new QTreeWidgetItem(theParent, {Text(theObject.theName)});
            theItem->setData(0, kNumber, static_cast<qulonglong>(theObject.theNumber));
            theItem->setToolTip(0, Text(theObject.theClass));
            theFirst = theFirst != nullptr ? theFirst : theItem;
            theChosen = theObject.theNumber == mChosen ? theItem : theChosen;
        }
    }
    mObjects->expandAll();
    theChosen = theChosen != nullptr ? theChosen : theFirst;
    mObjects->setCurrentItem(theChosen);
    mIsFilling = false;
    mChosen = theChosen != nullptr ? theChosen->data(0, kNumber).toULongLong() : 0;
    FilterObjects();
}

void InspectorWindow::FilterObjects()
{
    QTreeWidgetItem* theFirst = nullptr;
    for (int theIndex = 0; theIndex < mObjects->topLevelItemCount(); ++theIndex) {
        QTreeWidgetItem* const theGroup = mObjects->topLevelItem(theIndex);
        bool isAnyShown = false;
        for (int theChild = 0; theChild < theGroup->childCount(); ++theChild) {
            QTreeWidgetItem* const theItem = theGroup->child(theChild);
            const bool isShown = theItem->text(0).contains(mFilter->text(), Qt::CaseInsensitive) ||
                                 theItem->toolTip(0).contains(mFilter->text(), Qt::CaseInsensitive);
            theItem->setHidden(!isShown);
            const bool isBetter = theFirst == nullptr || (BeginsWith(*theItem, mFilter->text()) &&
                                                          !BeginsWith(*theFirst, mFilter->text()));
            theFirst = isShown && isBetter ? theItem : theFirst;
            isAnyShown = isAnyShown || isShown;
        }
        theGroup->setHidden(!isAnyShown);
    }
    const QTreeWidgetItem* const theCurrent = mObjects->currentItem();
    if (theFirst != nullptr && (theCurrent == nullptr || theCurrent->isHidden())) {
        mObjects->setCurrentItem(theFirst);
    }
}

void InspectorWindow::ShowBinding(const LmSurveyedKey& theKey, int theRow)
{
    QStringList theBindings;
    for (const std::string& theBinding : theKey.theBindings) {
        theBindings.append(Text(theBinding).mid(static_cast<int>(sizeof "bound to")));
    }
    const std::pair<int, QString> theTexts[] = {{kKeyColumn, Text(theKey.theKey)},
                                                {kTypeColumn, Text(theKey.theType)},
                                                {kBindingColumn, theBindings.join(QStringLiteral(", "))}};
    for (const auto& [theColumn, theText] : theTexts) {
        QTableWidgetItem* theItem = mKeys->item(theRow, theColumn);
        if (theItem == nullptr) {
            theItem = new QTableWidgetItem;
            theItem->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
            mKeys->setItem(theRow, theColumn, theItem);
        }
        theItem->setText(theText);
        theItem->setToolTip(theText);
    }
}

void InspectorWindow::ShowKeys()
{
    const LmSurveyedObject theObject = mSurvey.FindObject(mChosen);
    mTitle->setText(theObject.theNumber == 0 ? QString()
                                             : Text(theObject.theName + "  (" + theObject.theClass + ")"));
    const std::vector<LmSurveyedKey> theKeys = mSurvey.FindKeys(mChosen);
    mIsFilling = true;
    mKeys->setRowCount(static_cast<int>(theKeys.size()));
    for (int theRow = 0; theRow < mKeys->rowCount(); ++theRow) {
        const LmSurveyedKey& theKey = theKeys[static_cast<std::size_t>(theRow)];
        ShowBinding(theKey, theRow);
        auto* theValue = static_cast<ValueItem*>(mKeys->item(theRow, kValueColumn));
        if (theValue == nullptr) {
            theValue = new ValueItem;
            mKeys->setItem(theRow, kValueColumn, theValue);
        }
        const Qt::ItemFlags theEditing = theKey.isEditable ? Qt::ItemIsEditable : Qt::NoItemFlags;
        theValue->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled | theEditing);
        theValue->Show(theKey);
    }
    mIsFilling = false;
}

// Each change stands under what led to it, as far as that is shown too.
void InspectorWindow::ShowChanges()
{
    const bool isAtEnd = mChanges->verticalScrollBar()->value() == mChanges->verticalScrollBar()->maximum();
    mChanges->clear();
    std::map<std::uint64_t, QTreeWidgetItem*> theItems; // by the numbers of what they show
    for (const LmSurveyedChange& theChange : mSurvey.FindChanges(kShownChanges)) {
        const QStringList theTexts = {Text(theChange.theText)};
        const auto theCause = theItems.find(theChange.theCause);
        theItems[theChange.theNumber] = theCause != theItems.end()
                                            ? new QTreeWidgetItem(theCause->second, theTexts)
                                            : new QTreeWidgetItem(mChanges, theTexts);
    }
    mChanges->expandAll();
    if (isAtEnd) {
        mChanges->scrollToBottom();
    }
}

std::string InspectorWindow::ChosenKey() const
{
    const QTableWidgetItem* const theItem =
        mKeys->currentRow() >= 0 ? mKeys->item(mKeys->currentRow(), kKeyColumn) : nullptr;
    return theItem != nullptr ? theItem->text().toStdString() : std::string();
}

void InspectorWindow::ShowReasons()
{
    mReasons->clear();
    const std::string theKey = ChosenKey();
    const std::vector<std::string> theReasons = mSurvey.FindReasons(mChosen, theKey);
    for (const std::string& theReason : theReasons) {
        new QTreeWidgetItem(mReasons, {Text(theReason)});
    }
    if (theReasons.empty()) {
        new QTreeWidgetItem(mReasons, {theKey.empty() ? QStringLiteral("Choose a key above.")
                                                      : Text(theKey + " has not changed.")});
    }
}

// ---- What a person does

void InspectorWindow::ChooseItem(const QTreeWidgetItem* theItem)
{
    if (mIsFilling || theItem == nullptr || theItem->data(0, kNumber).isNull()) {
        return;
    }
    mChosen = theItem->data(0, kNumber).toULongLong();
    ShowKeys();
    ChooseKey();
    ShowReasons();
    mGraph->Show(mSurvey, mChosen);
}

// The first one that is bound is asked for most often.
void InspectorWindow::ChooseKey()
{
    int theRow = 0;
    while (theRow < mKeys->rowCount() && mKeys->item(theRow, kBindingColumn)->text().isEmpty()) {
        ++theRow;
    }
    mKeys->setCurrentCell(theRow < mKeys->rowCount() ? theRow : 0, kValueColumn);
}

void InspectorWindow::Choose(std::uint64_t theObject)
{
    ShowObjects();
    for (QTreeWidgetItemIterator theItem(mObjects); *theItem != nullptr; ++theItem) {
        if ((*theItem)->data(0, kNumber).toULongLong() == theObject) {
            mFilter->clear();
            mObjects->setCurrentItem(*theItem);
            return;
        }
    }
}

void InspectorWindow::TakeEdit(const QTableWidgetItem& theItem)
{
    if (!mIsFilling && theItem.column() == kValueColumn) {
        SetSoon(mChosen, mKeys->item(theItem.row(), kKeyColumn)->text().toStdString(),
                theItem.data(kTyped).toString().toStdString());
    }
}

void InspectorWindow::SetSoon(std::uint64_t theObject, const std::string& theKey, const std::string& theText)
{
    const QPointer<InspectorWindow> theWindow(this);
    DoSoon([theWindow, theObject, theKey, theText] {
        if (theWindow != nullptr) {
            const bool isSet = theWindow->mSurvey.SetValue(theObject, theKey, theText);
            // What was set may have closed the window.
            if (theWindow != nullptr) {
                theWindow->NoteSet(isSet, theKey, theText);
            }
        }
    });
}

void InspectorWindow::NoteSet(bool isSet, const std::string& theKey, const std::string& theText)
{
    mMessage->setText(
        Text(isSet ? theKey + " was set to " + theText : theText + " is no value that " + theKey + " takes"));
    ShowAll();
}

void InspectorWindow::BeginPick(bool isOn)
{
    if (isOn) {
        mMessage->setText(QStringLiteral("Click a control of the program; Escape gives up."));
        mPick->Start();
    } else {
        mPick->Stop();
    }
}

void InspectorWindow::EndPick(std::uint64_t theObject)
{
    mPickButton->setChecked(false);
    mMessage->setText(theObject == 0 ? QStringLiteral("Nothing that is bound was picked.") : QString());
    Choose(theObject);
    activateWindow();
}
