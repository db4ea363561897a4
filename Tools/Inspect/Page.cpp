// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Page.h"

#include "Callers.h"
#include "Describe.h"
#include "Json.h"
#include "Layout.h"
#include "PageParts.h"
#include "Scene.h"
#include "Status.h"
#include "Survey.h"
#include "Text.h"
#include "Why.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <sstream>
#include <unordered_map>
#include <vector>

namespace Inspect {

namespace {

constexpr std::int64_t kNobody = -1;

std::int64_t Index(std::size_t theIndex)
{
    return theIndex == Scene::kNone ? kNobody : static_cast<std::int64_t>(theIndex);
}

// A text of whatever length, for a person.
std::string Shorten(std::string_view theText, std::size_t theLimit = Scene::kLongestName)
{
    const std::string theQuoted = Quote(theText, theLimit);
    return theQuoted.substr(1, theQuoted.size() - 2);
}

// Each text is written once, and has a number.
class Texts
{
public:
    Texts() { Number({}); }

    std::int64_t Number(const std::string& theText)
    {
        const auto [thePlace, isNew] = mNumbers.insert({theText, static_cast<std::int64_t>(mTexts.size())});
        if (isNew) {
            mTexts.push_back(&thePlace->first);
        }
        return thePlace->second;
    }

    void Write(Json& theJson) const
    {
        theJson.BeginList();
        for (const std::string* const theText : mTexts) {
            theJson.Text(*theText);
        }
        theJson.EndList();
    }

private:
    std::unordered_map<std::string, std::int64_t> mNumbers;
    std::vector<const std::string*> mTexts;
};

// Writes what a page holds. Numbers stand for objects, keys, wires and texts; the script in Page reads them.
class Writer
{
public:
    Writer(const std::deque<Entry>& theEntries, const Graph& theBefore, Callers& theCallers,
           std::ostream& theOutput)
        : mEntries(theEntries),
          mCallers(theCallers),
          mJson(theOutput)
    {
        mScene.Begin(theBefore);
        mSteps.reserve(theEntries.size());
        for (const Entry& theEntry : theEntries) {
            mSteps.push_back(mScene.Take(theEntry));
        }
    }

    Json& GetJson() { return mJson; }
    void WriteScene();
    void WriteEntries();
    void WriteFindings(const std::vector<Finding>& theFindings);
    void WriteLayout(std::size_t theMostPlaced);
    // The last, as all others have texts.
    void WriteTexts();

private:
    void Member(std::string_view theName) { mJson.Name(theName); }
    void Text(const std::string& theText) { mJson.Number(mTexts.Number(theText)); }
    std::size_t Slot(const Scene::Move& theMove) const;
    void WriteMoves(const std::vector<Scene::Move>& theMoves);
    void WriteNumbers(const std::vector<double>& theNumbers);
    void WriteWires();
    void WriteEntry(const Entry& theEntry, const Scene::Step& theStep);
    void WriteReason(const Entry& theEntry);
    const Entry* Find(std::uint64_t theNumber) const;
    Layout MakeLayoutOfScene(std::size_t theMostPlaced) const;
    std::size_t RowOf(std::size_t theKey) const;

