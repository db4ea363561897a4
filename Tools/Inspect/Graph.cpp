// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Graph.h"

#include "Picture.h"
#include "Status.h"
#include "Text.h"

#include <ostream>
#include <sstream>

namespace Inspect {

namespace {

// Text inside of a label.
std::string InLabel(std::string_view theText)
{
    std::string theResult;
    for (const char theByte : theText) {
        switch (theByte) {
        case '&':
            theResult += "&amp;";
            break;
        case '<':
            theResult += "&lt;";
            break;
        case '>':
            theResult += "&gt;";
            break;
        case '"':
            theResult += "&quot;";
            break;
        default:
            theResult += theByte;
        }
    }
    return theResult;
}

// Every arrow has the same attributes but for these.
void WriteArrow(const std::string& theFrom, const std::string& theTo, const std::string& theAttributes,
                std::ostream& theOutput)
{
    theOutput << "  " << theFrom << " -> " << theTo
              << (theAttributes.empty() ? "" : " [" + theAttributes + "]") << ";\n";
}

} // namespace

Graph::Box* Graph::Meet(const Object& theObject)
{
    if (theObject.theID == 0) {
        return nullptr;
    }
    Box& theBox = mBoxes[theObject.theID];
    theBox.theObject = theObject;
    return &theBox;
}

void Graph::TakeKey(const Entry& theEntry)
{
    Box* const theBox = Meet(theEntry.theObject);
    if (theBox == nullptr || theEntry.theKey.empty() || theEntry.theKey == "*") {
        return;
    }
    Value& theValue = theBox->theKeys[theEntry.theKey];
    if (theEntry.theNew.IsThere() && theEntry.theWhat != What::Transform) {
        theValue = theEntry.theNew;
    }
}

void Graph::TakeLink(const Entry& theEntry)
{
    const std::uint64_t theObject = theEntry.theObject.theID;
    const std::uint64_t theOther = theEntry.theOther.theID;
    switch (theEntry.theWhat) {
    case What::Bind:
        if (Box* const theSource = Meet(theEntry.theOther)) {
            theSource->theKeys[theEntry.theOtherKey];
            mArrows[theEntry.theRecord] = {theObject, theEntry.theKey, theOther, theEntry.theOtherKey,
                                           theEntry.theTransform.theClass};
        }
        break;
    case What::Unbind:
        mArrows.erase(theEntry.theRecord);
        break;
    case What::Observe:
        Meet(theEntry.theOther);
        mObservations.insert({theObject, theEntry.theKey, theOther});
        break;
    case What::Unobserve:
        mObservations.erase({theObject, theEntry.theKey, theOther});
        break;
    case What::Depend:
        mBoxes[theObject].theKeys[theEntry.theOtherKey];
        mDependencies.insert({theObject, theEntry.theKey, theEntry.theOtherKey});
        break;
    case What::Undepend:
        mDependencies.erase({theObject, theEntry.theKey, theEntry.theOtherKey});
        break;
    default:
        break;
    }
}

void Graph::Forget(std::uint64_t theObject)
{
    mBoxes.erase(theObject);
    mDependencies.erase(mDependencies.lower_bound({theObject, {}, {}}),
                        mDependencies.lower_bound({theObject + 1, {}, {}}));
}

void Graph::Take(const Entry& theEntry)
{
    if (theEntry.theObject.theID == 0) {
        return;
    }
    if (theEntry.theWhat == What::Destroyed) {
        Forget(theEntry.theObject.theID);
        return;
    }
    const bool isAnEnd = theEntry.theWhat == What::Unbind || theEntry.theWhat == What::Unobserve;
    if (!isAnEnd) {
        TakeKey(theEntry);
    }
    TakeLink(theEntry);
}

// A key of a box in Graphviz's language; the box itself for "*", and for a key that is not shown.
std::string Graph::Place(std::uint64_t theObject, const std::string& theKey) const
{
    const std::string theBox = "o" + std::to_string(theObject);
    const auto& theKeys = mBoxes.at(theObject).theKeys;
    const auto theFound = theKeys.find(theKey);
    return theFound == theKeys.end()
               ? theBox
               : theBox + ":k" + std::to_string(std::distance(theKeys.begin(), theFound));
}

void Graph::WriteBox(std::uint64_t theID, const Box& theBox, std::ostream& theOutput) const
{
    theOutput << "  o" << theID
              << " [label=<<TABLE BORDER=\"1\" CELLBORDER=\"0\" CELLSPACING=\"0\" CELLPADDING=\"4\">"
              << "<TR><TD ALIGN=\"LEFT\"><B>" << InLabel(ShowObject(theBox.theObject))
              << "</B><BR ALIGN=\"LEFT\"/>" << InLabel(Escape(theBox.theObject.theClass))
              << "<BR ALIGN=\"LEFT\"/></TD></TR>";
    std::size_t theIndex = 0;
    for (const auto& [theKey, theValue] : theBox.theKeys) {
        theOutput << "<TR><TD ALIGN=\"LEFT\" PORT=\"k" << theIndex++ << "\">" << InLabel(Escape(theKey))
                  << " = " << InLabel(Show(theValue, 30)) << "</TD></TR>";
    }
    theOutput << "</TABLE>>];\n";
}

void Graph::WriteArrows(std::ostream& theOutput) const
{
    for (const auto& [theRecord, theArrow] : mArrows) {
        if (mBoxes.count(theArrow.theFrom) > 0 && mBoxes.count(theArrow.theTo) > 0) {
            WriteArrow(
                Place(theArrow.theFrom, theArrow.theFromKey), Place(theArrow.theTo, theArrow.theToKey),
                theArrow.theTransform.empty() ? "" : "label=<" + InLabel(Escape(theArrow.theTransform)) + ">",
                theOutput);
        }
    }
}

// What is bound observes its source; that is in the arrow of the binding.
bool Graph::IsBinding(std::uint64_t theObserver, std::uint64_t theStore, const std::string& theKey) const
{
    for (const auto& [theRecord, theArrow] : mArrows) {
        if (theArrow.theTo == theObserver && theArrow.theFrom == theStore && theArrow.theFromKey == theKey) {
            return true;
        }
    }
    return false;
}

void Graph::WriteObservers(std::ostream& theOutput) const
{
    for (const auto& [theObject, theKey, theDependent] : mDependencies) {
        WriteArrow(Place(theObject, theKey), Place(theObject, theDependent), "style=dashed, label=<depends>",
                   theOutput);
    }
    for (const auto& [theStore, theKey, theObserver] : mObservations) {
        if (mBoxes.count(theStore) > 0 && mBoxes.count(theObserver) > 0 &&
            !IsBinding(theObserver, theStore, theKey)) {
            WriteArrow(Place(theStore, theKey), "o" + std::to_string(theObserver),
                       "style=dashed, label=<observes>", theOutput);
        }
    }
}

void Graph::Write(std::ostream& theOutput) const
{
    theOutput << "digraph Bindings {\n"
                 "  graph [rankdir=LR, fontname=\"sans-serif\", ranksep=1];\n"
                 "  node [shape=plain, fontname=\"sans-serif\", fontsize=11];\n"
                 "  edge [fontname=\"sans-serif\", fontsize=10];\n";
    for (const auto& [theID, theBox] : mBoxes) {
        WriteBox(theID, theBox, theOutput);
    }
    WriteArrows(theOutput);
    WriteObservers(theOutput);
    theOutput << "}\n";
}

namespace {

// What a program does as long as it goes on.
bool IsActivity(const Entry& theEntry)
{
    return theEntry.theWhat == What::Made || theEntry.theWhat == What::Bind ||
           theEntry.theWhat == What::Observe || theEntry.theWhat == What::Action ||
           theEntry.theWhat == What::Changing;
}

// Takes the entries up to theLast, all of them when that is 0. Returns the first entry with which objects
// went that nothing came after but their end; 0 when there is none.
std::uint64_t TakeUpTo(std::uint64_t theLast, Journal& theJournal, Graph& theGraph)
{
    std::uint64_t theEnd = 0;
    Entry theEntry;
    while (theJournal.Next(theEntry) && (theLast == 0 || theEntry.theNumber <= theLast)) {
        theGraph.Take(theEntry);
        if (IsActivity(theEntry)) {
            theEnd = 0;
        } else if (theEnd == 0 && theEntry.theWhat == What::Destroyed) {
            theEnd = theEntry.theNumber;
        }
    }
    return theEnd;
}

} // namespace

int RunGraph(Journal& theJournal, const GraphOptions& theOptions, std::ostream& theOutput,
             std::ostream& theErrors)
{
    Graph theGraph;
    theJournal.KeepForRewind();
    const std::uint64_t theEnd = TakeUpTo(theOptions.theEntry, theJournal, theGraph);
    // A program that tidies up leaves nothing to see.
    if (theOptions.theEntry == 0 && theEnd > 1 && theGraph.GetBoxes().empty() && theJournal.Rewind()) {
        theGraph = Graph();
        TakeUpTo(theEnd - 1, theJournal, theGraph);
        theErrors << "lminspect: at the end every object is gone; this is how things stood at entry "
                  << theEnd - 1 << "\n";
    }
    if (Finish(theJournal, theErrors) != kFine) {
        return kTrouble;
    }
    if (theOptions.isDot) {
        theGraph.Write(theOutput);
        return kFine;
    }
    std::ostringstream theText;
    theGraph.Write(theText);
    const std::string theProblem = DrawPicture(theText.str(), theOutput);
    if (!theProblem.empty()) {
        theErrors << "lminspect: " << theProblem << "\n";
        return kTrouble;
    }
    return kFine;
}

} // namespace Inspect
