// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmLiveSurvey_h
#define LmLiveSurvey_h

// What there is in a running program, and what has just happened in it, for a window or a text that shows it.
// LmInspector.h says how one gets it; the answers of LmAskInspector are made of it.
//
// Nothing that is asked here is reported to anybody, and nothing in the program is other afterwards; but for
// SetValue. The values are those of the moment. What of an object has not happened since the inspector was
// allowed is not known: a key that was never set, observed or bound is not listed.
//
// Main thread only. What happens on other threads is not followed.

#include "LmExport.h"

#include <Carbon/Carbon.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class LmLiveRecord;

// A store, a binding object or an observer.
struct LmSurveyedObject
{
    std::uint64_t theNumber = 0; // of no other object, now or later; 0 stands for none
    std::string theName;
    std::string theClass;
};

// The objects of a window, or of one kind.
struct LmSurveyedGroup
{
    std::string theTitle; // "Window Thermostat", "Menus", "Preferences", "Models", "Observers"
    std::vector<LmSurveyedObject> theObjects;
};

// A key with its value.
struct LmSurveyedKey
{
    std::string theKey;
    std::string theValue;    // 20.5, "Kitchen", (10, 20), not valid
    std::string theEditText; // as it is typed
    std::string theType;     // "double"
    bool isEditable = false;
    std::vector<std::string> theBindings; // "bound to thermostat.target through ..."
};

// How a link joins two keys.
enum class LmLinkKind : std::uint8_t
{
    kBinding,    // the key takes the value of the other one
    kDependency, // the key is told when the other one changes
    kObserver    // the object is told when the key of the other one changes; it has no key itself
};

// An arrow of the graph.
struct LmSurveyedLink
{
    LmLinkKind theKind = LmLinkKind::kBinding;
    std::uint64_t theObject = 0; // where the value arrives
    std::string theKey;
    std::uint64_t theOther = 0; // where it comes from
    std::string theOtherKey;
    std::string theTransform; // its class; empty for none
};

// Something that has happened.
struct LmSurveyedChange
{
    std::uint64_t theNumber = 0;
    std::uint64_t theCause = 0;  // the number of the change that led to it; 0 for none
    std::size_t theDepth = 0;    // how many changes led to it, one to the other
    std::uint64_t theObject = 0; // whom it is about; 0 for nobody
    std::string theKey;
    std::string theText; // "thermostat.target: 20 -> 21"
    bool isMove = false; // whether theKey has another value since
};

class LM_EXPORT LmLiveSurvey
{
public:
    // Windows first, in the order in which they were met.
    std::vector<LmSurveyedGroup> FindGroups() const;

    // One object, with the number 0 when it is there no more.
    LmSurveyedObject FindObject(std::uint64_t theObject) const;

    // The keys of an object by their names; none when it is there no more.
    std::vector<LmSurveyedKey> FindKeys(std::uint64_t theObject) const;

    // The links that an object is an end of; all of them for 0.
    std::vector<LmSurveyedLink> FindLinks(std::uint64_t theObject) const;

    // What has happened last, at most theCount, the oldest first. Only what moved a key, what kept one from
    // moving, and what a person did.
    std::vector<LmSurveyedChange> FindChanges(std::size_t theCount) const;

    // The last move of a key, and what led to it, one step in front of the other, back to a person or to the
    // program itself; empty when there was none.
    std::vector<std::string> FindReasons(std::uint64_t theObject, const std::string& theKey) const;

    // Sets a key to what was typed, by SetKeyPathValue, as a value of the type that it has. False when it is
    // none, or the object is there no more; then nothing is set.
    bool SetValue(std::uint64_t theObject, const std::string& theKey, const std::string& theText);

    // The object with that name, class or "#" and number; 0 for none, or for several.
    std::uint64_t FindByName(const std::string& theName) const;

    // The binding of a control, of a window; 0 when there is none.
    std::uint64_t FindByControl(ControlRef theControl) const;
    std::uint64_t FindByWindow(WindowRef theWindow) const;

    // The control of a binding; null for any other object.
    ControlRef FindControl(std::uint64_t theObject) const;

    // Grows with everything that happens.
    std::uint64_t CountEntries() const;

    LmLiveSurvey();
    ~LmLiveSurvey();
    LmLiveSurvey(const LmLiveSurvey&) = delete;
    LmLiveSurvey& operator=(const LmLiveSurvey&) = delete;

private:
    std::unique_ptr<LmLiveRecord> mRecord;
};

#endif
