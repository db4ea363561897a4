// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Script.h"

#include <cmath>
#include <cstdio>

namespace Model {

Value Value::Number(Kind theKind, std::uint64_t theBits)
{
    Value theValue;
    theValue.theKind = theKind;
    theValue.theBits = theBits;
    return theValue;
}

Value Value::Double(double theDouble)
{
    Value theValue;
    theValue.theKind = Kind::Double;
    theValue.theDouble = theDouble;
    return theValue;
}

Value Value::String(Text theText)
{
    Value theValue;
    theValue.theKind = Kind::Text;
    theValue.theText = std::move(theText);
    return theValue;
}

Value Value::Geometry(Kind theKind, std::array<float, 4> theParts)
{
    Value theValue;
    theValue.theKind = theKind;
    theValue.theParts = theParts;
    return theValue;
}

int TextNumbers::NumberOf(const Text& theText)
{
    const auto [theFound, isNew] = mNumbers.emplace(theText.get(), static_cast<int>(mNumbers.size()) + 1);
    if (isNew) {
        mTexts.push_back(theText);
    }
    return theFound->second;
}

namespace {

template <typename Number>
std::string Print(const char* theFormat, Number theNumber)
{
    char theText[64];
    std::snprintf(theText, sizeof theText, theFormat, theNumber);
    return theText;
}

std::string DescribeDouble(double theDouble)
{
    return std::isnan(theDouble) ? "nan" : Print("%.17g", theDouble);
}

std::string DescribeText(const std::u16string& theText)
{
    std::string theDescription = "\"";
    for (const char16_t theUnit : theText) {
        const bool isPlain = theUnit >= u' ' && theUnit < 0x7F && theUnit != u'"' && theUnit != u'\\';
        if (isPlain) {
            theDescription += static_cast<char>(theUnit);
        } else {
            theDescription += Print("\\u%04X", static_cast<unsigned>(theUnit));
        }
    }
    return theDescription + "\"";
}

std::string DescribeParts(const Value& theValue)
{
    std::string theParts = "(";
    const std::size_t theCount = theValue.theKind == Kind::Rect ? 4 : 2;
    for (std::size_t theIndex = 0; theIndex < theCount; ++theIndex) {
        theParts += theIndex == 0 ? "" : ", ";
        theParts += DescribeDouble(static_cast<double>(theValue.theParts[theIndex]));
    }
    return theParts + ")";
}

const char* NameOf(Kind theKind)
{
    static const char* const kNames[] = {"invalid", "Boolean", "UInt32", "SInt32", "UInt64", "SInt64",
                                         "Double",  "Pointer", "Text",   "Point",  "Size",   "Rect"};
    return kNames[static_cast<int>(theKind)];
}

const char* NameOf(StepSort theSort)
{
    static const char* const kNames[] = {"IsNull",  "IsNotNull",  "IsAbove",  "IsBelow",
                                         "IsEqual", "IsNotEqual", "Absolute", "Add",
                                         "Scale",   "Negate",     "ToText",   "FromText"};
    return kNames[static_cast<int>(theSort)];
}

const char* NameOf(Verb theVerb)
{
    static const char* const kNames[] = {"Create",
                                         "Destroy",
                                         "GetKeyPathValue",
                                         "GetKeyValue",
                                         "SetKeyPathValue",
                                         "SetKeyValue",
                                         "HasKey",
                                         "Observe",
                                         "Ignore",
                                         "IsObserving",
                                         "AmObserving",
                                         "RemoveObservers",
                                         "StopObserving",
                                         "NotifyObservers",
                                         "MakeDependency",
                                         "BreakDependency",
                                         "IsDependent",
                                         "NotifyDependents",
                                         "Bind",
                                         "BindTo",
                                         "Unbind",
                                         "UnbindAll",
                                         "Apply",
                                         "Convert",
                                         "Compare",
                                         "Split",
                                         "Trace"};
    return kNames[static_cast<int>(theVerb)];
}

std::string DescribeStep(const Step& theStep, TextNumbers& theNumbers)
{
    std::string theName = NameOf(theStep.theSort);
    switch (theStep.theSort) {
    case StepSort::IsAbove:
    case StepSort::IsBelow:
        return theName + "(" + DescribeValue(theStep.theOperand, theNumbers) +
               (theStep.isInclusive ? ", inclusive)" : ")");
    case StepSort::IsEqual:
    case StepSort::IsNotEqual:
    case StepSort::Add:
        return theName + "(" + DescribeValue(theStep.theOperand, theNumbers) + ")";
    case StepSort::Scale:
        return theName + "(" + DescribeDouble(theStep.theFactor) + ")";
    default:
        return theName;
    }
}

std::string DescribeTransform(int theTransform)
{
    return theTransform == kNobody ? "none" : "transform " + std::to_string(theTransform);
}

std::string Quote(const std::string& theText)
{
    return "\"" + theText + "\"";
}

std::string DescribeReaction(const Script& theScript, const Reaction& theReaction, TextNumbers& theNumbers)
{
    std::string theText;
    if (theReaction.theMoment == Moment::Applying) {
        theText = DescribeTransform(theReaction.theActor) + ", when applied";
    } else {
        theText = DescribeObject(theScript, theReaction.theActor) +
                  (theReaction.theMoment == Moment::Changing ? ", told before" : ", told after");
        theText += theReaction.theKey.empty() ? "" : " of " + Quote(theReaction.theKey);
    }
    theText += ", " + std::to_string(theReaction.theTimes) + " times:\n";
    for (const Operation& theOperation : theReaction.theOperations) {
        theText += "        " + DescribeOperation(theScript, theOperation, theNumbers) + "\n";
    }
    return theText;
}

std::string DescribePlan(const ObjectPlan& thePlan)
{
    std::string theText = " at place " + std::to_string(thePlan.thePlace) + (thePlan.isLoud ? ", loud" : "") +
                          (thePlan.canReturn ? ", can return" : "");
    for (const std::string& theKey : thePlan.theUnbindable) {
        theText += ", refuses " + Quote(theKey);
    }
    return theText;
}

// What a script speaks of.
struct Mentioned
{
    explicit Mentioned(const Script& theScript)
    {
        for (const Operation& theOperation : theScript.theOperations) {
            Add(theOperation);
        }
        for (const Reaction& theReaction : theScript.theReactions) {
            const bool isTransform = theReaction.theMoment == Moment::Applying;
            (isTransform ? theTransforms : theObjects).insert(theReaction.theActor);
            for (const Operation& theOperation : theReaction.theOperations) {
                Add(theOperation);
            }
        }
        theObjects.erase(kNobody);
        theTransforms.erase(kNobody);
    }

