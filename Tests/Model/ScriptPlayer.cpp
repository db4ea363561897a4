// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ScriptPlayer.h"

#include <cstdio>
#include <cstdlib>
#include <tuple>

namespace Model {

ScriptPlayer::ScriptPlayer(const Script& theScript)
    : mScript(theScript),
      mSystem(nullptr),
      mCanThrow(false),
      mIsShown(false),
      mStart(0),
      mPosition(0),
      mIsThere(theScript.theObjects.size(), false),
      mIsOver(theScript.theObjects.size(), false),
      mTimes(theScript.theReactions.size(), 0),
      mDepth(0)
{
}

void ScriptPlayer::Play(System& theSystem, bool canThrow)
{
    mCanThrow = canThrow;
    mSystem = &theSystem;
    for (mPosition = 0; mPosition < mScript.theOperations.size(); ++mPosition) {
        mStart = mTranscript.size();
        Do(mScript.theOperations[mPosition]);
        WriteGoneTransforms();
    }
    theSystem.SetTracing(false);
}

// ---- What is written

void ScriptPlayer::Write(const std::string& theLine)
{
    if (IsTooLong()) {
        if (mCanThrow) {
            throw Endless();
        }
        std::_Exit(kTooLong);
    }
    const std::size_t theStart = mTranscript.size();
    mTranscript.append(static_cast<std::size_t>(mDepth) * 4 + 4, ' ');
    mTranscript += theLine;
    mTranscript += '\n';
    if (mIsShown) {
        std::fputs(mTranscript.c_str() + theStart, stdout);
        std::fflush(stdout);
    }
}

void ScriptPlayer::Told(Id theObserver, Id theStore, const std::string& theKey, bool hasChanged)
{
    Write(DescribeObject(mScript, theObserver) + (hasChanged ? " told after: " : " told before: ") +
          DescribeObject(mScript, theStore) + ", \"" + theKey + "\" is " +
          Describe(mSystem->GetKeyPathValue(theStore, theKey)));
    React(hasChanged ? Moment::Changed : Moment::Changing, theObserver, theKey);
}

void ScriptPlayer::Applying(int theTransform, const Value& theValue)
{
    Write("transform " + std::to_string(theTransform) + " gets " + Describe(theValue));
    React(Moment::Applying, theTransform, "");
}

void ScriptPlayer::Applied(int theTransform, const Value& theResult)
{
    Write("transform " + std::to_string(theTransform) + " makes " + Describe(theResult));
}

// When exactly a transform goes is not promised, only that the operation that lets go of it is its end.
void ScriptPlayer::TransformIsGone(int theTransform)
{
    mGoneTransforms.insert(theTransform);
}

void ScriptPlayer::WriteGoneTransforms()
{
    for (const int theTransform : mGoneTransforms) {
        Write("transform " + std::to_string(theTransform) + " is gone");
    }
    mGoneTransforms.clear();
}

void ScriptPlayer::Read(Id theStore, const std::string& theKey)
{
    Write(DescribeObject(mScript, theStore) + " is asked for \"" + theKey + "\"");
}

void ScriptPlayer::Written(Id theStore, const std::string& theKey, const Value& theValue)
{
    Write(DescribeObject(mScript, theStore) + " stores \"" + theKey + "\", " + Describe(theValue));
}

void ScriptPlayer::Reported(const std::string& theSource, const std::string& theMessage)
{
    Write("reported by " + theSource + ": " + theMessage);
}

void ScriptPlayer::Traced(const std::string& theLine)
{
    Write("traced: " + theLine);
}

// ---- What is done

void ScriptPlayer::React(Moment theMoment, int theActor, const std::string& theKey)
{
    if (mDepth >= kDeepest) {
        return;
    }
    for (std::size_t theIndex = 0; theIndex < mScript.theReactions.size(); ++theIndex) {
        const Reaction& theReaction = mScript.theReactions[theIndex];
        if (theReaction.theMoment != theMoment || theReaction.theActor != theActor ||
            (!theReaction.theKey.empty() && theReaction.theKey != theKey) ||
            mTimes[theIndex] >= theReaction.theTimes) {
            continue;
        }
        ++mTimes[theIndex];
        ++mDepth;
        for (const Operation& theOperation : theReaction.theOperations) {
            Do(theOperation);
        }
        --mDepth;
    }
}

bool ScriptPlayer::CanBeDone(const Operation& theOperation) const
{
    if (theOperation.theVerb == Verb::Create) {
        return !IsThere(theOperation.theObject) && !mIsOver[Index(theOperation.theObject)];
    }
    return IsThere(theOperation.theObject) && IsThere(theOperation.theOther);
}

void ScriptPlayer::Do(const Operation& theOperation)
{
    if (!CanBeDone(theOperation)) {
        return;
    }
    Write("> " + DescribeOperation(mScript, theOperation, mNumbers));
    switch (theOperation.theVerb) {
    case Verb::Create:
    case Verb::Destroy:
        DoLife(theOperation);
        break;
    case Verb::Get:
    case Verb::GetKey:
    case Verb::Set:
    case Verb::SetKey:
    case Verb::Has:
        DoValue(theOperation);
        break;
    case Verb::Observe:
    case Verb::Ignore:
    case Verb::IsObserving:
    case Verb::AmObserving:
    case Verb::RemoveObservers:
    case Verb::StopObserving:
    case Verb::Notify:
        DoObserving(theOperation);
        break;
    case Verb::MakeDependency:
    case Verb::BreakDependency:
    case Verb::IsDependent:
    case Verb::NotifyDependents:
        DoDependency(theOperation);
        break;
    case Verb::Bind:
    case Verb::BindTo:
    case Verb::Unbind:
    case Verb::UnbindAll:
        DoBinding(theOperation);
        break;
    default:
        DoOther(theOperation);
        break;
    }
}

void ScriptPlayer::DoLife(const Operation& theOperation)
{
    const Id theObject = theOperation.theObject;
    const ObjectPlan& thePlan = mScript.theObjects[Index(theObject)];
    const bool isNew = theOperation.theVerb == Verb::Create;
    mIsThere[Index(theObject)] = isNew;
    mIsOver[Index(theObject)] = !isNew && !thePlan.canReturn;
    if (thePlan.theSort == ObjectSort::Bindable) {
        mIsThere[Index(theObject) + 1] = isNew;
    }
    if (isNew) {
        mSystem->Create(theObject, thePlan);
    } else {
        mSystem->Destroy(theObject);
    }
}

void ScriptPlayer::DoValue(const Operation& theOperation)
{
    const auto& [theVerb, theStore, theKey] =
        std::tie(theOperation.theVerb, theOperation.theObject, theOperation.theKey);
    switch (theVerb) {
    case Verb::Get:
        Write("gives " + Describe(mSystem->GetKeyPathValue(theStore, theKey)));
        break;
    case Verb::GetKey:
        Write("gives " + Describe(mSystem->GetKeyValue(theStore, theKey)));
        break;
    case Verb::Set:
        mSystem->SetKeyPathValue(theStore, theKey, theOperation.theValue);
        break;
    case Verb::SetKey:
        mSystem->SetKeyValue(theStore, theKey, theOperation.theValue);
        break;
    default:
        WriteAnswer(mSystem->HasKey(theStore, theKey));
        break;
    }
}

void ScriptPlayer::DoObserving(const Operation& theOperation)
{
    const auto& [theVerb, theObject, theKey, theObserver] =
        std::tie(theOperation.theVerb, theOperation.theObject, theOperation.theKey, theOperation.theOther);
    switch (theVerb) {
    case Verb::Observe:
        mSystem->Observe(theObject, theKey, theObserver);
        break;
    case Verb::Ignore:
        mSystem->Ignore(theObject, theKey, theObserver);
        break;
    case Verb::IsObserving:
        WriteAnswer(mSystem->IsObserving(theObject, theKey, theObserver));
        break;
    case Verb::AmObserving:
        WriteAnswer(mSystem->AmObserving(theObject, theKey, theObserver));
        break;
    case Verb::RemoveObservers:
        mSystem->RemoveObservers(theObject);
        break;
    case Verb::StopObserving:
        mSystem->StopObserving(theObject);
        break;
    default:
        mSystem->NotifyObservers(theObject, theKey, theOperation.isOn);
        break;
    }
}

void ScriptPlayer::DoDependency(const Operation& theOperation)
{
    const auto& [theVerb, theStore, theKey, theDependent] =
        std::tie(theOperation.theVerb, theOperation.theObject, theOperation.theKey, theOperation.theOtherKey);
    switch (theVerb) {
    case Verb::MakeDependency:
        mSystem->MakeDependency(theStore, theKey, theDependent);
        break;
    case Verb::BreakDependency:
        mSystem->BreakDependency(theStore, theKey, theDependent);
        break;
    case Verb::IsDependent:
        WriteAnswer(mSystem->IsDependent(theStore, theKey, theDependent));
        break;
    default:
        mSystem->NotifyDependents(theStore, theKey);
        break;
    }
}

// A transform that is there already is shared.
void ScriptPlayer::Take(int theTransform)
{
    if (theTransform != kNobody) {
        mSystem->TakeTransform(theTransform, mScript.theTransforms[Index(theTransform)]);
    }
}

void ScriptPlayer::GiveBack(int theTransform)
{
    if (theTransform != kNobody) {
        mSystem->ReleaseTransform(theTransform);
    }
}

void ScriptPlayer::DoBinding(const Operation& theOperation)
{
    const auto& [theVerb, theObject, theKey, theOther, theOtherKey, theTransform, theReverse] =
        std::tie(theOperation.theVerb, theOperation.theObject, theOperation.theKey, theOperation.theOther,
                 theOperation.theOtherKey, theOperation.theTransform, theOperation.theReverse);
    if (theVerb == Verb::UnbindAll) {
        mSystem->UnbindAll(theObject);
        return;
    }
    if (theVerb == Verb::Unbind) {
        WriteStatus(mSystem->Unbind(theObject, theKey, theOther));
        return;
    }
    const bool isTwoWay = theVerb == Verb::Bind;
    Take(theTransform);
    if (isTwoWay) {
        Take(theReverse);
    }
    const int theStatus =
        isTwoWay ? mSystem->Bind(theObject, theKey, theOther, theOtherKey, theTransform, theReverse)
                 : mSystem->BindTo(theObject, theKey, theOther, theOtherKey, theTransform);
    WriteStatus(theStatus);
    if (theStatus != 0) {
        GiveBack(theTransform);
        GiveBack(isTwoWay ? theReverse : kNobody);
    }
}

void ScriptPlayer::Convert(const Value& theValue)
{
    for (const Kind theKind :
         {Kind::Boolean, Kind::UInt32, Kind::SInt32, Kind::UInt64, Kind::SInt64, Kind::Double}) {
        Write("gives " + Describe(mSystem->Convert(theValue, theKind)));
    }
}

void ScriptPlayer::DoOther(const Operation& theOperation)
{
    switch (theOperation.theVerb) {
    case Verb::Apply:
        Take(theOperation.theTransform);
        Write("gives " + Describe(mSystem->Apply(theOperation.theTransform, theOperation.theValue)));
        GiveBack(theOperation.theTransform);
        break;
    case Verb::Convert:
        Convert(theOperation.theValue);
        break;
    case Verb::Compare:
        WriteAnswer(mSystem->IsEqual(theOperation.theValue, theOperation.theOtherValue));
        break;
    case Verb::Split: {
        std::string theLeft;
        std::string theRight;
        WriteAnswer(mSystem->Split(theOperation.theKey, theOperation.theOtherKey, theLeft, theRight));
        Write("gives \"" + theLeft + "\", \"" + theRight + "\"");
        break;
    }
    default:
        mSystem->SetTracing(theOperation.isOn);
        break;
    }
}

} // namespace Model
