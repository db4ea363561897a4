// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Survey_h
#define Survey_h

// The objects of a journal and their keys, so that a person can name them.

#include "Entry.h"
#include "Journal.h"

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace Inspect {

// A key of an object.
struct Target
{
    Object theObject; // under its last name
    std::string theKey;
    std::string theProblem; // why there is none; empty when there is
};

class Survey
{
public:
    void Take(const Entry& theEntry);

    // What theName stands for: an object's name, its class or "#" and its number, a dot, and a key. Dots may
    // be in each. When that is nothing, or more than one, theProblem names what it could have been.
    Target Find(const std::string& theName) const;

    // How often a key got another value.
    std::uint64_t CountMoves(const Target& theTarget) const;

private:
    struct Known
    {
        Object theObject;
        std::set<std::string> theNames;               // all that it had
        std::map<std::string, std::uint64_t> theKeys; // each with how often it moved
    };
    enum class Way : std::uint8_t
    {
        ByNumber,
        ByName,
        ByClass
    };

    void Meet(const Object& theObject, const std::string& theKey, bool hasMoved);
    std::vector<Target> FindAll(const std::string& theName, Way theWay) const;
    std::string SayNearest(const std::string& theName) const;

    std::map<std::uint64_t, Known> mObjects;
};

// Whether theEntry says that a key has another value now.
bool IsMove(const Entry& theEntry);

// Reads all of theJournal, and goes back to its beginning.
Survey MakeSurvey(Journal& theJournal);

} // namespace Inspect

#endif
