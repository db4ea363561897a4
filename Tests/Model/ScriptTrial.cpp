// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ScriptTrial.h"

#include "LibrarySystem.h"
#include "ReferenceModel.h"
#include "ScriptPlayer.h"

#include <type_traits>

namespace Model {

namespace {

// Takes out parts of a list, halves first, then quarters, and at last each item alone, as long as the script
// still is one that is looked for.
template <typename Item>
bool ShrinkList(Script& theScript, std::vector<Item>& theList, const Question& theQuestion)
{
    bool hasShrunk = false;
    for (std::size_t theLength = theList.size(); theLength > 0; theLength /= 2) {
        for (std::size_t theEnd = theList.size(); theEnd >= theLength && theEnd > 0;) {
            const std::vector<Item> theWhole = theList;
            const auto theLast = theList.begin() + static_cast<std::ptrdiff_t>(theEnd);
            theList.erase(theLast - static_cast<std::ptrdiff_t>(theLength), theLast);
            if (theQuestion(theScript)) {
                hasShrunk = true;
            } else {
                theList = theWhole;
            }
            theEnd -= theLength;
        }
    }
    return hasShrunk;
}

// Gives a part of the script a simpler value, if it still is one that is looked for.
template <typename Part>
bool Simplify(Script& theScript, Part& thePart, const std::common_type_t<Part>& theSimpler,
              const Question& theQuestion)
{
    if (thePart == theSimpler) {
        return false;
    }
    const Part theOld = thePart;
    thePart = theSimpler;
    if (theQuestion(theScript)) {
        return true;
    }
    thePart = theOld;
    return false;
}

bool SimplifyOnce(Script& theScript, const Question& theQuestion)
{
    bool hasShrunk = false;
    for (Operation& theOperation : theScript.theOperations) {
        hasShrunk = Simplify(theScript, theOperation.theTransform, kNobody, theQuestion) || hasShrunk;
        hasShrunk = Simplify(theScript, theOperation.theReverse, kNobody, theQuestion) || hasShrunk;
    }
    for (ObjectPlan& thePlan : theScript.theObjects) {
        hasShrunk = Simplify(theScript, thePlan.isLoud, false, theQuestion) || hasShrunk;
        hasShrunk = Simplify(theScript, thePlan.canReturn, false, theQuestion) || hasShrunk;
        hasShrunk = Simplify(theScript, thePlan.theUnbindable, {}, theQuestion) || hasShrunk;
    }
    for (Reaction& theReaction : theScript.theReactions) {
        hasShrunk = Simplify(theScript, theReaction.theTimes, 1, theQuestion) || hasShrunk;
    }
    return hasShrunk;
}

bool ShrinkOnce(Script& theScript, const Question& theQuestion)
{
    bool hasShrunk = ShrinkList(theScript, theScript.theOperations, theQuestion);
    hasShrunk = ShrinkList(theScript, theScript.theReactions, theQuestion) || hasShrunk;
    for (Reaction& theReaction : theScript.theReactions) {
        hasShrunk = ShrinkList(theScript, theReaction.theOperations, theQuestion) || hasShrunk;
    }
    for (std::vector<Step>& theSteps : theScript.theTransforms) {
        hasShrunk = ShrinkList(theScript, theSteps, theQuestion) || hasShrunk;
    }
    return hasShrunk;
}

} // namespace

std::string PlayOnModel(Script& theScript)
{
    for (;;) {
        ScriptPlayer thePlayer(theScript);
        ReferenceModel theModel(thePlayer);
        try {
            thePlayer.Play(theModel, true);
            return thePlayer.GetTranscript();
        } catch (const Undefined&) {
        } catch (const Endless&) {
        }
        theScript.theOperations.erase(theScript.theOperations.begin() +
                                      static_cast<std::ptrdiff_t>(thePlayer.GetPosition()));
    }
}

std::string PlayOnLibrary(const Script& theScript, bool isShown)
{
    ScriptPlayer thePlayer(theScript);
    thePlayer.SetShown(isShown);
    LibrarySystem theLibrary(thePlayer, theScript.theObjects);
    thePlayer.Play(theLibrary, false);
    theLibrary.Finish();
    return thePlayer.GetTranscript();
}

Script Shrink(const Script& theScript, const Question& theQuestion)
{
    Script theShrunk = theScript;
    while (ShrinkOnce(theShrunk, theQuestion) || SimplifyOnce(theShrunk, theQuestion)) {
    }
    return theShrunk;
}

} // namespace Model
