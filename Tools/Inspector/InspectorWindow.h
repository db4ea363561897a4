// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef InspectorWindow_h
#define InspectorWindow_h

#include "LmLiveSurvey.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <QTimer>
#include <QWidget>
#include <string>

class InspectorGraph;
class InspectorPick;
class QLabel;
class QLineEdit;
class QTableWidget;
class QTableWidgetItem;
class QToolButton;
class QTreeWidget;
class QTreeWidgetItem;

// The inspector's window. It asks again a few times in a second whether something has happened, and shows it.
// What a person types into a value is set from the program's own event loop, as a timer of the program would.
class InspectorWindow : public QWidget
{
public:
    // theSurvey outlives it.
    explicit InspectorWindow(LmLiveSurvey& theSurvey);
    ~InspectorWindow() override;
    InspectorWindow(const InspectorWindow&) = delete;
    InspectorWindow& operator=(const InspectorWindow&) = delete;

protected:
    void showEvent(QShowEvent* theEvent) override;
    void keyPressEvent(QKeyEvent* theEvent) override;

private:
    QWidget* MakeObjects();
    QWidget* MakeKeys();
    QWidget* MakeDetails();
    QWidget* MakeTools();

    void Refresh();
    void ShowAll();
    void ShowObjects();
    void ShowKeys();
    void ShowBinding(const LmSurveyedKey& theKey, int theRow);
    void ShowChanges();
    void ShowReasons();
    void FilterObjects();
    void Choose(std::uint64_t theObject);
    void ChooseKey();
    void ChooseItem(const QTreeWidgetItem* theItem);
    void TakeEdit(const QTableWidgetItem& theItem);
    void SetSoon(std::uint64_t theObject, const std::string& theKey, const std::string& theText);
    void NoteSet(bool isSet, const std::string& theKey, const std::string& theText);
    void BeginPick(bool isOn);
    void EndPick(std::uint64_t theObject);
    std::string ChosenKey() const;

    LmLiveSurvey& mSurvey;
    std::uint64_t mSeen = 0; // how much had happened when it was shown last
    std::uint64_t mChosen = 0;
    bool mIsFilling = false; // what changes in a table was not typed
    QLineEdit* mFilter = nullptr;
    QTreeWidget* mObjects = nullptr;
    QLabel* mTitle = nullptr;
    QTableWidget* mKeys = nullptr;
    QTreeWidget* mChanges = nullptr;
    QTreeWidget* mReasons = nullptr;
    InspectorGraph* mGraph = nullptr;
    QToolButton* mPickButton = nullptr;
    QLabel* mMessage = nullptr;
    std::unique_ptr<InspectorPick> mPick;
    QTimer mTimer;
};

#endif
