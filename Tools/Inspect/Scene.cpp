// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Scene.h"

#include "Value.h"

namespace Inspect {

std::size_t Scene::FindThing(std::uint64_t theID) const
{
    const auto theFound = mNumbers.find(theID);
    return theFound == mNumbers.end() ? kNone : theFound->second;
}

std::size_t Scene::FindKey(std::size_t theThing, const std::string& theName) const
{
    const auto theFound = mKeyNumbers.find({theThing, theName});
    return theFound == mKeyNumbers.end() ? kNone : theFound->second;
}

bool Scene::IsImplied(const Wire& theWire) const
{
    return theWire.theWay == Way::Observation &&
           mBound.count({theWire.theFrom, theWire.theFromKey, theWire.theTo}) > 0;
}

std::size_t Scene::NumberOf(const Object& theObject)
{
    if (theObject.theID == 0) {
        return kNone;
    }
    const auto [thePlace, isNew] = mNumbers.insert({theObject.theID, mThings.size()});
    if (isNew) {
        mThings.push_back({theObject, {}, false});
    }
    mThings[thePlace->second].theObject = theObject;
    return thePlace->second;
}

// All keys together are the object.
std::size_t Scene::NumberOfKey(std::size_t theThing, const std::string& theName)
{
    if (theThing == kNone || theName.empty() || theName == "*") {
        return kNone;
    }
    const auto [thePlace, isNew] = mKeyNumbers.insert({{theThing, theName}, mKeys.size()});
    if (isNew) {
        mThings[theThing].theKeys.push_back(mKeys.size());
        mKeys.push_back({theThing, theName, false});
    }
    return thePlace->second;
}

// An object that is spoken of is there.
std::size_t Scene::Meet(const Object& theObject, std::vector<Move>& theMoves)
{
    const std::size_t theThing = NumberOf(theObject);
    if (theThing != kNone && !mThings[theThing].isThere) {
        mThings[theThing].isThere = true;
        theMoves.push_back({What::Thing, theThing, {}, true});
    }
    return theThing;
}

// Two keys that follow each other have one wire between them.
void Scene::Connect(Way theWay, const std::pair<std::size_t, std::size_t>& theFrom,
                    const std::pair<std::size_t, std::size_t>& theTo, Step& theStep)
{
    if (theFrom.first == kNone || theTo.first == kNone) {
        return;
    }
    const auto theBack =
        mWireNumbers.find({theWay, theTo.first, theTo.second, theFrom.first, theFrom.second});
    if (theWay == Way::Binding) {
        mBound.insert({theFrom.first, theFrom.second, theTo.first});
    }
    if (theWay == Way::Binding && theBack != mWireNumbers.end() && theFrom != theTo) {
        theStep.theWire = theBack->second;
        theStep.isBack = true;
        return;
    }
    const auto [thePlace, isNew] = mWireNumbers.insert(
        {{theWay, theFrom.first, theFrom.second, theTo.first, theTo.second}, mWires.size()});
    if (isNew) {
        mWires.push_back(
            {theWay, theFrom.first, theFrom.second, theTo.first, theTo.second, {}, {}, false, false});
    }
    theStep.theWire = thePlace->second;
    theStep.isBack = false;
}

void Scene::Switch(bool isThere, Step& theStep)
{
    if (theStep.theWire == kNone) {
        return;
    }
    Wire& theWire = mWires[theStep.theWire];
    bool& theState = theStep.isBack ? theWire.isBackThere : theWire.isThere;
    if (theState != isThere) {
        theState = isThere;
        theStep.theMoves.push_back(
            {theStep.isBack ? What::BackWire : What::Wire, theStep.theWire, {}, isThere});
    }
}

void Scene::TakeEnds(const Entry& theEntry, Step& theStep)
{
    const bool isAnEnd = theEntry.theWhat == Inspect::What::Unbind ||
                         theEntry.theWhat == Inspect::What::Unobserve ||
                         theEntry.theWhat == Inspect::What::Undepend;
    const auto MeetOrFind = [&](const Object& theObject) {
        return isAnEnd ? NumberOf(theObject) : Meet(theObject, theStep.theMoves);
    };
    theStep.theThing = MeetOrFind(theEntry.theObject);
    theStep.theKey = NumberOfKey(theStep.theThing, theEntry.theKey);
    switch (theEntry.theWhat) {
    case Inspect::What::Bind:
    case Inspect::What::Unbind:
    case Inspect::What::Update:
    case Inspect::What::Transform: {
        const std::size_t theSource = MeetOrFind(theEntry.theOther);
        Connect(Way::Binding, {theSource, NumberOfKey(theSource, theEntry.theOtherKey)},
                {theStep.theThing, theStep.theKey}, theStep);
        if (theStep.theWire != kNone && theEntry.theTransform.theID != 0) {
            Wire& theWire = mWires[theStep.theWire];
            (theStep.isBack ? theWire.theBackTransform : theWire.theTransform) =
                theEntry.theTransform.theClass;
        }
        break;
    }
    case Inspect::What::Observe:
    case Inspect::What::Unobserve:
        Connect(Way::Observation, {theStep.theThing, theStep.theKey}, {MeetOrFind(theEntry.theOther), kNone},
                theStep);
        break;
    case Inspect::What::Depend:
    case Inspect::What::Undepend:
        Connect(Way::Dependency, {theStep.theThing, theStep.theKey},
                {theStep.theThing, NumberOfKey(theStep.theThing, theEntry.theOtherKey)}, theStep);
        break;
    case Inspect::What::Told:
        Connect(Way::Dependency, {theStep.theThing, NumberOfKey(theStep.theThing, theEntry.theOtherKey)},
                {theStep.theThing, theStep.theKey}, theStep);
        break;
    default:
        break;
    }
    Switch(!isAnEnd, theStep);
}

void Scene::TakeValue(const Entry& theEntry, Step& theStep)
{
    if (theStep.theKey == kNone || theEntry.theWhat == Inspect::What::Transform) {
        return;
    }
    Key& theKey = mKeys[theStep.theKey];
    if (!theKey.hasValue && theEntry.theOld.IsThere()) {
        mBeginning.push_back({What::Key, theStep.theKey, Show(theEntry.theOld, kLongestValue), true});
        theKey.hasValue = true;
    }
    if (theEntry.theNew.IsThere()) {
        theStep.theMoves.push_back({What::Key, theStep.theKey, Show(theEntry.theNew, kLongestValue), true});
        theKey.hasValue = true;
    }
}

Scene::Step Scene::Take(const Entry& theEntry)
{
    Step theStep;
    if (theEntry.theObject.theID == 0) {
        return theStep;
    }
    if (theEntry.theWhat == Inspect::What::Destroyed) {
        theStep.theThing = NumberOf(theEntry.theObject);
        if (mThings[theStep.theThing].isThere) {
            mThings[theStep.theThing].isThere = false;
            theStep.theMoves.push_back({What::Thing, theStep.theThing, {}, false});
        }
        return theStep;
    }
    TakeEnds(theEntry, theStep);
    TakeValue(theEntry, theStep);
    return theStep;
}

void Scene::BeginLinks(const Graph& theGraph, Step& theStep)
{
    const auto Place = [this](std::uint64_t theID, const std::string& theKey) {
        const std::size_t theThing = FindThing(theID);
        return std::make_pair(theThing, NumberOfKey(theThing, theKey));
    };
    for (const auto& [theRecord, theArrow] : theGraph.GetArrows()) {
        theStep.theWire = kNone;
        Connect(Way::Binding, Place(theArrow.theFrom, theArrow.theFromKey),
                Place(theArrow.theTo, theArrow.theToKey), theStep);
        if (theStep.theWire != kNone) {
            Wire& theWire = mWires[theStep.theWire];
            (theStep.isBack ? theWire.theBackTransform : theWire.theTransform) = theArrow.theTransform;
        }
        Switch(true, theStep);
    }
    for (const auto& [theStore, theKey, theObserver] : theGraph.GetObservations()) {
        theStep.theWire = kNone;
        Connect(Way::Observation, Place(theStore, theKey), Place(theObserver, {}), theStep);
        Switch(true, theStep);
    }
    for (const auto& [theStore, theKey, theDependent] : theGraph.GetDependencies()) {
        theStep.theWire = kNone;
        Connect(Way::Dependency, Place(theStore, theKey), Place(theStore, theDependent), theStep);
        Switch(true, theStep);
    }
}

void Scene::Begin(const Graph& theGraph)
{
    Step theStep;
    for (const auto& [theID, theBox] : theGraph.GetBoxes()) {
        Object theObject = theBox.theObject;
        theObject.theID = theID;
        const std::size_t theThing = Meet(theObject, theStep.theMoves);
        for (const auto& [theName, theValue] : theBox.theKeys) {
            const std::size_t theKey = NumberOfKey(theThing, theName);
            if (theKey != kNone && theValue.IsThere()) {
                mKeys[theKey].hasValue = true;
                theStep.theMoves.push_back({What::Key, theKey, Show(theValue, kLongestValue), true});
            }
        }
    }
    BeginLinks(theGraph, theStep);
    mBeginning = std::move(theStep.theMoves);
}

} // namespace Inspect
