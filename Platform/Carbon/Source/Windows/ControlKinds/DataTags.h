// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ControlKinds_DataTags_h
#define ControlKinds_DataTags_h

#include "Windows/Control.h"

#include <cstring>

namespace Host {

// The entry of a tag in a kind's table, or what the kind's base has for it.
template <size_t kCount>
const ControlDataTag* FindIn(const ControlDataTag (&theTags)[kCount], ResType theTag,
                             const ControlDataTag* theInherited)
{
    for (const ControlDataTag& theEntry : theTags) {
        if (theEntry.theTag == theTag) {
            return &theEntry;
        }
    }
    return theInherited;
}

// Callers' buffers need not be aligned.
template <class Type>
void Put(void* theBuffer, const Type& theValue)
{
    std::memcpy(theBuffer, &theValue, sizeof theValue);
}

template <class Type>
Type Take(const void* theData)
{
    Type theValue;
    std::memcpy(&theValue, theData, sizeof theValue);
    return theValue;
}

// A tag whose data is a Boolean kept in a member.
template <class Kind, bool Kind::*kMember>
ControlDataTag FlagTag(ResType theTag)
{
    ControlDataTag theEntry = {theTag, sizeof(Boolean), nullptr, nullptr, nullptr};
    theEntry.theRead = [](const Control& theControl, void* theBuffer) {
        Put(theBuffer, static_cast<Boolean>(static_cast<const Kind&>(theControl).*kMember));
    };
    theEntry.theWrite = [](Control& theControl, const void* theData, size_t) {
        static_cast<Kind&>(theControl).*kMember = Take<Boolean>(theData) != 0;
        return OSErr{noErr};
    };
    return theEntry;
}

// A tag whose data is a plain value kept in a member of the same type.
template <class Kind, class Type, Type Kind::*kMember>
ControlDataTag NumberTag(ResType theTag)
{
    ControlDataTag theEntry = {theTag, sizeof(Type), nullptr, nullptr, nullptr};
    theEntry.theRead = [](const Control& theControl, void* theBuffer) {
        Put(theBuffer, static_cast<const Kind&>(theControl).*kMember);
    };
    theEntry.theWrite = [](Control& theControl, const void* theData, size_t) {
        static_cast<Kind&>(theControl).*kMember = Take<Type>(theData);
        return OSErr{noErr};
    };
    return theEntry;
}

// A tag whose data is a CFStringRef made from or put into a text; the functions' names say which.
template <class Kind, const Text& (Kind::*kGet)() const, void (Kind::*kSet)(const Text&)>
ControlDataTag StringTag(ResType theTag)
{
    ControlDataTag theEntry = {theTag, sizeof(CFStringRef), nullptr, nullptr, nullptr};
    theEntry.theRead = [](const Control& theControl, void* theBuffer) {
        Put(theBuffer, CreateString((static_cast<const Kind&>(theControl).*kGet)()));
    };
    theEntry.theWrite = [](Control& theControl, const void* theData, size_t) {
        const CFStringRef theString = Take<CFStringRef>(theData);
        if (theString == nullptr) {
            return OSErr{paramErr};
        }
        (static_cast<Kind&>(theControl).*kSet)(TextOf(theString));
        return OSErr{noErr};
    };
    return theEntry;
}

// The same as bytes in the encoding of the system.
template <class Kind, const Text& (Kind::*kGet)() const, void (Kind::*kSet)(const Text&)>
ControlDataTag BytesTag(ResType theTag)
{
    ControlDataTag theEntry = {theTag, ControlDataTag::kBytes, nullptr, nullptr, nullptr};
    theEntry.theReadBytes = [](const Control& theControl) {
        return BytesOf((static_cast<const Kind&>(theControl).*kGet)());
    };
    theEntry.theWrite = [](Control& theControl, const void* theData, size_t theSize) {
        (static_cast<Kind&>(theControl).*kSet)(TextOfBytes(theData, theSize));
        return OSErr{noErr};
    };
    return theEntry;
}

} // namespace Host

#endif