    void Add(const Operation& theOperation)
    {
        theObjects.insert({theOperation.theObject, theOperation.theOther});
        theTransforms.insert({theOperation.theTransform, theOperation.theReverse});
    }

    std::set<Id> theObjects;
    std::set<int> theTransforms;
};

} // namespace

std::string DescribeValue(const Value& theValue, TextNumbers& theNumbers)
{
    std::string theName = NameOf(theValue.theKind);
    switch (theValue.theKind) {
    case Kind::Invalid:
        return theName;
    case Kind::Boolean:
        return theValue.theBits != 0 ? "true" : "false";
    case Kind::UInt32:
    case Kind::UInt64:
        return theName + " " + std::to_string(theValue.theBits);
    case Kind::SInt32:
    case Kind::SInt64:
        return theName + " " + std::to_string(static_cast<std::int64_t>(theValue.theBits));
    case Kind::Double:
        return theName + " " + DescribeDouble(theValue.theDouble);
    case Kind::Pointer:
        return theName + Print(" 0x%llX", static_cast<unsigned long long>(theValue.theBits));
    case Kind::Text:
        return theValue.theText ? DescribeText(*theValue.theText) + " #" +
                                      std::to_string(theNumbers.NumberOf(theValue.theText))
                                : "null string";
    default:
        return theName + " " + DescribeParts(theValue);
    }
}

std::string DescribeObject(const Script& theScript, Id theObject)
{
    static const char* const kNames[] = {"store ", "observer ", "binding ", "bindable ", "bindings "};
    if (theObject == kNobody) {
        return "nobody";
    }
    const ObjectSort theSort = theScript.theObjects[static_cast<std::size_t>(theObject)].theSort;
    return kNames[static_cast<int>(theSort)] + std::to_string(theObject);
}

std::string DescribeOperation(const Script& theScript, const Operation& theOperation, TextNumbers& theNumbers)
{
    std::string theName = NameOf(theOperation.theVerb);
    const auto theObject = [&] { return DescribeObject(theScript, theOperation.theObject); };
    const auto theOther = [&] { return DescribeObject(theScript, theOperation.theOther); };
    const auto theValue = [&] { return DescribeValue(theOperation.theValue, theNumbers); };
    const std::string theKey = Quote(theOperation.theKey);
    const std::string theOtherKey = Quote(theOperation.theOtherKey);
    switch (theOperation.theVerb) {
    case Verb::Create:
    case Verb::Destroy:
    case Verb::RemoveObservers:
    case Verb::StopObserving:
    case Verb::UnbindAll:
        return theName + " " + theObject();
    case Verb::Get:
    case Verb::GetKey:
    case Verb::Has:
    case Verb::NotifyDependents:
        return theObject() + ": " + theName + " " + theKey;
    case Verb::Set:
    case Verb::SetKey:
        return theObject() + ": " + theName + " " + theKey + ", " + theValue();
    case Verb::Observe:
    case Verb::Ignore:
    case Verb::IsObserving:
    case Verb::AmObserving:
    case Verb::Unbind:
        return theObject() + ": " + theName + " " + theKey + ", " + theOther();
    case Verb::Notify:
        return theObject() + ": " + theName + " " + theKey + (theOperation.isOn ? ", changed" : ", changing");
    case Verb::MakeDependency:
    case Verb::BreakDependency:
    case Verb::IsDependent:
        return theObject() + ": " + theName + " " + theKey + ", " + theOtherKey;
    case Verb::Bind:
        return theObject() + ": " + theName + " " + theKey + ", " + theOther() + ", " + theOtherKey + ", " +
               DescribeTransform(theOperation.theTransform) + ", " +
               DescribeTransform(theOperation.theReverse);
    case Verb::BindTo:
        return theObject() + ": " + theName + " " + theKey + ", " + theOther() + ", " + theOtherKey + ", " +
               DescribeTransform(theOperation.theTransform);
    case Verb::Apply:
        return theName + " " + DescribeTransform(theOperation.theTransform) + " to " + theValue();
    case Verb::Convert:
        return theName + " " + theValue();
    case Verb::Compare:
        return theName + " " + theValue() + " with " + DescribeValue(theOperation.theOtherValue, theNumbers);
    case Verb::Split:
        return theName + " " + theKey + " at " + theOtherKey;
    case Verb::Trace:
        return theName + (theOperation.isOn ? " on" : " off");
    }
    return theName;
}

std::string DescribeScript(const Script& theScript)
{
    TextNumbers theNumbers;
    const Mentioned theMentioned(theScript);
    std::string theText = "Objects\n";
    for (const Id theObject : theMentioned.theObjects) {
        theText += "    " + DescribeObject(theScript, theObject) +
                   DescribePlan(theScript.theObjects[static_cast<std::size_t>(theObject)]) + "\n";
    }
    theText += "Transforms\n";
    for (const int theTransform : theMentioned.theTransforms) {
        theText += "    " + DescribeTransform(theTransform) + ":";
        for (const Step& theStep : theScript.theTransforms[static_cast<std::size_t>(theTransform)]) {
            theText += " " + DescribeStep(theStep, theNumbers);
        }
        theText += "\n";
    }
    theText += "Reactions\n";
    for (const Reaction& theReaction : theScript.theReactions) {
        theText += "    " + DescribeReaction(theScript, theReaction, theNumbers);
    }
    theText += "Script\n";
    for (const Operation& theOperation : theScript.theOperations) {
        theText += "    " + DescribeOperation(theScript, theOperation, theNumbers) + "\n";
    }
    return theText;
}

} // namespace Model
