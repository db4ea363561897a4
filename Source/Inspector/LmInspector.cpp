// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmInspector.h"

#include "LmConveniences.h"
#include "LmInspectorDoor.h"

#include <CoreFoundation/CoreFoundation.h>

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <utility>

namespace {

constexpr std::size_t kShownChanges = 40;

const char kHelp[] =
    "objects                 all objects, by window\n"
    "keys OBJECT             the keys of an object with their values, and what they are bound to\n"
    "bound OBJECT            the links of an object: bindings, dependencies, observers\n"
    "why OBJECT.KEY          the last change of a key, and what led to it\n"
    "changes                 the last changes with their causes\n"
    "set OBJECT.KEY VALUE    sets a key, as a value of the type that it has\n"
    "help                    these lines\n";

std::unique_ptr<LmLiveSurvey>& TheSurvey()
{
    static std::unique_ptr<LmLiveSurvey> sSurvey;
    return sSurvey;
}

std::shared_ptr<LmInspectorDoor>& TheDoor()
{
    static std::shared_ptr<LmInspectorDoor> sDoor;
    return sDoor;
}

// A question that is being answered. What it sets may want to end the inspector, which waits for the answer.
class [[nodiscard]] Asking
{
public:
    Asking() { ++sDepth; }
    ~Asking()
    {
        if (--sDepth == 0 && std::exchange(sHasToEnd, false)) {
            LmEndInspector();
        }
    }
    Asking(const Asking&) = delete;
    Asking& operator=(const Asking&) = delete;

