// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Scene_h
#define Scene_h

// All that ever was in a journal: objects, keys and the wires between them, each with a number, and what each
// entry changes of it. So how things stood at any entry can be had by going forwards or backwards.

#include "Entry.h"
#include "Graph.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace Inspect {

class Scene
{
public:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
    // Names and keys are shown up to so many characters.
    static constexpr std::size_t kLongestName = 200;
    static constexpr std::size_t kLongestValue = 300;

    struct Thing
    {
        Object theObject; // as it was called last
        std::vector<std::size_t> theKeys;
        bool isThere = false;
    };
    struct Key
    {
        std::size_t theThing = 0;
        std::string theName;
        bool hasValue = false;
    };
    enum class Way : std::uint8_t
    {
        Binding,
        Dependency,
        Observation
    };
    // From what is followed to what follows. A key is kNone for the object as a whole.
    struct Wire
    {
        Way theWay = Way::Binding;
        std::size_t theFrom = 0;
        std::size_t theFromKey = kNone;
        std::size_t theTo = 0;
        std::size_t theToKey = kNone;
        std::string theTransform;
        std::string theBackTransform; // of the binding the other way
        bool isThere = false;
        bool isBackThere = false;
    };

    enum class What : std::uint8_t
    {
        Thing,
        Key,
        Wire,
        BackWire
    };
    // What changes. A key has theValue from then on, or none known when it is empty; the others are there or
    // not.
    struct Move
    {
        What theWhat = What::Key;
        std::size_t theIndex = 0;
        std::string theValue;
        bool isThere = false;
    };
    struct Step
    {
        std::size_t theThing = kNone;
        std::size_t theKey = kNone;
        std::size_t theWire = kNone; // along which something went
        bool isBack = false;
        std::vector<Move> theMoves;
    };

    // How things stood before the first entry that is taken.
    void Begin(const Graph& theGraph);
    Step Take(const Entry& theEntry);

    const std::vector<Thing>& GetThings() const { return mThings; }
    const std::vector<Key>& GetKeys() const { return mKeys; }
    const std::vector<Wire>& GetWires() const { return mWires; }
    // What was there before the first entry.
    const std::vector<Move>& GetBeginning() const { return mBeginning; }
    // What is bound observes its source; the binding says so already.
    bool IsImplied(const Wire& theWire) const;
    // kNone when there is none.
    std::size_t FindThing(std::uint64_t theID) const;
    std::size_t FindKey(std::size_t theThing, const std::string& theName) const;

private:
    using Ends = std::tuple<Way, std::size_t, std::size_t, std::size_t, std::size_t>;

    std::size_t NumberOf(const Object& theObject);
    std::size_t NumberOfKey(std::size_t theThing, const std::string& theName);
    std::size_t Meet(const Object& theObject, std::vector<Move>& theMoves);
    void Connect(Way theWay, const std::pair<std::size_t, std::size_t>& theFrom,
                 const std::pair<std::size_t, std::size_t>& theTo, Step& theStep);
    void Switch(bool isThere, Step& theStep);
    void TakeEnds(const Entry& theEntry, Step& theStep);
    void TakeValue(const Entry& theEntry, Step& theStep);
    void BeginLinks(const Graph& theGraph, Step& theStep);

    std::vector<Thing> mThings;
    std::vector<Key> mKeys;
    std::vector<Wire> mWires;
    std::vector<Move> mBeginning;
    std::map<std::uint64_t, std::size_t> mNumbers;
    std::map<std::pair<std::size_t, std::string>, std::size_t> mKeyNumbers;
    std::map<Ends, std::size_t> mWireNumbers;
    std::set<std::tuple<std::size_t, std::size_t, std::size_t>> mBound; // a source, its key, what is bound
};

} // namespace Inspect

#endif
