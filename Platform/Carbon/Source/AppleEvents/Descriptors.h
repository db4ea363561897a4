// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef AppleEvents_Descriptors_h
#define AppleEvents_Descriptors_h

#include "Base/Guarded.h"

#include <Carbon/Carbon.h>
#include <memory>
#include <string>
#include <vector>

namespace Host {

// What an AEDesc stands for: a value, copied with all that is in it.
struct Descriptor
{
    enum class Form
    {
        kData,
        kList,
        kRecord,
        kEvent, // a record with attributes
    };

    DescType theType = typeNull;
    Form theForm = Form::kData;
    AEKeyword theKeyword = typeWildCard; // in a record
    bool theWasRead = false;             // a parameter that a handler has asked for
    std::string theBytes;                // of data
    std::vector<Descriptor> theItems;    // of everything else
    std::vector<Descriptor> theAttributes;
};
using SharedDescriptor = std::shared_ptr<Descriptor>;

inline bool IsList(const Descriptor& theDescriptor)
{
    return theDescriptor.theForm != Descriptor::Form::kData;
}

inline bool IsRecord(const Descriptor& theDescriptor)
{
    return theDescriptor.theForm == Descriptor::Form::kRecord ||
           theDescriptor.theForm == Descriptor::Form::kEvent;
}

// Data as the calls get it: paramErr for a negative size, and for none where there should be bytes.
OSErr MakeDescriptor(DescType theType, const void* theBytes, Size theSize, Descriptor* theResult);

// What a program's descriptor stands for, under the type that the program says. A null one is data of
// nothing. Throws std::bad_alloc.
OSErr FindDescriptor(const AEDesc* theReference, SharedDescriptor* theResult);

// Makes a descriptor of the program's; what was in it is not given back. Throws std::bad_alloc.
void GiveDescriptor(Descriptor&& theContent, AEDesc* theResult);

// The item of a keyword; null for none.
Descriptor* FindKeyword(std::vector<Descriptor>& theItems, AEKeyword theKeyword);

// Puts an item in place of the one of its keyword, or behind the last one. memFullErr when there would be too
// many levels.
OSErr PutKeyword(std::vector<Descriptor>& theItems, AEKeyword theKeyword, Descriptor&& theItem);

// An item for a list or record. memFullErr when there would be too many levels.
OSErr CheckDepth(const Descriptor& theItem);

// Copies an item into a program's memory, as a type. The other results may be null.
struct Destination
{
    DescType* theActualType;
    void* theBytes;
    Size theRoom;
    Size* theActualSize;
};
OSErr CopyOut(const Descriptor& theItem, DescType theType, const Destination& theDestination);

// Runs the body of a call that needs memory.
template <class Body>
OSErr AnswerOf(const Body& theBody)
{
    return static_cast<OSErr>(Guarded([&]() -> OSStatus { return theBody(); }));
}

// Runs the body of a call that makes a descriptor: it fills one and answers a status. The result is null
// after a failure.
template <class Body>
OSErr ResultOf(AEDesc* theResult, const Body& theBody)
{
    if (theResult == nullptr) {
        return paramErr;
    }
    const OSErr theStatus = AnswerOf([&] {
        Descriptor theContent;
        const OSErr theAnswer = theBody(theContent);
        if (theAnswer == noErr) {
            GiveDescriptor(std::move(theContent), theResult);
        }
        return theAnswer;
    });
    if (theStatus != noErr) {
        AEInitializeDesc(theResult);
    }
    return theStatus;
}

} // namespace Host

#endif
