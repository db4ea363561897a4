// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFSetObject.h"

#include "CFText.h"

#include <algorithm>
#include <CoreFoundation/CFString.h>

namespace {

using Host::Members;

constexpr CFSetCallBacks kPointerCallBacks = {0, nullptr, nullptr, nullptr, nullptr, nullptr};

CFSetRef RequireSet(CFSetRef theSet, const char* theCaller)
{
    return Host::Require(theSet, Host::kSetType, theCaller);
}

CFMutableSetRef RequireMutableSet(CFMutableSetRef theSet, const char* theCaller)
{
    return Host::RequireMutable(theSet, Host::kSetType, theCaller);
}

const CFSetCallBacks& CallBacksOrPointers(const CFSetCallBacks* theCallBacks)
{
    return theCallBacks == nullptr ? kPointerCallBacks : *theCallBacks;
}

// An empty set looks at no value, not even at one that cannot be hashed.
Members::const_iterator Find(CFSetRef theSet, const void* theValue)
{
    return theSet->mMembers.empty() ? theSet->mMembers.end() : theSet->mMembers.find(theValue);
}

// Only for absent values. A value that finds no place is given back.
void AddMember(CFMutableSetRef theSet, const void* theValue)
{
    const void* const theOwnValue = Host::RetainValue(theSet->mCallBacks, theValue);
    if (theOwnValue == nullptr && theValue != nullptr) {
        return;
    }
    try {
        theSet->mMembers.insert(theOwnValue);
    } catch (...) {
        Host::ReleaseValue(theSet->mCallBacks, theOwnValue);
        throw;
    }
}

// The first of equal values stays.
void AddNewMember(CFMutableSetRef theSet, const void* theValue)
{
    if (Find(theSet, theValue) == theSet->mMembers.end()) {
        AddMember(theSet, theValue);
    }
}

// Needs no memory of its own: the node of the old value takes the new one.
void ReplaceMember(CFMutableSetRef theSet, Members::const_iterator theMember, const void* theValue)
{
    const void* const theOwnValue = Host::RetainValue(theSet->mCallBacks, theValue);
    if (theOwnValue == nullptr && theValue != nullptr) {
        return;
    }
    Members::node_type theNode = theSet->mMembers.extract(theMember);
    const void* const theOldValue = std::exchange(theNode.value(), theOwnValue);
    theSet->mMembers.insert(std::move(theNode));
    Host::ReleaseValue(theSet->mCallBacks, theOldValue);
}

// A release may run code that looks at the set, which is already without the value.
void RemoveMember(CFMutableSetRef theSet, Members::const_iterator theMember)
{
    const void* const theValue = *theMember;
    theSet->mMembers.erase(theMember);
    Host::ReleaseValue(theSet->mCallBacks, theValue);
}

CFMutableSetRef CopySet(CFSetRef theSet, bool theIsMutable)
{
    return Host::NothingWithoutMemory([=] {
        Host::NewObject<__CFSet> theCopy(theSet->mCallBacks, theIsMutable);
        for (const void* theValue : theSet->mMembers) {
            AddMember(theCopy.Get(), theValue);
        }
        return theCopy.Release();
    });
}

// Operations of the type

CFSetRef SetOf(const Host::Object* theObject)
{
    return static_cast<CFSetRef>(theObject);
}

bool EqualSets(const Host::Object* theFirst, const Host::Object* theSecond)
{
    const CFSetRef theSet = SetOf(theFirst);
    const CFSetRef theOther = SetOf(theSecond);
    return theSet->GetCount() == theOther->GetCount() &&
           std::all_of(theSet->mMembers.begin(), theSet->mMembers.end(), [=](const void* theValue) {
               return Find(theOther, theValue) != theOther->mMembers.end();
           });
}

CFHashCode HashSet(const Host::Object* theObject)
{
    return static_cast<CFHashCode>(SetOf(theObject)->GetCount());
}

CFStringRef DescribeSet(const Host::Object* theObject)
{
    const CFSetRef theSet = SetOf(theObject);
    Host::Text theText;
    theText.AppendHeader(theObject)
        .Append(theSet->mIsMutable ? "{type = mutable, count = " : "{type = immutable, count = ")
        .Append(std::to_string(theSet->GetCount()))
        .Append(", entries = (\n");
    for (const void* theValue : theSet->mMembers) {
        theText.Append("\t").AppendDescription(theValue, theSet->mCallBacks.copyDescription).Append("\n");
    }
    return theText.Append(")}").CopyString();
}

const void* CopyString(CFAllocatorRef theAllocator, const void* theString)
{
    return CFStringCreateCopy(theAllocator, static_cast<CFStringRef>(theString));
}

} // namespace

const Host::TypeOperations Host::kSetType = {
    Host::kSetTypeID, "CFSet", Host::Delete<__CFSet>, EqualSets, HashSet, DescribeSet, nullptr};

