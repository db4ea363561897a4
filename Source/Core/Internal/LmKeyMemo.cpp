// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmKeyMemo.h"

#include "LmDiagnostics.h"

namespace {

// A set that was nested too deep has been refused within the outermost set that is under way.
bool sHasRefused = false;

} // namespace

void LmChangeDepth::AskAlways(bool isAlways)
{
    // More than the stack has room for.
    constexpr int kEndless = 1 << 30;
    sLeft += isAlways ? -kEndless : kEndless;
}

bool LmKeyMemo::IsOfSameKeyAs(const LmKeyMemo& theOther) const
{
    return mStore == theOther.mStore && *mKeyName == *theOther.mKeyName;
}

// How many sets of this key are under way around this one.
int LmKeyMemo::CountSameKeyAround() const
{
    // A long chain of different keys is not walked through from each of its links: what comes back so often
    // before the stack is full comes back within a few.
    constexpr int kFar = 64;
    int theCount = 0;
    int theDistance = 0;
    for (const LmKeyMemo* theMemo = GetOuter(); theMemo != nullptr; theMemo = theMemo->GetOuter()) {
        theDistance += 1;
        if (theMemo->IsOfSameKeyAs(*this)) {
            theCount += 1;
        } else if (theCount == 0 && theDistance >= kFar) {
            break;
        }
    }
    return theCount;
}

bool LmKeyMemo::IsTooDeep() const
{
    if (sHasRefused && GetOuter() == nullptr) {
        // The first set after the one in which that was.
        sHasRefused = false;
        LmChangeDepth::AskAlways(false);
        return false;
    }
    const int theCount = CountSameKeyAround();
    if (sHasRefused) {
        return theCount > 0;
    }
    if (theCount <= kLmDeepest) {
        return false;
    }
    sHasRefused = true;
    LmChangeDepth::AskAlways(true);
    LM_ERROR("A set of %s.%s is nested in itself more than %d deep, and is not made",
             mStore->GetDebugInfo().GetUTF8(), mKeyName->GetUTF8(), kLmDeepest);
    return true;
}

void LmKeyMemo::StoreIsGone(const LmKeyValueStore* theStore)
{
    VisitAll([theStore](LmKeyMemo& theMemo) {
        if (theMemo.mStore == theStore) {
            theMemo.mStore = nullptr;
        }
    });
}