    const std::deque<Entry>& mEntries;
    Callers& mCallers;
    Json mJson;
    Texts mTexts;
    Scene mScene;
    std::vector<Scene::Step> mSteps;
};

// Keys, objects and both ways of the wires are numbered through.
std::size_t Writer::Slot(const Scene::Move& theMove) const
{
    const std::size_t theKeys = mScene.GetKeys().size();
    const std::size_t theThings = mScene.GetThings().size();
    switch (theMove.theWhat) {
    case Scene::What::Key:
        return theMove.theIndex;
    case Scene::What::Thing:
        return theKeys + theMove.theIndex;
    case Scene::What::Wire:
        return theKeys + theThings + 2 * theMove.theIndex;
    case Scene::What::BackWire:
        return theKeys + theThings + 2 * theMove.theIndex + 1;
    }
    return 0;
}

void Writer::WriteMoves(const std::vector<Scene::Move>& theMoves)
{
    mJson.BeginList();
    for (const Scene::Move& theMove : theMoves) {
        mJson.Number(Index(Slot(theMove)));
        if (theMove.theWhat == Scene::What::Key) {
            Text(theMove.theValue);
        } else {
            mJson.Number(theMove.isThere ? 1 : 0);
        }
    }
    mJson.EndList();
}

void Writer::WriteWires()
{
    Member("wires");
    mJson.BeginList();
    for (const Scene::Wire& theWire : mScene.GetWires()) {
        mJson.BeginList();
        mJson.Number(mScene.IsImplied(theWire) ? kNobody : static_cast<std::int64_t>(theWire.theWay));
        mJson.Number(Index(theWire.theFrom));
        mJson.Number(Index(theWire.theFromKey));
        mJson.Number(Index(theWire.theTo));
        mJson.Number(Index(theWire.theToKey));
        Text(Shorten(theWire.theTransform));
        Text(Shorten(theWire.theBackTransform));
        mJson.EndList();
    }
    mJson.EndList();
}

void Writer::WriteScene()
{
    Member("objects");
    mJson.BeginList();
    for (const Scene::Thing& theThing : mScene.GetThings()) {
        mJson.BeginList();
        mJson.Number(static_cast<std::int64_t>(theThing.theObject.theID));
        Text(Shorten(ShowObject(theThing.theObject)));
        Text(Shorten(theThing.theObject.theClass));
        mJson.EndList();
    }
    mJson.EndList();
    Member("keys");
    mJson.BeginList();
    for (const Scene::Key& theKey : mScene.GetKeys()) {
        mJson.BeginList();
        mJson.Number(Index(theKey.theThing));
        Text(Shorten(theKey.theName));
        mJson.EndList();
    }
    mJson.EndList();
    WriteWires();
    Member("beginning");
    WriteMoves(mScene.GetBeginning());
}

// Null when it is before those on the page.
const Entry* Writer::Find(std::uint64_t theNumber) const
{
    const auto theFound = std::lower_bound(
        mEntries.begin(), mEntries.end(), theNumber,
        [](const Entry& theEntry, std::uint64_t theOther) { return theEntry.theNumber < theOther; });
    return theFound == mEntries.end() || theFound->theNumber != theNumber ? nullptr : &*theFound;
}

void Writer::WriteReason(const Entry& theEntry)
{
    const Entry* const theCause = Find(theEntry.theCause);
    const bool isKnown = theEntry.theCause == 0 || theCause != nullptr;
    if (theEntry.theWhat == What::Changed && isKnown) {
        Text(Shorten(
            SayHowSet(theEntry, theCause, theCause == nullptr ? nullptr : Find(theCause->theCause), mCallers),
            Scene::kLongestValue));
    } else if (theEntry.theCause == 0) {
        Text(Shorten(mCallers.ShowInnermost(theEntry), Scene::kLongestValue));
    } else {
        Text({});
    }
}

void Writer::WriteEntry(const Entry& theEntry, const Scene::Step& theStep)
{
    const std::string theOld = theEntry.theOld.IsThere() ? Show(theEntry.theOld, Scene::kLongestValue) : "";
    const std::string theNew = theEntry.theNew.IsThere() ? Show(theEntry.theNew, Scene::kLongestValue) : "";
    mJson.BeginList();
    mJson.Number(static_cast<std::int64_t>(theEntry.theNumber));
    mJson.Number(static_cast<std::int64_t>(theEntry.theCause));
    mJson.Number(static_cast<std::int64_t>(theEntry.theTime));
    mJson.Number(static_cast<std::int64_t>(theEntry.theWhat));
    mJson.Number(Index(theStep.theThing));
    mJson.Number(Index(theStep.theKey));
    mJson.Number(theStep.theWire == Scene::kNone ? kNobody
                                                 : Index(2 * theStep.theWire + (theStep.isBack ? 1 : 0)));
    Text(Shorten(Describe(theEntry), 2 * Scene::kLongestValue));
    Text(theOld);
    Text(theNew);
    WriteReason(theEntry);
    WriteMoves(theStep.theMoves);
    mJson.EndList();
}

void Writer::WriteEntries()
{
    Member("kinds");
    mJson.BeginList();
    mJson.Text("unknown");
    for (const std::string_view theName : AllNames()) {
        mJson.Text(theName);
    }
    mJson.EndList();
    Member("entries");
    mJson.BeginList();
    for (std::size_t theIndex = 0; theIndex < mEntries.size(); ++theIndex) {
        WriteEntry(mEntries[theIndex], mSteps[theIndex]);
    }
    mJson.EndList();
}

void Writer::WriteFindings(const std::vector<Finding>& theFindings)
{
    Member("findings");
    mJson.BeginList();
    for (const Finding& theFinding : theFindings) {
        const std::size_t theThing = mScene.FindThing(theFinding.theObject.theID);
        mJson.BeginList();
        mJson.Text(NameOf(theFinding.theRule));
        mJson.Number(static_cast<std::int64_t>(theFinding.theEntry));
        mJson.Text(Shorten(ShowKey(theFinding.theObject, theFinding.theKey)));
        mJson.Text(Shorten(theFinding.theSentence, 2 * Scene::kLongestValue));
        mJson.Text(Shorten(theFinding.theCaller, Scene::kLongestValue));
        mJson.Number(static_cast<std::int64_t>(theFinding.theCount));
        mJson.Text(PageOf(theFinding.theRule));
        mJson.Number(Index(theThing));
        mJson.Number(theThing == Scene::kNone ? kNobody : Index(mScene.FindKey(theThing, theFinding.theKey)));
        mJson.EndList();
    }
    mJson.EndList();
}

// The row that a key has in its box; what has none there is in the row behind the others.
std::size_t Writer::RowOf(std::size_t theKey) const
{
    if (theKey == Scene::kNone) {
        return kLayoutHead;
    }
    const std::vector<std::size_t>& theKeys = mScene.GetThings()[mScene.GetKeys()[theKey].theThing].theKeys;
    const auto theRow = std::find(theKeys.begin(), theKeys.end(), theKey) - theKeys.begin();
    return std::min(static_cast<std::size_t>(theRow), kMostRows);
}

Layout Writer::MakeLayoutOfScene(std::size_t theMostPlaced) const
{
    constexpr std::size_t kLongestLabel = 24;
    Layout theLayout;
    if (mScene.GetThings().empty()) {
        return theLayout;
    }
    if (mScene.GetThings().size() > theMostPlaced) {
        theLayout.theProblem = "there are more than " + std::to_string(theMostPlaced) + " objects";
        return theLayout;
    }
    std::vector<LayoutBox> theBoxes;
    for (const Scene::Thing& theThing : mScene.GetThings()) {
        theBoxes.push_back({std::min(theThing.theKeys.size(), kMostRows + 1)});
    }
    std::vector<LayoutLine> theLines;
    for (const Scene::Wire& theWire : mScene.GetWires()) {
        if (!mScene.IsImplied(theWire)) {
            theLines.push_back(
                {theWire.theFrom, RowOf(theWire.theFromKey), theWire.theTo, RowOf(theWire.theToKey),
                 std::min(std::max(theWire.theTransform.size(), theWire.theBackTransform.size()),
                          kLongestLabel)});
        }
    }
    return MakeLayout(theBoxes, theLines);
}

void Writer::WriteNumbers(const std::vector<double>& theNumbers)
{
    mJson.BeginList();
    for (const double theNumber : theNumbers) {
        mJson.Decimal(theNumber);
    }
    mJson.EndList();
}

void Writer::WriteLayout(std::size_t theMostPlaced)
{
    const Layout theLayout = MakeLayoutOfScene(theMostPlaced);
    Member("box");
    mJson.BeginList();
    for (const int theSize : {kBoxWidth, kBoxHead, kBoxRow, static_cast<int>(kMostRows)}) {
        mJson.Number(theSize);
    }
    mJson.EndList();
    Member("layout");
    mJson.BeginObject();
    Member("problem");
    mJson.Text(theLayout.theProblem);
    if (theLayout.theProblem.empty()) {
        Member("size");
        WriteNumbers({theLayout.theWidth, theLayout.theHeight});
        Member("boxes");
        WriteNumbers(theLayout.theBoxes);
        Member("lines");
        mJson.BeginList();
        for (const std::vector<double>& theLine : theLayout.theLines) {
            WriteNumbers(theLine);
        }
        mJson.EndList();
    }
    mJson.EndObject();
}

void Writer::WriteTexts()
{
    Member("texts");
    mTexts.Write(mJson);
}

// theText with theParts in place of the words that stand between two "@".
void WriteFilled(std::string_view theText,
                 const std::vector<std::pair<std::string_view, std::string_view>>& theParts,
                 std::ostream& theOutput)
{
    for (const auto& [theName, thePart] : theParts) {
        const std::size_t thePlace = theText.find(theName);
        theOutput << theText.substr(0, thePlace) << thePart;
        theText.remove_prefix(thePlace + theName.size());
    }
    theOutput << theText;
}

std::string ScriptOfPage()
{
    std::string theScript;
    for (const std::string_view thePart : GetPageScripts()) {
        theScript += thePart;
    }
    return theScript;
}

void WritePage(const std::string& theData, std::ostream& theOutput)
{
    const std::string thePolicy = "default-src 'none'; script-src 'sha256-" +
                                  std::string(GetPageScriptHash()) + "'; style-src 'sha256-" +
                                  std::string(GetPageStyleHash()) + "'; base-uri 'none'; form-action 'none'";
    const std::string theScript = ScriptOfPage();
    WriteFilled(
        GetPageFrame(),
        {{"@POLICY@", thePolicy}, {"@STYLE@", GetPageStyle()}, {"@DATA@", theData}, {"@SCRIPT@", theScript}},
        theOutput);
}

} // namespace

void PageData::Take(const Entry& theEntry)
{
    ++mTaken;
    mLint.Take(theEntry);
    mCallers.Take(theEntry);
    if (theEntry.theWhat == What::Begin && mBegin.theNumber == 0) {
        mBegin = theEntry;
    }
    mEntries.push_back(theEntry);
    if (mEntries.size() > mMost) {
        mBefore.Take(mEntries.front());
        mEntries.pop_front();
    }
}

void PageData::Write(const Journal& theJournal, std::ostream& theOutput)
{
    mLint.Finish(theJournal.IsWhole(), theJournal.IsEnded());
    Writer theWriter(mEntries, mBefore, mCallers, theOutput);
    Json& theJson = theWriter.GetJson();
    const auto WriteText = [&theJson](std::string_view theName, const std::string& theText) {
        theJson.Name(theName);
        theJson.Text(theText);
    };
    const auto WriteCount = [&theJson](std::string_view theName, std::uint64_t theCount) {
        theJson.Name(theName);
        theJson.Number(static_cast<std::int64_t>(theCount));
    };
    theJson.BeginObject();
    WriteText("name", Shorten(theJournal.GetName()));
    WriteText("started", Shorten(mBegin.theDetail));
    WriteCount("count", mTaken);
    WriteCount("missing", theJournal.CountMissing());
    WriteCount("before", mTaken - mEntries.size());
    theJson.Name("whole");
    theJson.Boolean(theJournal.IsWhole());
    theJson.Name("ended");
    theJson.Boolean(theJournal.IsEnded());
    theJson.Name("callers");
    theJson.Boolean(theJournal.HasCallers());
    theWriter.WriteScene();
    theWriter.WriteEntries();
    theWriter.WriteFindings(mLint.GetFindings());
    theWriter.WriteLayout(mMostPlaced);
    theWriter.WriteTexts();
    theJson.EndObject();
}

int RunPage(Journal& theJournal, const std::string& theFile, std::ostream& theOutput, std::ostream& theErrors)
{
    PageData theData;
    Entry theEntry;
    while (theJournal.Next(theEntry)) {
        theData.Take(theEntry);
    }
    if (Finish(theJournal, theErrors) != kFine) {
        return kTrouble;
    }
    std::ostringstream theText;
    theData.Write(theJournal, theText);
    if (theFile.empty()) {
        WritePage(theText.str(), theOutput);
        return kFine;
    }
    std::ofstream thePage(theFile, std::ios::binary);
    WritePage(theText.str(), thePage);
    thePage.close();
    if (!thePage) {
        theErrors << "lminspect: " << Escape(theFile) << " cannot be written: " << std::strerror(errno)
                  << "\n";
        return kTrouble;
    }
    return kFine;
}

} // namespace Inspect
