// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ScriptPlayer_h
#define ScriptPlayer_h

#include "Script.h"

namespace Model {

// Thrown when a script has become too long to be followed, as one whose changes never settle does.
struct Endless
{
};

// The result of a process that ends for the same reason.
constexpr int kTooLong = 3;

// Plays a script on a system and writes down all that comes of it: first the player is made, of the script,
// then the system, with the player as its witness; once Play has ended, GetTranscript has everything.
//
// Operations of objects that are not there, or not any more, are passed over; so a script stays one whatever
// is taken out of it.
class ScriptPlayer : public Witness
{
public:
    explicit ScriptPlayer(const Script& theScript);

    // Throws Endless when more comes of an operation than the script allows, through the system; with a
    // system that exceptions cannot pass, the process ends with the result kTooLong.
    void Play(System& theSystem, bool canThrow);

    // Whether each line is printed at once.
    void SetShown(bool isShown) { mIsShown = isShown; }

    const std::string& GetTranscript() const { return mTranscript; }

    // The operation of the script that was played last.
    std::size_t GetPosition() const { return mPosition; }

    void Told(Id theObserver, Id theStore, const std::string& theKey, bool hasChanged) override;
    void Applying(int theTransform, const Value& theValue) override;
    void Applied(int theTransform, const Value& theResult) override;
    void TransformIsGone(int theTransform) override;
    void Read(Id theStore, const std::string& theKey) override;
    void Written(Id theStore, const std::string& theKey, const Value& theValue) override;
    void Reported(const std::string& theSource, const std::string& theMessage) override;
    void Traced(const std::string& theLine) override;

private:
    // Operations inside of reactions inside of reactions; what is deeper is not done.
    static constexpr int kDeepest = 4;

    void Write(const std::string& theLine);
    void WriteStatus(int theStatus) { Write("gives " + std::to_string(theStatus)); }
    void WriteAnswer(bool isTrue) { Write(isTrue ? "gives true" : "gives false"); }
    bool IsTooLong() const { return mTranscript.size() - mStart > mScript.theLongest; }
    void WriteGoneTransforms();
    std::string Describe(const Value& theValue) { return DescribeValue(theValue, mNumbers); }

    bool IsThere(Id theObject) const { return theObject == kNobody || mIsThere[Index(theObject)]; }
    bool CanBeDone(const Operation& theOperation) const;
    void Do(const Operation& theOperation);
    void DoLife(const Operation& theOperation);
    void DoValue(const Operation& theOperation);
    void DoObserving(const Operation& theOperation);
    void DoDependency(const Operation& theOperation);
    void DoBinding(const Operation& theOperation);
    void DoOther(const Operation& theOperation);
    void Create(Id theObject);
    void Destroy(Id theObject);
    void Take(int theTransform);
    void GiveBack(int theTransform);
    void Convert(const Value& theValue);
    void React(Moment theMoment, int theActor, const std::string& theKey);

    static std::size_t Index(int theNumber) { return static_cast<std::size_t>(theNumber); }

    const Script& mScript;
    System* mSystem;
    bool mCanThrow;
    bool mIsShown;
    std::string mTranscript;
    std::size_t mStart; // where the operation begins in it
    std::size_t mPosition;
    std::vector<bool> mIsThere; // which objects are there
    std::vector<bool> mIsOver;  // which were there, and do not return
    std::vector<int> mTimes;    // how often each reaction came
    std::set<int> mGoneTransforms;
    TextNumbers mNumbers;
    int mDepth; // of reactions
};

} // namespace Model

#endif
