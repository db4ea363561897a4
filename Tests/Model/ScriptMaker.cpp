// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ScriptMaker.h"

#include <limits>

namespace Model {

namespace {

// The same numbers from the same seed on every machine, which the standard library's distributions are not.
class Dice
{
public:
    explicit Dice(std::uint64_t theSeed)
        : mState(theSeed)
    {
    }

    std::uint64_t Next()
    {
        mState += 0x9E3779B97F4A7C15U;
        std::uint64_t theBits = mState;
        theBits = (theBits ^ (theBits >> 30U)) * 0xBF58476D1CE4E5B9U;
        theBits = (theBits ^ (theBits >> 27U)) * 0x94D049BB133111EBU;
        return theBits ^ (theBits >> 31U);
    }

    // From 0 to theCount - 1.
    std::size_t Below(std::size_t theCount) { return static_cast<std::size_t>(Next() % theCount); }

    int From(int theLowest, int theHighest)
    {
        return theLowest + static_cast<int>(Below(static_cast<std::size_t>(theHighest - theLowest) + 1));
    }

    bool Chance(int thePercent) { return From(1, 100) <= thePercent; }

    template <typename Items>
    auto Pick(const Items& theItems) -> const typename Items::value_type&
    {
        return theItems[Below(theItems.size())];
    }

private:
    std::uint64_t mState;
};

const std::vector<std::string> kKeys = {"a",       "b", "c", "d.e", "B", "a longer key than sixteen bytes",
                                        "\xC3\xA9"};

const std::vector<std::u16string> kTexts = {u"",
                                            u"a",
                                            u"A",
                                            u"true",
                                            u"FALSE",
                                            u"falsehood",
                                            u"42",
                                            u"-1",
                                            u" +7x",
                                            u"3.75",
                                            u".5",
                                            u"-.25",
                                            u"inf",
                                            u"-nan",
                                            u"1e3",
                                            u"0x1F",
                                            u"(3, 4)",
                                            u"(3,",
                                            u"(a)",
                                            u"-",
                                            u"4294967296",
                                            u"-99999999999",
                                            u"4294967295",
                                            u"00000000000000000000012",
                                            u"(1, 2)-(3, 4)",
                                            u"( -.5 , 1e2)",
                                            u"(1,2)",
                                            u"é12",
                                            u"12é",
                                            u"\u20AC",
                                            u"\U0001F600",
                                            u"x\xD800",
                                            u"\xDC00-1",
                                            u".5\u20AC",
                                            u"\t\n 8",
                                            u"infinity",
                                            u"unknown",
                                            u"a rather long text that no short string holds in itself"};

const std::vector<double> kDoubles = {0.0,
                                      -0.0,
                                      0.5,
                                      1.0,
                                      1.5,
                                      -1.0,
                                      -1.5,
                                      -0.25,
                                      2.0,
                                      3.99,
                                      255.0,
                                      1e-300,
                                      1e300,
                                      -1e300,
                                      2147483647.5,
                                      2147483648.0,
                                      4294967295.5,
                                      4294967296.0,
                                      -2147483648.5,
                                      -2147483649.0,
                                      9007199254740993.0,
                                      9223372036854775807.0,
                                      18446744073709551615.0,
                                      -9223372036854775808.0,
                                      -1e19,
                                      std::numeric_limits<double>::infinity(),
                                      -std::numeric_limits<double>::infinity(),
                                      std::numeric_limits<double>::quiet_NaN(),
                                      100.0,
                                      0.1,
                                      1e15,
                                      123456.789};

const std::vector<std::uint64_t> kIntegers = {0,
                                              1,
                                              2,
                                              3,
                                              5,
                                              10,
                                              100,
                                              0x7FFFFFFF,
                                              0x80000000,
                                              0xFFFFFFFF,
                                              0x100000000,
                                              0x100000001,
                                              5000000000,
                                              0x7FFFFFFFFFFFFFFF,
                                              0x8000000000000000,
                                              0xFFFFFFFFFFFFFFFF,
                                              0xFFFFFFFFFFFFFFFE,
                                              0xFFFFFFFF00000000,
                                              0xFFFFFFFF80000000,
                                              0x20000000000001,
                                              0x8000000000000401,
                                              0xFFFFFFFFFFFFFBFF};

const std::vector<float> kParts = {0.0F,
                                   1.0F,
                                   2.0F,
                                   -3.0F,
                                   0.5F,
                                   -0.0F,
                                   1e20F,
                                   0.1F,
                                   100.0F,
                                   5.0F,
                                   std::numeric_limits<float>::quiet_NaN(),
                                   16777216.0F};

// A number of theKind, of as many bits as that has.
Value Fitting(Kind theKind, std::uint64_t theBits)
{
    switch (theKind) {
    case Kind::Boolean:
        return Value::Number(theKind, theBits & 1U);
    case Kind::UInt32:
    case Kind::Pointer:
        return Value::Number(theKind, theBits & 0xFFFFFFFFU);
    case Kind::SInt32:
        return Value::Number(theKind,
                             static_cast<std::uint64_t>(std::int64_t{static_cast<std::int32_t>(theBits)}));
    default:
        return Value::Number(theKind, theBits);
    }
}

// The amount that undoes the addition of theAmount, where there is one.
Value Opposite(const Value& theAmount)
{
    switch (theAmount.theKind) {
    case Kind::UInt32:
    case Kind::SInt32:
    case Kind::UInt64:
    case Kind::SInt64:
    case Kind::Pointer:
        return Fitting(theAmount.theKind, 0 - theAmount.theBits);
    case Kind::Double:
        return Value::Double(-theAmount.theDouble);
    default:
        return theAmount;
    }
}

class Maker
{
public:
    explicit Maker(std::uint64_t theSeed)
        : mDice(theSeed)
    {
        mScript.theSeed = theSeed;
        mIsDeep = mDice.Chance(1) && mDice.Chance(10);
        mScript.theLongest = mIsDeep ? 2000000 : 5000;
    }