const CFSetCallBacks kCFTypeSetCallBacks = {
    0, Host::RetainObject, Host::ReleaseObject, CFCopyDescription, CFEqual, CFHash};
const CFSetCallBacks kCFCopyStringSetCallBacks = {0,       CopyString, Host::ReleaseObject, CFCopyDescription,
                                                  CFEqual, CFHash};

__CFSet::~__CFSet()
{
    for (const void* theValue : mMembers) {
        Host::ReleaseValue(mCallBacks, theValue);
    }
}

CFTypeID CFSetGetTypeID()
{
    return Host::kSetTypeID;
}

// Making sets

CFSetRef CFSetCreate(CFAllocatorRef, const void** inValues, CFIndex inCount,
                     const CFSetCallBacks* inCallBacks)
{
    if (inCount > 0 && inValues == nullptr) {
        Host::Stop(__func__, "the values are NULL");
    }
    return Host::NothingWithoutMemory([=]() -> CFSetRef {
        Host::NewObject<__CFSet> theSet(CallBacksOrPointers(inCallBacks), false);
        for (CFIndex theIndex = 0; theIndex < inCount; ++theIndex) {
            AddNewMember(theSet.Get(), inValues[theIndex]);
        }
        return theSet.Release();
    });
}

CFSetRef CFSetCreateCopy(CFAllocatorRef, CFSetRef inSet)
{
    return CopySet(RequireSet(inSet, __func__), false);
}

CFMutableSetRef CFSetCreateMutable(CFAllocatorRef, CFIndex, const CFSetCallBacks* inCallBacks)
{
    return Host::NothingWithoutMemory([=] { return new __CFSet(CallBacksOrPointers(inCallBacks), true); });
}

CFMutableSetRef CFSetCreateMutableCopy(CFAllocatorRef, CFIndex, CFSetRef inSet)
{
    return CopySet(RequireSet(inSet, __func__), true);
}

// Reading

CFIndex CFSetGetCount(CFSetRef inSet)
{
    return RequireSet(inSet, __func__)->GetCount();
}

CFIndex CFSetGetCountOfValue(CFSetRef inSet, const void* inValue)
{
    return CFSetContainsValue(inSet, inValue) ? 1 : 0;
}

Boolean CFSetContainsValue(CFSetRef inSet, const void* inValue)
{
    return CFSetGetValueIfPresent(inSet, inValue, nullptr);
}

const void* CFSetGetValue(CFSetRef inSet, const void* inValue)
{
    const void* theValue = nullptr;
    CFSetGetValueIfPresent(inSet, inValue, &theValue);
    return theValue;
}

Boolean CFSetGetValueIfPresent(CFSetRef inSet, const void* inCandidate, const void** outValue)
{
    const auto theFound = Find(RequireSet(inSet, __func__), inCandidate);
    if (theFound == inSet->mMembers.end()) {
        return false;
    }
    if (outValue != nullptr) {
        *outValue = *theFound;
    }
    return true;
}

void CFSetGetValues(CFSetRef inSet, const void** outValues)
{
    const Members& theMembers = RequireSet(inSet, __func__)->mMembers;
    std::copy(theMembers.begin(), theMembers.end(), outValues);
}

void CFSetApplyFunction(CFSetRef inSet, CFSetApplierFunction inFunction, void* inContext)
{
    for (const void* theValue : RequireSet(inSet, __func__)->mMembers) {
        inFunction(theValue, inContext);
    }
}

// Changing

void CFSetAddValue(CFMutableSetRef inSet, const void* inValue)
{
    RequireMutableSet(inSet, __func__);
    Host::NothingWithoutMemory([=] { AddNewMember(inSet, inValue); });
}

void CFSetReplaceValue(CFMutableSetRef inSet, const void* inValue)
{
    const auto theFound = Find(RequireMutableSet(inSet, __func__), inValue);
    if (theFound != inSet->mMembers.end()) {
        ReplaceMember(inSet, theFound, inValue);
    }
}

void CFSetSetValue(CFMutableSetRef inSet, const void* inValue)
{
    RequireMutableSet(inSet, __func__);
    Host::NothingWithoutMemory([=] {
        const auto theFound = Find(inSet, inValue);
        if (theFound == inSet->mMembers.end()) {
            AddMember(inSet, inValue);
        } else {
            ReplaceMember(inSet, theFound, inValue);
        }
    });
}

void CFSetRemoveValue(CFMutableSetRef inSet, const void* inValue)
{
    const auto theFound = Find(RequireMutableSet(inSet, __func__), inValue);
    if (theFound != inSet->mMembers.end()) {
        RemoveMember(inSet, theFound);
    }
}

void CFSetRemoveAllValues(CFMutableSetRef inSet)
{
    RequireMutableSet(inSet, __func__);
    while (!inSet->mMembers.empty()) {
        RemoveMember(inSet, inSet->mMembers.begin());
    }
}
