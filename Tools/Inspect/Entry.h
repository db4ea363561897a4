// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Entry_h
#define Entry_h

// One entry of a journal, as it was read. Documentation/Journal.md says what each kind and each field means.

#include "Value.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Inspect {

enum class What : std::uint8_t
{
    Unknown,
    Begin,
    End,
    Lost,
    Module,
    Made,
    Named,
    Destroyed,
    Observe,
    Unobserve,
    Depend,
    Undepend,
    Bind,
    Unbind,
    Changing,
    Changed,
    Equal,
    Refused,
    Told,
    Notify,
    Transform,
    Update,
    Action,
    Event,
    Read,
    Write,
    Flush,
    Diagnostic
};

// The kind that a journal calls so; Unknown for a name that this version of the format does not have.
What WhatOf(std::string_view theName);
std::string_view NameOf(What theWhat);
// Every name, in the order of the kinds.
std::vector<std::string_view> AllNames();

struct Object
{
    std::uint64_t theID = 0; // 0: there is none
    std::string theClass;
    std::string theName;
};

struct TransformRef
{
    std::uint64_t theID = 0; // 0: there is none
    std::string theClass;
};

struct Module
{
    std::string thePath;
    std::uint64_t theBase = 0;
    std::uint64_t theEnd = 0;
    bool isFixed = false;
    std::string theBuild;
};

// What a kind of entry does not have is empty or 0. An entry is used again for the next line, so that reading
// a long journal allocates little.
struct Entry
{
    std::uint64_t theNumber = 0;
    std::uint64_t theCause = 0; // 0: nothing led to it
    std::uint64_t theTime = 0;  // nanoseconds
    std::uint32_t theThread = 1;
    What theWhat = What::Unknown;

    Object theObject;
    std::string theKey;
    Object theOther;         // "from", "observer"
    std::string theOtherKey; // "fromKey", "dependent", "of"

    Value theOld;  // "was"; "in" of a transform
    Value theNew;  // "is" of what has changed, was told or was read; "out" of a transform
    Value theGoal; // "to"

    std::uint64_t theRecord = 0;
    std::uint64_t theChanging = 0;
    TransformRef theTransform;
    std::vector<std::uint64_t> theCallers;

    std::string theText;       // "role", "phase", "event", "message", "library", "journal"
    std::string theDetail;     // "class" of an event; "file" of a diagnostic; "debug"; "started"
    std::uint64_t theCode = 0; // "kind" of an event; "line"; "count"; "version"; "lost"
    std::optional<std::pair<double, double>> thePlace;
    std::optional<std::uint64_t> theKeyCode;
    std::string theTitle;      // "title" of an action
    bool isDone = false;       // "done"; the phase "changed"
    std::uint64_t theFile = 0; // "file" of begin
    Module theModule;

    void Clear();
};

} // namespace Inspect

#endif
