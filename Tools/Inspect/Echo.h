// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Echo_h
#define Echo_h

// Where a key and what it stands for say different things. While the binding of a control, a window or a menu
// command copies what has changed there into its keys, nothing is written back. A key that is set anew in
// that time has its new value, and the control still shows its own, until it changes again.

#include "Causes.h"

#include <cstdint>
#include <map>
#include <string>
#include <utility>

namespace Inspect {

class Echo
{
public:
    struct Difference
    {
        Entry theChange; // that was not written
        Value theShown;  // what the control shows
        Entry theEvent;  // that was being copied
        bool isIt = false;
    };

    // theCauses has taken the entry already; nobody else marks its steps.
    void Take(Causes& theCauses);

    // What is different at this time.
    const Difference* Find(std::uint64_t theObject, const std::string& theKey) const;
    const std::map<std::pair<std::uint64_t, std::string>, Difference>& GetAll() const { return mKeys; }
    void Forget(std::uint64_t theObject);

private:
    void Settle(const Entry& theEvent);

    std::map<std::pair<std::uint64_t, std::string>, Difference> mKeys;
};

// "control", "window" or "menu command": what an object of this class stands for.
std::string WhatItStandsFor(const Object& theObject);

} // namespace Inspect

#endif