    Script Make();

private:
    enum class Crowd
    {
        None,
        Observers, // of the same few keys
        Keys,
        Ties // among few objects, of few keys
    };

    void MakeCrowd();
    void MakeObjects();
    void AddObject(ObjectSort theSort);
    void MakeKeys();
    void MakeValues();
    void MakeTransforms();
    void MakeReactions();
    void MakeEnd();

    Value NewValue();
    Value NewNumber(Kind theKind);
    Value NewGeometry(Kind theKind);
    Value SomeValue() { return mDice.Chance(80) ? mDice.Pick(mValues) : NewValue(); }
    std::string SomeKey();
    Step NewStep();
    std::vector<Step> InverseOf(const std::vector<Step>& theSteps);
    Id OneOf(const std::vector<Id>& theObjects) { return mDice.Pick(theObjects); }
    int SomeTransform();

    Operation NewTie();
    void Gather(Operation& theTie);
    void MakeEndlessBinding();
    Operation NewOperation(bool isReaction);
    Operation NewValueOperation();
    Operation NewObservingOperation();
    Operation NewDependencyOperation();
    Operation NewBindingOperation();
    Operation NewRareOperation(bool isReaction);

    Dice mDice;
    Script mScript;
    bool mIsDeep = false;
    Crowd mCrowd = Crowd::None;
    std::vector<Id> mStores;    // bindings among them
    std::vector<Id> mObservers; // bindings and bindables among them
    std::vector<Id> mBindings;
    std::vector<Id> mWhole; // all that can be made and destroyed
    std::vector<std::string> mKeys;
    std::vector<Value> mValues;
    std::vector<Text> mTexts;
};

// Now and then there is much more of something than most programs have. The library keeps long lists
// otherwise than short ones.
void Maker::MakeCrowd()
{
    if (mDice.Chance(2)) {
        mCrowd = static_cast<Crowd>(mDice.From(1, 3));
    }
}

// ---- Objects

void Maker::AddObject(ObjectSort theSort)
{
    const Id theId = static_cast<Id>(mScript.theObjects.size());
    ObjectPlan thePlan;
    thePlan.theSort = theSort;
    thePlan.isLoud = mDice.Chance(25);
    thePlan.canReturn = mDice.Chance(30);
    mScript.theObjects.push_back(thePlan);
    mWhole.push_back(theId);
    if (theSort != ObjectSort::Store) {
        mObservers.push_back(theId);
    }
    if (theSort == ObjectSort::Binding) {
        mStores.push_back(theId);
        mBindings.push_back(theId);
    } else if (theSort == ObjectSort::Store) {
        mStores.push_back(theId);
    } else if (theSort == ObjectSort::Bindable) {
        mStores.push_back(theId + 1);
        mObservers.push_back(theId + 1);
        mBindings.push_back(theId + 1);
        thePlan.theSort = ObjectSort::BindingOfBindable;
        thePlan.isLoud = false;
        mScript.theObjects.push_back(thePlan);
    }
}

void Maker::MakeObjects()
{
    for (int theCount = mDice.From(0, 2); theCount > 0; --theCount) {
        AddObject(ObjectSort::Store);
    }
    const bool hasManyObservers = mCrowd == Crowd::Observers;
    for (int theCount = hasManyObservers ? mDice.From(17, 22) : mDice.From(0, 3); theCount > 0; --theCount) {
        AddObject(ObjectSort::Observer);
    }
    for (int theCount = mDice.From(2, 4); theCount > 0; --theCount) {
        AddObject(ObjectSort::Binding);
    }
    for (int theCount = mDice.Chance(30) ? mDice.From(1, 2) : 0; theCount > 0; --theCount) {
        AddObject(ObjectSort::Bindable);
    }
    std::vector<int> thePlaces;
    for (std::size_t theIndex = 0; theIndex < mScript.theObjects.size(); ++theIndex) {
        thePlaces.insert(thePlaces.begin() + static_cast<std::ptrdiff_t>(mDice.Below(theIndex + 1)),
                         static_cast<int>(theIndex) * 2);
    }
    for (std::size_t theIndex = 0; theIndex < mScript.theObjects.size(); ++theIndex) {
        ObjectPlan& thePlan = mScript.theObjects[theIndex];
        const bool isInner = thePlan.theSort == ObjectSort::BindingOfBindable;
        thePlan.thePlace = isInner ? mScript.theObjects[theIndex - 1].thePlace + 1 : thePlaces[theIndex];
        if (thePlan.theSort == ObjectSort::Binding && mDice.Chance(15)) {
            thePlan.theUnbindable.insert(mDice.Pick(mKeys));
        }
    }
}

void Maker::MakeKeys()
{
    for (int theCount = mDice.From(2, 4); theCount > 0; --theCount) {
        mKeys.push_back(mDice.Pick(kKeys));
    }
    if (mCrowd == Crowd::Keys) {
        for (int theCount = mDice.From(12, 20); theCount > 0; --theCount) {
            mKeys.push_back("key " + std::to_string(theCount));
        }
    }
}

std::string Maker::SomeKey()
{
    if (mDice.Chance(4)) {
        return mDice.Chance(60) ? "*" : "";
    }
    return mDice.Pick(mKeys);
}

// ---- Values

Value Maker::NewNumber(Kind theKind)
{
    if (theKind == Kind::Double) {
        return Value::Double(mDice.Chance(50) ? mDice.Pick(kDoubles) : mDice.From(-40, 40) / 4.0);
    }
    const std::uint64_t theBits = mDice.Chance(50)
                                      ? mDice.Pick(kIntegers)
                                      : static_cast<std::uint64_t>(std::int64_t{mDice.From(-5, 20)});
    return Fitting(theKind, theBits);
}

Value Maker::NewGeometry(Kind theKind)
{
    std::array<float, 4> theParts{};
    const std::size_t theCount = theKind == Kind::Rect ? 4 : 2;
    for (std::size_t theIndex = 0; theIndex < theCount; ++theIndex) {
        theParts[theIndex] = mDice.Chance(60) ? mDice.Pick(kParts) : static_cast<float>(mDice.From(-9, 9));
    }
    return Value::Geometry(theKind, theParts);
}

Value Maker::NewValue()
{
    // Often of a kind that is there already, for most of what can be done with two values takes two of a
    // kind.
    const bool isOfKnownKind = !mValues.empty() && mDice.Chance(35);
    const auto theKind = isOfKnownKind ? mDice.Pick(mValues).theKind : static_cast<Kind>(mDice.From(0, 11));
    switch (theKind) {
    case Kind::Invalid:
        return {};
    case Kind::Text:
        if (mDice.Chance(20)) {
            return Value::String(nullptr);
        }
        if (mTexts.empty() || mDice.Chance(60)) {
            mTexts.push_back(std::make_shared<std::u16string>(mDice.Pick(kTexts)));
        }
        return Value::String(mDice.Pick(mTexts));
    case Kind::Point:
    case Kind::Size:
    case Kind::Rect:
        return NewGeometry(theKind);
    default:
        return NewNumber(theKind);
    }
}

// Few, so that the same ones come again.
void Maker::MakeValues()
{
    for (int theCount = mDice.From(3, 6); theCount > 0; --theCount) {
        mValues.push_back(NewValue());
    }
}

// ---- Transforms

Step Maker::NewStep()
{
    Step theStep;
    theStep.theSort = static_cast<StepSort>(mDice.From(0, 11));
    theStep.theOperand = SomeValue();
    theStep.isInclusive = mDice.Chance(50);
    theStep.theFactor = mDice.Chance(50) ? mDice.Pick(kDoubles) : mDice.From(-8, 8) / 2.0;
    return theStep;
}

// What undoes the steps for most values, so that a binding both ways comes to rest.
std::vector<Step> Maker::InverseOf(const std::vector<Step>& theSteps)
{
    std::vector<Step> theInverse;
    for (auto theStep = theSteps.rbegin(); theStep != theSteps.rend(); ++theStep) {
        Step theOpposite = *theStep;
        if (theStep->theSort == StepSort::ToText) {
            theOpposite.theSort = StepSort::FromText;
        } else if (theStep->theSort == StepSort::FromText) {
            theOpposite.theSort = StepSort::ToText;
        } else if (theStep->theSort == StepSort::Scale) {
            theOpposite.theFactor = theStep->theFactor == 0 ? 1 : 1 / theStep->theFactor;
        } else if (theStep->theSort == StepSort::Add) {
            theOpposite.theOperand = Opposite(theStep->theOperand);
        }
        theInverse.push_back(theOpposite);
    }
    return theInverse;
}

void Maker::MakeTransforms()
{
    for (int theCount = mDice.From(0, 3); theCount > 0; --theCount) {
        std::vector<Step> theSteps;
        for (int theLength = mDice.Chance(60) ? 1 : mDice.From(0, 4); theLength > 0; --theLength) {
            theSteps.push_back(NewStep());
        }
        mScript.theTransforms.push_back(theSteps);
        mScript.theTransforms.push_back(InverseOf(theSteps));
    }
}

int Maker::SomeTransform()
{
    if (mScript.theTransforms.empty() || mDice.Chance(40)) {
        return kNobody;
    }
    return static_cast<int>(mDice.Below(mScript.theTransforms.size()));
}

// ---- Operations

Operation Maker::NewValueOperation()
{
    Operation theOperation;
    const int theNumber = mDice.From(1, 100);
    theOperation.theVerb = theNumber <= 80   ? Verb::Set
                           : theNumber <= 86 ? Verb::Get
                           : theNumber <= 90 ? Verb::GetKey
                           : theNumber <= 95 ? Verb::SetKey
                                             : Verb::Has;
    theOperation.theObject = OneOf(mStores);
    theOperation.theKey = SomeKey();
    theOperation.theValue = SomeValue();
    return theOperation;
}

Operation Maker::NewObservingOperation()
{
    Operation theOperation;
    const int theNumber = mDice.From(1, 100);
    theOperation.theVerb = theNumber <= 60   ? Verb::Observe
                           : theNumber <= 80 ? Verb::Ignore
                           : theNumber <= 84 ? Verb::IsObserving
                           : theNumber <= 88 ? Verb::AmObserving
                           : theNumber <= 91 ? Verb::RemoveObservers
                           : theNumber <= 94 ? Verb::StopObserving
                                             : Verb::Notify;
    const bool isObserver = theOperation.theVerb == Verb::StopObserving;
    theOperation.theObject = OneOf(isObserver ? mObservers : mStores);
    const bool hasOther = theOperation.theVerb == Verb::Observe || theOperation.theVerb == Verb::Ignore ||
                          theOperation.theVerb == Verb::IsObserving ||
                          theOperation.theVerb == Verb::AmObserving;
    theOperation.theOther = hasOther ? OneOf(mObservers) : kNobody;
    theOperation.theKey = mDice.Chance(25) ? "*" : SomeKey();
    theOperation.isOn = mDice.Chance(50);
    return theOperation;
}

Operation Maker::NewDependencyOperation()
{
    Operation theOperation;
    const int theNumber = mDice.From(1, 100);
    theOperation.theVerb = theNumber <= 60   ? Verb::MakeDependency
                           : theNumber <= 80 ? Verb::BreakDependency
                           : theNumber <= 90 ? Verb::IsDependent
                                             : Verb::NotifyDependents;
    theOperation.theObject = OneOf(mStores);
    theOperation.theKey = SomeKey();
    theOperation.theOtherKey = SomeKey();
    return theOperation;
}

Operation Maker::NewBindingOperation()
{
    Operation theOperation;
    const int theNumber = mDice.From(1, 100);
    if (theNumber <= 50) {
        return NewTie();
    }
    theOperation.theVerb = theNumber <= 90 ? Verb::Unbind : Verb::UnbindAll;
    theOperation.theObject = OneOf(mBindings);
    theOperation.theKey = SomeKey();
    if (theOperation.theVerb == Verb::UnbindAll) {
        return theOperation;
    }
    theOperation.theOther = OneOf(mBindings);
    if (theOperation.theVerb == Verb::Unbind && mDice.Chance(30)) {
        theOperation.theOther = kNobody;
    }
    return theOperation;
}

Operation Maker::NewRareOperation(bool isReaction)
{
    Operation theOperation;
    const int theNumber = mDice.From(1, 100);
    theOperation.theValue = NewValue();
    if (theNumber <= 30 || (isReaction && theNumber <= 60)) {
        theOperation.theVerb = mDice.Chance(75) ? Verb::Destroy : Verb::Create;
        theOperation.theObject = OneOf(mWhole);
    } else if (theNumber <= 60 && !mScript.theTransforms.empty()) {
        theOperation.theVerb = Verb::Apply;
        theOperation.theTransform = static_cast<int>(mDice.Below(mScript.theTransforms.size()));
    } else if (theNumber <= 75) {
        theOperation.theVerb = Verb::Convert;
    } else if (theNumber <= 90) {
        theOperation.theVerb = Verb::Compare;
        theOperation.theOtherValue = SomeValue();
    } else if (theNumber <= 94 || isReaction) {
        static const std::vector<std::string> kWords = {"",     ".",    "a.b.c", "::", "a::b",
                                                        ".abc", "abc.", "b",     "abc"};
        theOperation.theVerb = Verb::Split;
        theOperation.theKey = mDice.Pick(kWords);
        theOperation.theOtherKey = mDice.Pick(kWords);
    } else {
        theOperation.theVerb = Verb::Trace;
        theOperation.isOn = mDice.Chance(70);
    }
    return theOperation;
}

// In a crowd, most ties are those of one object, of one key where there are not many of them.
void Maker::Gather(Operation& theTie)
{
    if (mCrowd == Crowd::None || mDice.Chance(30)) {
        return;
    }
    const bool isObserve = theTie.theVerb == Verb::Observe;
    theTie.theObject =
        isObserve || theTie.theVerb == Verb::MakeDependency ? mStores.front() : mBindings.front();
    if (mCrowd != Crowd::Keys) {
        theTie.theKey = mKeys.front();
    } else if (isObserve) {
        theTie.theOther = mObservers.front();
    } else if (theTie.theOther != kNobody) {
        theTie.theOther = mBindings.back();
    }
}

// Two keys that never settle, so that sets are nested as deep as they can be.
void Maker::MakeEndlessBinding()
{
    Step theStep;
    theStep.theSort = StepSort::Add;
    theStep.theOperand = Value::Number(Kind::SInt32, 1);
    Operation theOperation;
    theOperation.theVerb = Verb::Bind;
    theOperation.theObject = OneOf(mBindings);
    theOperation.theKey = SomeKey();
    theOperation.theOther = OneOf(mBindings);
    theOperation.theOtherKey = SomeKey();
    theOperation.theTransform = static_cast<int>(mScript.theTransforms.size());
    mScript.theTransforms.push_back({theStep});
    mScript.theOperations.push_back(theOperation);
    theOperation.theVerb = Verb::Set;
    std::swap(theOperation.theObject, theOperation.theOther);
    std::swap(theOperation.theKey, theOperation.theOtherKey);
    theOperation.theOther = kNobody;
    theOperation.theValue = NewNumber(Kind::SInt32);
    mScript.theOperations.push_back(theOperation);
}

// What makes a change travel.
Operation Maker::NewTie()
{
    Operation theOperation;
    const int theNumber = mDice.From(1, 100);
    theOperation.theVerb = theNumber <= 40   ? Verb::Observe
                           : theNumber <= 70 ? Verb::Bind
                           : theNumber <= 90 ? Verb::BindTo
                                             : Verb::MakeDependency;
    const bool isBinding = theOperation.theVerb == Verb::Bind || theOperation.theVerb == Verb::BindTo;
    theOperation.theObject = OneOf(isBinding ? mBindings : mStores);
    theOperation.theKey = SomeKey();
    if (theOperation.theVerb == Verb::Observe) {
        theOperation.theOther = OneOf(mObservers);
        theOperation.theKey = mDice.Chance(25) ? "*" : theOperation.theKey;
        Gather(theOperation);
        return theOperation;
    }
    theOperation.theOther = isBinding ? OneOf(mBindings) : kNobody;
    theOperation.theOtherKey = SomeKey();
    Gather(theOperation);
    theOperation.theTransform = SomeTransform();
    const bool isUndone = theOperation.theTransform != kNobody && mDice.Chance(70);
    // Transforms come in pairs.
    theOperation.theReverse = isUndone ? (theOperation.theTransform ^ 1) : SomeTransform();
    return theOperation;
}

Operation Maker::NewOperation(bool isReaction)
{
    const int theNumber = mDice.From(1, 100);
    if (theNumber <= 42) {
        return NewValueOperation();
    }
    if (theNumber <= 60) {
        return NewObservingOperation();
    }
    if (theNumber <= 67) {
        return NewDependencyOperation();
    }
    if (theNumber <= 86) {
        return NewBindingOperation();
    }
    return NewRareOperation(isReaction);
}

void Maker::MakeReactions()
{
    for (int theCount = mDice.From(0, 6); theCount > 0; --theCount) {
        Reaction theReaction;
        const bool isTransform = !mScript.theTransforms.empty() && mDice.Chance(15);
        theReaction.theMoment = isTransform        ? Moment::Applying
                                : mDice.Chance(40) ? Moment::Changing
                                                   : Moment::Changed;
        theReaction.theActor =
            isTransform ? static_cast<int>(mDice.Below(mScript.theTransforms.size())) : OneOf(mObservers);
        theReaction.theKey = isTransform || mDice.Chance(60) ? "" : mDice.Pick(mKeys);
        theReaction.theTimes = mDice.From(1, 3);
        for (int theLength = mDice.From(1, 3); theLength > 0; --theLength) {
            theReaction.theOperations.push_back(NewOperation(true));
        }
        mScript.theReactions.push_back(theReaction);
    }
}

// All bindings are removed, and all objects destroyed in some order.
void Maker::MakeEnd()
{
    for (const Id theBinding : mBindings) {
        Operation theOperation;
        theOperation.theVerb = Verb::UnbindAll;
        theOperation.theObject = theBinding;
        mScript.theOperations.push_back(theOperation);
    }
    std::vector<Id> theOrder;
    for (const Id theObject : mWhole) {
        theOrder.insert(theOrder.begin() + static_cast<std::ptrdiff_t>(mDice.Below(theOrder.size() + 1)),
                        theObject);
    }
    for (const Id theObject : theOrder) {
        Operation theOperation;
        theOperation.theVerb = Verb::Destroy;
        theOperation.theObject = theObject;
        mScript.theOperations.push_back(theOperation);
    }
}

Script Maker::Make()
{
    MakeCrowd();
    MakeKeys();
    MakeObjects();
    MakeValues();
    MakeTransforms();
    MakeReactions();
    for (const Id theObject : mWhole) {
        Operation theOperation;
        theOperation.theVerb = Verb::Create;
        theOperation.theObject = theObject;
        if (mDice.Chance(95)) {
            mScript.theOperations.push_back(theOperation);
        }
    }
    if (mDice.Chance(10)) {
        Operation theOperation;
        theOperation.theVerb = Verb::Trace;
        theOperation.isOn = true;
        mScript.theOperations.push_back(theOperation);
    }
    for (int theCount = mCrowd == Crowd::None ? mDice.From(3, 9) : mDice.From(40, 80); theCount > 0;
         --theCount) {
        mScript.theOperations.push_back(NewTie());
    }
    for (int theCount = mDice.From(4, 18); theCount > 0; --theCount) {
        mScript.theOperations.push_back(NewOperation(false));
    }
    if (mIsDeep) {
        MakeEndlessBinding();
    }
    MakeEnd();
    return mScript;
}

} // namespace

Script MakeScript(std::uint64_t theSeed)
{
    return Maker(theSeed).Make();
}

} // namespace Model