    // Whether the end has to wait.
    static bool Defer()
    {
        sHasToEnd = sHasToEnd || sDepth > 0;
        return sDepth > 0;
    }

private:
    static inline int sDepth = 0;
    static inline bool sHasToEnd = false;
};

// The window belongs to the library of the desktop; where that is not loaded, there is none.
void TellDesktop(CFStringRef theFunction)
{
    const CFBundleRef theProgram = CFBundleGetMainBundle();
    void* const theFound =
        theProgram != nullptr ? CFBundleGetFunctionPointerForName(theProgram, theFunction) : nullptr;
    if (theFound != nullptr) {
        reinterpret_cast<void (*)()>(theFound)();
    }
}

std::string Unknown(const std::string& theName)
{
    return "There is no " + theName + ", or more than one; \"objects\" lists them.\n";
}

// ---- Answers

std::string SayObjects(LmLiveSurvey& theSurvey)
{
    std::string theText;
    for (const LmSurveyedGroup& theGroup : theSurvey.FindGroups()) {
        theText += theGroup.theTitle + "\n";
        for (const LmSurveyedObject& theObject : theGroup.theObjects) {
            theText += "    #" + std::to_string(theObject.theNumber) + " " + theObject.theName + " (" +
                       theObject.theClass + ")\n";
        }
    }
    return theText.empty() ? "There are no objects.\n" : theText;
}

std::string SayKeys(LmLiveSurvey& theSurvey, const std::string& theName)
{
    const std::uint64_t theObject = theSurvey.FindByName(theName);
    if (theObject == 0) {
        return Unknown(theName);
    }
    std::string theText;
    for (const LmSurveyedKey& theKey : theSurvey.FindKeys(theObject)) {
        theText += theKey.theKey + " = " + theKey.theValue + " (" + theKey.theType + ")\n";
        for (const std::string& theBinding : theKey.theBindings) {
            theText += "    " + theBinding + "\n";
        }
    }
    return theText.empty() ? theName + " has no keys.\n" : theText;
}

std::string SayLink(LmLiveSurvey& theSurvey, const LmSurveyedLink& theLink)
{
    const std::string theOther = theSurvey.FindObject(theLink.theOther).theName + "." + theLink.theOtherKey;
    const std::string theObject = theSurvey.FindObject(theLink.theObject).theName;
    switch (theLink.theKind) {
    case LmLinkKind::kBinding:
        return theObject + "." + theLink.theKey + " is bound to " + theOther +
               (theLink.theTransform.empty() ? "" : " through " + theLink.theTransform) + "\n";
    case LmLinkKind::kDependency:
        return theObject + "." + theLink.theKey + " depends on " + theOther + "\n";
    case LmLinkKind::kObserver:
        break;
    }
    return theObject + " observes " + theOther + "\n";
}

std::string SayLinks(LmLiveSurvey& theSurvey, const std::string& theName)
{
    const std::uint64_t theObject = theSurvey.FindByName(theName);
    if (theObject == 0) {
        return Unknown(theName);
    }
    std::string theText;
    for (const LmSurveyedLink& theLink : theSurvey.FindLinks(theObject)) {
        theText += SayLink(theSurvey, theLink);
    }
    return theText.empty() ? theName + " is bound to nothing.\n" : theText;
}

std::string SayChanges(LmLiveSurvey& theSurvey)
{
    std::string theText;
    for (const LmSurveyedChange& theChange : theSurvey.FindChanges(kShownChanges)) {
        theText += std::string(2 * theChange.theDepth, ' ') + theChange.theText + "\n";
    }
    return theText.empty() ? "Nothing has happened.\n" : theText;
}

// An object and its key. Dots may be in both, so that each dot may be the one between them.
struct Place
{
    std::uint64_t theObject = 0;
    std::string theKey;
};

Place FindPlace(LmLiveSurvey& theSurvey, const std::string& theText)
{
    for (std::size_t theDot = theText.find('.'); theDot != std::string::npos;
         theDot = theText.find('.', theDot + 1)) {
        const std::uint64_t theObject = theSurvey.FindByName(theText.substr(0, theDot));
        const std::string theKey = theText.substr(theDot + 1);
        for (const LmSurveyedKey& theKnown : theSurvey.FindKeys(theObject)) {
            if (theKnown.theKey == theKey) {
                return {theObject, theKey};
            }
        }
    }
    return {};
}

std::string SayWhy(LmLiveSurvey& theSurvey, const std::string& theName)
{
    const Place thePlace = FindPlace(theSurvey, theName);
    if (thePlace.theObject == 0) {
        return Unknown(theName);
    }
    std::string theText;
    for (const std::string& theStep : theSurvey.FindReasons(thePlace.theObject, thePlace.theKey)) {
        theText += theStep + "\n";
    }
    return theText.empty() ? theName + " has not changed.\n" : theText;
}

// Blanks may be in names and in values, so that each blank may be the one between them.
std::string Set(LmLiveSurvey& theSurvey, const std::string& theText)
{
    for (std::size_t theBlank = theText.find(' '); theBlank != std::string::npos;
         theBlank = theText.find(' ', theBlank + 1)) {
        const std::string theName = theText.substr(0, theBlank);
        const Place thePlace = FindPlace(theSurvey, theName);
        if (thePlace.theObject != 0) {
            return theSurvey.SetValue(thePlace.theObject, thePlace.theKey, theText.substr(theBlank + 1))
                       ? theName + " is set.\n"
                       : theName + " takes no such value.\n";
        }
    }
    return Unknown(theText);
}

std::string Answer(LmLiveSurvey& theSurvey, const std::string& theQuestion)
{
    const std::size_t theBlank = theQuestion.find(' ');
    const std::string theWord = theQuestion.substr(0, theBlank);
    const std::string theRest =
        theBlank != std::string::npos ? theQuestion.substr(theBlank + 1) : std::string();
    using Asked = std::string (*)(LmLiveSurvey&, const std::string&);
    static constexpr std::pair<const char*, Asked> kQuestions[] = {
        {"keys", SayKeys}, {"bound", SayLinks}, {"why", SayWhy}, {"set", Set}};
    for (const auto& [theName, theAnswer] : kQuestions) {
        if (theWord == theName && !theRest.empty()) {
            return theAnswer(theSurvey, theRest);
        }
    }
    if (theQuestion == "objects") {
        return SayObjects(theSurvey);
    }
    return theQuestion == "changes" ? SayChanges(theSurvey) : kHelp;
}

// With the library loaded, the environment alone allows it.
struct FromEnvironment
{
    FromEnvironment()
    {
        const char* const theText = std::getenv("LM_INSPECTOR");
        if (theText != nullptr && std::strcmp(theText, "1") == 0) {
            LmAllowInspector();
            TheDoor() = LmInspectorDoor::Open();
        }
    }
};

const FromEnvironment kFromEnvironment;

} // namespace

void LmAllowInspector()
{
    if (TheSurvey() != nullptr) {
        return;
    }
    try {
        TheSurvey() = std::make_unique<LmLiveSurvey>();
    } catch (const std::bad_alloc&) {
        return;
    }
    TellDesktop(CFSTR("HostAllowInspector"));
}

void LmEndInspector()
{
    if (TheSurvey() != nullptr && !Asking::Defer()) {
        TheDoor().reset();
        TellDesktop(CFSTR("HostEndInspector"));
        TheSurvey().reset();
    }
}

LmLiveSurvey* LmGetLiveSurvey()
{
    return TheSurvey().get();
}

LmString LmAskInspector(const LmString& theQuestion)
{
    if (TheSurvey() == nullptr) {
        return "The inspector is not allowed.\n";
    }
    const Asking theAsking;
    try {
        return LmMakeString(Answer(*TheSurvey(), LmGetStdString(theQuestion)));
    } catch (const std::bad_alloc&) {
        return "There is not enough memory for the answer.\n";
    }
}
