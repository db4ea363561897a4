// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Graph_h
#define Graph_h

// `lminspect graph`: objects as boxes with their keys and values, bindings as arrows with their transforms,
// dependencies and observers dashed.

#include "Entry.h"
#include "Journal.h"

#include <cstdint>
#include <iosfwd>
#include <map>
#include <set>
#include <string>
#include <tuple>

namespace Inspect {

// How things stand at some entry.
class Graph
{
public:
    struct Box
    {
        Object theObject;
        std::map<std::string, Value> theKeys;
    };
    struct Arrow
    {
        std::uint64_t theTo = 0;
        std::string theToKey;
        std::uint64_t theFrom = 0;
        std::string theFromKey;
        std::string theTransform;
    };
    // A store, a key, and an observer or the dependent key.
    using Observation = std::tuple<std::uint64_t, std::string, std::uint64_t>;
    using Dependency = std::tuple<std::uint64_t, std::string, std::string>;

    void Take(const Entry& theEntry);
    // In Graphviz's language.
    void Write(std::ostream& theOutput) const;

    // The objects that there are, by their numbers; the bindings, by the numbers of their records.
    const std::map<std::uint64_t, Box>& GetBoxes() const { return mBoxes; }
    const std::map<std::uint64_t, Arrow>& GetArrows() const { return mArrows; }
    const std::set<Observation>& GetObservations() const { return mObservations; }
    const std::set<Dependency>& GetDependencies() const { return mDependencies; }

private:
    Box* Meet(const Object& theObject);
    void TakeKey(const Entry& theEntry);
    void TakeLink(const Entry& theEntry);
    void Forget(std::uint64_t theObject);
    void WriteBox(std::uint64_t theID, const Box& theBox, std::ostream& theOutput) const;
    void WriteArrows(std::ostream& theOutput) const;
    void WriteObservers(std::ostream& theOutput) const;
    bool IsBinding(std::uint64_t theObserver, std::uint64_t theStore, const std::string& theKey) const;
    std::string Place(std::uint64_t theObject, const std::string& theKey) const;

    std::map<std::uint64_t, Box> mBoxes;
    std::map<std::uint64_t, Arrow> mArrows; // by the numbers of their records
    std::set<Observation> mObservations;
    std::set<Dependency> mDependencies;
};

struct GraphOptions
{
    std::uint64_t theEntry = 0; // the last one that counts; 0: all
    bool isDot = false;         // Graphviz's language instead of a picture
};

int RunGraph(Journal& theJournal, const GraphOptions& theOptions, std::ostream& theOutput,
             std::ostream& theErrors);

} // namespace Inspect

#endif
