// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Lint_h
#define Lint_h

// `lminspect lint`: what is probably wrong in the program that a journal is of.

#include "Callers.h"
#include "Causes.h"
#include "Echo.h"
#include "Journal.h"

#include <cstdint>
#include <iosfwd>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Inspect {

// What is looked for. Each has a name for scripts and a page that says what to do.
enum class Rule : std::uint8_t
{
    NeverSet,        // a key is bound to one that never had a value
    UnknownKey,      // a key of a control, a window or a menu command that they do not have
    NeverFollows,    // a second key of one object on one source
    FractionDropped, // a set changed nothing, since numbers are compared as integers
    ShownOtherwise,  // a control shows something else than its key says
    DeadSource,      // a one-way binding outlived what it follows
    SharedTransform, // one transform was given to two bindings
    LongRound,       // a change came back to its key more than three hops later
    SetTwice,        // a round set the same key twice
    ObserverLeft,    // an observer outlived all that it observed
    NotFlushed       // a preference was set, and never written to its file
};

std::string_view NameOf(Rule theRule);
// From the root of the project.
std::string_view PageOf(Rule theRule);

struct Finding
{
    Rule theRule = Rule::NeverSet;
    std::uint64_t theEntry = 0; // where it was seen first
    Object theObject;
    std::string theKey;
    std::string theSentence;
    std::string theCaller;
    std::uint64_t theCount = 1;
};

class Lint
{
public:
    void Take(const Entry& theEntry);
    // What is only known at the end. isWhole: the journal holds the beginning of the program; isEnded: and
    // its end.
    void Finish(bool isWhole, bool isEnded);
    // In the order of the entries.
    std::vector<Finding> GetFindings() const;

private:
    using Key = std::pair<std::uint64_t, std::string>;
    struct Record
    {
        Entry theBinding;
        bool isOneWay = true;
        bool hasDeadSource = false;
    };
    struct Setting
    {
        std::uint64_t theNumber = 0; // of the entry; 0 is none
        Value theValue;
    };
    struct Observer
    {
        Entry theLast; // the last observation that ended with its store
        std::uint64_t theObservations = 0;
        bool hasLost = false;
    };

    void Add(Rule theRule, const Entry& theEntry, const Object& theObject, const std::string& theKey,
             const std::string& theSentence);
    bool IsWithinDestruction(std::uint64_t theObject) const;

    void NoteValues(const Entry& theEntry);
    void TakeBinding(const Entry& theEntry);
    void TakeUnbinding(const Entry& theEntry);
    void TakeDestruction(const Entry& theEntry);
    void TakeChange(const Entry& theEntry);
    void TakeEqual(const Entry& theEntry);
    void TakeObservation(const Entry& theEntry);
    void CheckKey(const Entry& theEntry);
    void CheckSource(const Entry& theBinding);
    void CheckNeighbours(const Entry& theEntry);
    std::size_t FindRound() const;
    void CheckRound();
    void CheckTwice(const Entry& theEntry);
    void CheckNested(const Entry& theEntry, const Setting& theInner);
    bool IsAmongCauses(std::uint64_t theNumber) const;
    void CheckShown(std::uint64_t theObject);
    std::vector<std::string> KeysOf(std::uint64_t theObject) const;

    Causes mCauses;
    Callers mCallers;
    Echo mEcho;
    std::map<std::uint64_t, Record> mRecords; // those that exist, by their numbers
    std::vector<Entry> mNeverSet;             // bindings that were removed before their source had a value
    std::set<Key> mValues;                    // keys that had a valid value
    std::map<Key, Setting> mRound; // keys that were set since the outermost change, as they were last
    std::uint64_t mLastChange = 0;
    std::map<std::uint64_t, Observer> mObservers; // those that are nothing else
    std::set<std::uint64_t> mStores;              // binding objects too, which observe what they are bound to
    std::map<Key, Entry> mUnwritten;              // preferences
    std::map<std::pair<Rule, Key>, Finding> mFindings;
};

int RunLint(Journal& theJournal, std::ostream& theOutput, std::ostream& theErrors);

} // namespace Inspect

#endif
