// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "JournalReader.h"

#include "LmBindable.h"
#include "LmDiagnosticHandler.h"
#include "LmJournalHook.h"
#include "LmPreferenceBinding.h"
#include "LmStringTransforms.h"
#include "LmVersion.h"
#include "LmWindowBinding.h"
#include "NamedBinding.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <thread>

// One test for each kind of entry, with its exact fields; and what a recorder must survive.

namespace {

class Follower : public LmKeyValueObserver
{
public:
    void ValueChanging(const LmKeyValueStore*, const LmString&) override
    {
        if (mOnChanging) {
            mOnChanging();
        }
    }
    void ValueChanged(const LmKeyValueStore*, const LmString&) override
    {
        if (mOnChanged) {
            mOnChanged();
        }
    }

    std::function<void()> mOnChanging;
    std::function<void()> mOnChanged;
};

// A store that keeps no more than 50.
class Clamping : public LmKeyValueStore
{
public:
    void SetKeyValue(const LmString& theKey, const LmValue& theValue) override
    {
        LmKeyValueStore::SetKeyValue(theKey, LmValue(std::min(theValue.GetSInt32(), 50L)));
    }
};

std::string ObjectText(int theNumber, const char* theClass, const char* theName)
{
    return R"({"id":)" + std::to_string(theNumber) + R"(,"class":")" + theClass + R"(","name":")" + theName +
           R"("})";
}

std::string NamedText(int theNumber, const char* theName)
{
    return ObjectText(theNumber, "NamedBinding", theName);
}

std::string FollowerText(int theNumber)
{
    return ObjectText(theNumber, "(anonymous namespace)::Follower",
                      ("(anonymous namespace)::Follower " + std::to_string(theNumber)).c_str());
}

std::string StoreText(int theNumber)
{
    return ObjectText(theNumber, "LmKeyValueStore", ("LmKeyValueStore " + std::to_string(theNumber)).c_str());
}

std::string NumberText(long theNumber)
{
    return R"({"kind":"sint32","value":)" + std::to_string(theNumber) + "}";
}

std::string Entry(int theNumber, const char* theWhat, const std::string& theFields)
{
    return R"({"n":)" + std::to_string(theNumber) + R"(,"what":")" + theWhat + "\"," + theFields + "}";
}

std::string Entry(int theNumber, int theCause, const char* theWhat, const std::string& theFields)
{
    return R"({"n":)" + std::to_string(theNumber) + R"(,"cause":)" + std::to_string(theCause) +
           R"(,"what":")" + theWhat + "\"," + theFields + "}";
}

std::string Field(const char* theField, const std::string& theJSON)
{
    return std::string("\"") + theField + "\":" + theJSON;
}

const std::string kInvalid = R"({"kind":"invalid"})";

} // namespace

TEST(LmJournalRecorder, BeginsWithWhatTheFileIs)
{
    const TestJournal theJournal;
    EXPECT_EQ(WithoutTimes(ReadJournalLines(theJournal.GetPath()).front()),
              R"({"n":1,"what":"begin","journal":"lmbindings","version":1,"library":")" LM_VERSION_STRING
              R"(","started":"T","file":1,"strings":1000,"callerLimit":0,"pointer":)" +
                  std::to_string(sizeof(void*)) + "}");
}

TEST(LmJournalRecorder, EndsWithHowMuchWasLost)
{
    TestJournal theJournal;
    LmEndJournal();
    EXPECT_EQ(theJournal.Take(), Lines{R"({"n":2,"what":"end","lost":0})"});
}

TEST(LmJournalRecorder, HasTimesThatOnlyGoForward)
{
    const TestJournal theJournal;
    LmKeyValueStore theStore;
    for (int theCount = 0; theCount < 20; ++theCount) {
        theStore.SetKeyPathValue("volume", LmValue(theCount));
    }
    long long theLast = 0;
    for (const std::string& theLine : ReadJournalLines(theJournal.GetPath())) {
        const long long theTime = std::stoll(theLine.substr(theLine.find("\"t\":") + 4));
        EXPECT_GE(theTime, theLast);
        theLast = theTime;
    }
}

TEST(LmJournalRecorder, WritesOfObjectsThatAreMadeAndDestroyed)
{
    TestJournal theJournal;
    {
        const LmKeyValueStore theStore;
        const Follower theFollower;
        const NamedBinding theBinding("[radio]");
    }
    const std::string theStore = StoreText(1);
    const Lines theExpected = {
        Entry(2, "made", Field("object", theStore) + R"(,"role":"store","debug":"@")"),
        Entry(3, "made", Field("object", FollowerText(2)) + R"(,"role":"observer","debug":"@")"),
        Entry(4, "made",
              Field("object", ObjectText(3, "LmKeyValueBinding", "LmKeyValueBinding 3")) +
                  R"(,"role":"binding","debug":"[LmKeyValueBinding @]")"),
        Entry(5, "destroyed", Field("object", ObjectText(3, "LmKeyValueBinding", "LmKeyValueBinding 3"))),
        Entry(6, "destroyed", Field("object", FollowerText(2))),
        Entry(7, "destroyed", Field("object", theStore)),
    };
    Lines theLines = theJournal.Take();
    // The binding's derived part is gone when it is first written of, since nothing else has happened to it.
    EXPECT_EQ(theLines, theExpected);
}

TEST(LmJournalRecorder, KnowsWhatAnObjectBecameAfterItsConstructors)
{
    TestJournal theJournal;
    NamedBinding theBinding("[radio]");
    theBinding.MakeDependency("a", "b");
    EXPECT_EQ(theJournal.Take("made"), Lines{Entry(2, "made",
                                                   Field("object", NamedText(1, "[radio]")) +
                                                       R"(,"role":"binding","debug":"[radio]")")});
    StandardErrorCapture::TakeText();
}

TEST(LmJournalRecorder, WritesAChangeWithBothValues)
{
    LmKeyValueStore theStore;
    theStore.SetKeyValue("volume", LmValue(40));
    TestJournal theJournal;
    LmNameObject(theStore, "radio");
    theJournal.Take();
    theStore.SetKeyPathValue("volume", LmValue(55));
    const std::string theObject =
        Field("object", ObjectText(1, "LmKeyValueStore", "radio")) + R"(,"key":"volume",)";
    const Lines theExpected = {
        Entry(3, "changing", theObject + Field("was", NumberText(40)) + "," + Field("to", NumberText(55))),
        Entry(4, "changed",
              theObject + Field("was", NumberText(40)) + "," + Field("is", NumberText(55)) +
                  R"(,"changing":3)"),
    };
    EXPECT_EQ(theJournal.Take(), theExpected);
}

TEST(LmJournalRecorder, ShowsWhatAStoreMadeOfTheValue)
{
    Clamping theStore;
    theStore.SetKeyValue("volume", LmValue(40));
    TestJournal theJournal;
    theStore.SetKeyPathValue("volume", LmValue(70));
    const Lines theLines = theJournal.Take("changed");
    ASSERT_EQ(theLines.size(), 1U);
    EXPECT_NE(theLines[0].find(Field("is", NumberText(50))), std::string::npos) << theLines[0];
}

TEST(LmJournalRecorder, WritesASetThatChangesNothing)
{
    LmKeyValueStore theStore;
    theStore.SetKeyValue("volume", LmValue(40));
    TestJournal theJournal;
    theStore.SetKeyPathValue("volume", LmValue(40.5));
    EXPECT_EQ(theJournal.Take("equal"),
              Lines{Entry(3, "equal",
                          Field("object", StoreText(1)) + R"(,"key":"volume",)" +
                              Field("is", NumberText(40)) + R"(,"to":{"kind":"double","value":40.5})")});
}

TEST(LmJournalRecorder, WritesASetThatIsRefused)
{
    LmKeyValueStore theStore;
    Follower theFollower;
    long theNext = 0;
    theFollower.mOnChanged = [&] { theStore.SetKeyPathValue("volume", LmValue(++theNext)); };
    theStore.ObserveKeyPathValue("volume", &theFollower);
    TestJournal theJournal;
    theStore.SetKeyPathValue("volume", LmValue(-1));
    const Lines theLines = theJournal.Take("refused");
    ASSERT_EQ(theLines.size(), 1U);
    EXPECT_NE(theLines[0].find(R"("key":"volume",)" + Field("is", NumberText(theNext - 1)) + "," +
                               Field("to", NumberText(theNext)) + "}"),
              std::string::npos)
        << theLines[0];
    StandardErrorCapture::TakeText();
}

TEST(LmJournalRecorder, MakesAChangeTheCauseOfWhatItsObserversDo)
{
    LmKeyValueStore theStore;
    Follower theFollower;
    theStore.ObserveKeyPathValue("volume", &theFollower);
    theFollower.mOnChanging = [&] { theStore.SetKeyPathValue("early", LmValue(1)); };
    theFollower.mOnChanged = [&] { theStore.SetKeyPathValue("late", LmValue(2)); };
    TestJournal theJournal;
    LmNameObject(theStore, "radio");
    theJournal.Take();
    theStore.SetKeyPathValue("volume", LmValue(55));
    const std::string theObject = Field("object", ObjectText(1, "LmKeyValueStore", "radio"));
    const auto theChanging = [&](const char* theKey, long theValue) {
        return theObject + R"(,"key":")" + theKey + "\"," + Field("was", kInvalid) + "," +
               Field("to", NumberText(theValue));
    };
    const auto theChanged = [&](const char* theKey, long theValue, int theNumber) {
        return theObject + R"(,"key":")" + theKey + "\"," + Field("was", kInvalid) + "," +
               Field("is", NumberText(theValue)) + R"(,"changing":)" + std::to_string(theNumber);
    };
    const Lines theExpected = {
        Entry(3, "changing", theChanging("volume", 55)),   Entry(4, 3, "changing", theChanging("early", 1)),
        Entry(5, 3, "changed", theChanged("early", 1, 4)), Entry(6, "changed", theChanged("volume", 55, 3)),
        Entry(7, 6, "changing", theChanging("late", 2)),   Entry(8, 6, "changed", theChanged("late", 2, 7)),
    };
    EXPECT_EQ(theJournal.Take(), theExpected);
}

TEST(LmJournalRecorder, WritesOfDependencies)
{
    LmKeyValueStore theStore;
    Follower theFollower;
    theStore.SetKeyValue("celsius", LmValue(20));
    theStore.SetKeyValue("shown", LmValue(68));
    theStore.ObserveKeyPathValue("shown", &theFollower);
    TestJournal theJournal;
    LmNameObject(theStore, "radio");
    theJournal.Take();
    theStore.MakeDependency("celsius", "shown");
    theStore.SetKeyPathValue("celsius", LmValue(21));
    theStore.BreakDependency("celsius", "shown");
    const std::string theObject = Field("object", ObjectText(1, "LmKeyValueStore", "radio"));
    const Lines theLines = theJournal.Take();
    ASSERT_EQ(theLines.size(), 5U);
    EXPECT_EQ(theLines[0], Entry(3, "depend", theObject + R"(,"key":"celsius","dependent":"shown")"));
    EXPECT_EQ(theLines[3],
              Entry(6, "told",
                    theObject + R"(,"key":"shown",)" + Field("is", NumberText(68)) + R"(,"of":"celsius")"));
    EXPECT_EQ(theLines[4], Entry(7, "undepend", theObject + R"(,"key":"celsius","dependent":"shown")"));
}

TEST(LmJournalRecorder, WritesOfAStoreThatTellsItsObserversItself)
{
    LmKeyValueStore theStore;
    TestJournal theJournal;
    LmNameObject(theStore, "radio");
    theJournal.Take();
    theStore.NotifyObservers("volume", false);
    theStore.NotifyObservers("volume", true);
    const std::string theObject = Field("object", ObjectText(1, "LmKeyValueStore", "radio")) +
                                  R"(,"key":"volume",)" + Field("is", kInvalid);
    EXPECT_EQ(theJournal.Take(), (Lines{Entry(3, "notify", theObject + R"(,"phase":"changing")"),
                                        Entry(4, "notify", theObject + R"(,"phase":"changed")")}));
}

TEST(LmJournalRecorder, WritesOfObservations)
{
    LmKeyValueStore theStore;
    Follower theFollower;
    TestJournal theJournal;
    theStore.ObserveKeyPathValue("volume", &theFollower);
    theStore.IgnoreKeyPathValue("volume", &theFollower);
    const std::string theFields =
        Field("object", StoreText(1)) + R"(,"key":"volume",)" + Field("observer", FollowerText(2));
    const Lines theExpected = {
        Entry(2, "named", Field("object", StoreText(1)) + R"(,"debug":"@")"),
        Entry(3, "named", Field("object", FollowerText(2)) + R"(,"debug":"@")"),
        Entry(4, "observe", theFields),
        Entry(5, "unobserve", theFields),
    };
    EXPECT_EQ(theJournal.Take(), theExpected);
}

TEST(LmJournalRecorder, FollowsATwoWayBinding)
{
    NamedBinding theRadio("[radio]");
    NamedBinding theSlider("[slider]");
    theRadio.SetKeyValue("volume", LmValue(40));
    TestJournal theJournal;
    theSlider.Bind("value", &theRadio, "volume", nullptr, nullptr);
    const std::string theSliderText = NamedText(1, "[slider]");
    const std::string theRadioText = NamedText(2, "[radio]");
    const std::string theSliderKey = Field("object", theSliderText) + R"(,"key":"value",)";
    const std::string theRadioKey = Field("object", theRadioText) + R"(,"key":"volume",)";
    const std::string theFromRadio =
        theSliderKey + Field("from", theRadioText) + R"(,"fromKey":"volume","record":1)";
    const std::string theFromSlider =
        theRadioKey + Field("from", theSliderText) + R"(,"fromKey":"value","record":2)";
    const Lines theBinding = {
        Entry(2, "named", Field("object", theSliderText) + R"(,"debug":"[slider]")"),
        Entry(3, "named", Field("object", theRadioText) + R"(,"debug":"[radio]")"),
        Entry(4, "bind", theFromRadio),
        Entry(5, "bind", theFromSlider),
        Entry(6, "observe", theSliderKey + Field("observer", theRadioText)),
        Entry(7, "observe", theRadioKey + Field("observer", theSliderText)),
        Entry(8, "update", theFromRadio + "," + Field("to", NumberText(40)) + R"(,"first":true)"),
        Entry(9, 8, "changing", theSliderKey + Field("was", kInvalid) + "," + Field("to", NumberText(40))),
        Entry(10, 8, "changed",
              theSliderKey + Field("was", kInvalid) + "," + Field("is", NumberText(40)) + R"(,"changing":9)"),
        Entry(11, 10, "update", theFromSlider + "," + Field("to", NumberText(40))),
        Entry(12, 11, "equal", theRadioKey + Field("is", NumberText(40)) + "," + Field("to", NumberText(40))),
    };
    EXPECT_EQ(theJournal.Take(), theBinding);

    theSlider.Unbind("value", &theRadio);
    const Lines theUnbinding = {
        Entry(13, "unbind", theFromRadio),
        Entry(14, 13, "unobserve", theRadioKey + Field("observer", theSliderText)),
        Entry(15, 13, "unbind", theFromSlider),
        Entry(16, 15, "unobserve", theSliderKey + Field("observer", theRadioText)),
    };
    EXPECT_EQ(theJournal.Take(), theUnbinding);
}

TEST(LmJournalRecorder, WritesWhatATransformMakesOfAValue)
{
    NamedBinding theRadio("[radio]");
    NamedBinding theText("[text]");
    theText.BindTo("value", &theRadio, "volume", new LmToStringTransform);
    TestJournal theJournal;
    theRadio.SetKeyPathValue("volume", LmValue(40));
    const std::string theFrom = Field("object", NamedText(2, "[text]")) + R"(,"key":"value",)" +
                                Field("from", NamedText(1, "[radio]")) + R"(,"fromKey":"volume",)";
    const Lines theTransforms = theJournal.Take();
    ASSERT_EQ(theTransforms.size(), 8U);
    // The record was made before the journal began, so it has no number.
    EXPECT_EQ(theTransforms[4],
              Entry(6, 4, "transform",
                    theFrom + R"("transform":{"id":1,"class":"LmToStringTransform"},)" +
                        Field("in", NumberText(40)) + R"(,"out":{"kind":"string","value":"40"})"));
    EXPECT_EQ(theTransforms[5], Entry(7, 6, "update", theFrom + R"("to":{"kind":"string","value":"40"})"));
    theText.Unbind("value", &theRadio);
    StandardErrorCapture::TakeText();
}

TEST(LmJournalRecorder, SaysInABindWhichTransformItHas)
{
    NamedBinding theRadio("[radio]");
    NamedBinding theText("[text]");
    TestJournal theJournal;
    theText.BindTo("value", &theRadio, "volume", new LmToStringTransform);
    const Lines theLines = theJournal.Take("bind");
    ASSERT_EQ(theLines.size(), 1U);
    EXPECT_NE(theLines[0].find(R"("record":1,"transform":{"id":1,"class":"LmToStringTransform"}})"),
              std::string::npos)
        << theLines[0];
    theText.Unbind("value", &theRadio);
    StandardErrorCapture::TakeText();
}

TEST(LmJournalRecorder, WritesDiagnosticsAndLeavesThemAsTheyAre)
{
    LmKeyValueStore theStore;
    TestJournal theJournal;
    theStore.GetKeyValue("");
    const Lines theLines = theJournal.Take();
    ASSERT_EQ(theLines.size(), 1U);
    EXPECT_EQ(
        theLines[0].find(R"({"n":2,"what":"diagnostic","file":"Source/Core/LmKeyValueStore.cpp","line":)"),
        0U)
        << theLines[0];
    EXPECT_NE(theLines[0].find(R"x(,"message":"theKeyName.IsNotEmpty()"})x"), std::string::npos)
        << theLines[0];
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(),
              Lines{"Source/Core/LmKeyValueStore.cpp, line #: theKeyName.IsNotEmpty()"});
}

TEST(LmJournalRecorder, PrintsNoDiagnosticForWhatItReadsItself)
{
    LmKeyValueStore theStore;
    TestJournal theJournal;
    theStore.SetKeyPathValue("", LmValue(1));
    LmEndJournal();
    const Lines theWith = StandardErrorCapture::TakeDiagnostics();
    LmKeyValueStore theOther;
    theOther.SetKeyPathValue("", LmValue(1));
    EXPECT_EQ(theWith, StandardErrorCapture::TakeDiagnostics());
}

TEST(LmJournalRecorder, LeavesTheTraceAsItIs)
{
    const auto theScene = [] {
        NamedBinding theRadio("[radio]");
        NamedBinding theText("[text]");
        theText.Bind("value", &theRadio, "volume", nullptr, nullptr);
        theRadio.SetKeyPathValue("volume", LmValue(1));
        theRadio.SetKeyPathValue("volume", LmValue(1.5));
    };
    const auto theTrace = [&] {
        LmDebugObject::SetLogging(true);
        theScene();
        LmDebugObject::SetLogging(false);
        Lines theLines = StandardErrorCapture::TakeLines();
        for (std::string& theLine : theLines) {
            theLine = WithoutTimes(theLine);
        }
        return theLines;
    };
    const Lines theWithout = theTrace();
    EXPECT_GT(theWithout.size(), 5U);
    TestJournal theJournal;
    EXPECT_EQ(theTrace(), theWithout);
    EXPECT_FALSE(LmDebugObject::IsLogging());
    // Switching the trace leaves the journal on.
    theJournal.Take();
    theScene();
    EXPECT_NE(theJournal.Take(), Lines());
}

TEST(LmJournalRecorder, WritesOfPreferences)
{
    LmPreferenceBinding thePreferences(CFSTR("org.lmbindings.JournalTests"));
    thePreferences.SetKeyValue("volume", LmValue(1));
    TestJournal theJournal;
    thePreferences.SetKeyPathValue("volume", LmValue(40));
    thePreferences.Flush();
    const std::string theObject =
        Field("object", ObjectText(1, "LmPreferenceBinding", "[Preferences org.lmbindings.JournalTests]"));
    const std::string theKey = theObject + R"(,"key":"volume",)";
    const Lines theExpected = {
        Entry(2, "named", theObject + R"(,"debug":"[Preferences org.lmbindings.JournalTests]")"),
        Entry(3, "read", theKey + Field("is", NumberText(1))),
        Entry(4, "changing", theKey + Field("was", NumberText(1)) + "," + Field("to", NumberText(40))),
        Entry(5, "write", theKey + Field("to", NumberText(40))),
        Entry(6, "changed",
              theKey + Field("was", NumberText(1)) + "," + Field("is", NumberText(40)) + R"(,"changing":4)"),
        Entry(7, "read", theKey + Field("is", NumberText(40))),
        Entry(8, "flush", theObject + R"(,"done":true)"),
    };
    EXPECT_EQ(theJournal.Take(), theExpected);
}

TEST(LmJournalRecorder, NamesAControlAfterItsTitleAndTellsOfItsEvents)
{
    const Rect thePlace = {0, 0, 100, 200};
    WindowRef theWindow = nullptr;
    CreateNewWindow(kDocumentWindowClass, 0, &thePlace, &theWindow);
    SetWindowTitleWithCFString(theWindow, CFSTR("Radio"));
    auto* theBinding = new LmWindowBinding(theWindow);
    TestJournal theJournal;
    SetWindowTitleWithCFString(theWindow, CFSTR("Tuner"));
    const std::string theOld = Field("object", ObjectText(1, "LmWindowBinding", "Radio"));
    const std::string theNew = Field("object", ObjectText(1, "LmWindowBinding", "Tuner"));
    const std::string theValues = R"("was":{"kind":"string","value":"Radio"},)";
    const Lines theExpected = {
        Entry(2, "named", theOld + R"(,"debug":"[Window \"Tuner\"]")"),
        Entry(3, "event", theOld + R"(,"event":"kEventWindowTitleChanged","class":"wind","kind":1020)"),
        Entry(4, 3, "changing",
              theOld + R"(,"key":"title",)" + theValues + R"("to":{"kind":"string","value":"Tuner"})"),
        Entry(5, 3, "named", theNew + R"(,"debug":"[Window \"Tuner\"]")"),
        Entry(6, 3, "changed",
              theNew + R"(,"key":"title",)" + theValues +
                  R"("is":{"kind":"string","value":"Tuner"},"changing":4)"),
    };
    EXPECT_EQ(theJournal.Take(), theExpected);
    static_cast<void>(theBinding);
    DisposeWindow(theWindow);
}

TEST(LmJournalRecorder, CallsTheKeysOfABindableAsTheBindableIsCalled)
{
    class Radio : public LmBindable
    {
    };
    TestJournal theJournal;
    Radio theRadio;
    LmNameObject(theRadio, "radio");
    theRadio.GetBindings()->SetKeyPathValue("volume", LmValue(1));
    const Lines theLines = theJournal.Take("changed");
    ASSERT_EQ(theLines.size(), 1U);
    EXPECT_NE(theLines[0].find(R"("class":"LmKeyValueBinding","name":"radio"})"), std::string::npos)
        << theLines[0];
}

TEST(LmJournalRecorder, LeavesAddressesOutOfNames)
{
    NamedBinding theControl("[ControlRef 0x0804A1B0, 'volu', 1]");
    NamedBinding theModel("[Model 0x0804A1B0]");
    TestJournal theJournal;
    LmNameObject(theModel, "");
    theControl.MakeDependency("a", "b");
    const Lines theLines = theJournal.Take("named");
    ASSERT_EQ(theLines.size(), 2U);
    EXPECT_NE(theLines[0].find(R"("name":"NamedBinding 1")"), std::string::npos) << theLines[0];
    EXPECT_NE(theLines[1].find(R"("name":"[ControlRef 'volu', 1]")"), std::string::npos) << theLines[1];
    StandardErrorCapture::TakeText();
}

TEST(LmJournalRecorder, TakesAnObjectAtTheSameAddressForAnotherOne)
{
    alignas(LmKeyValueStore) unsigned char thePlace[sizeof(LmKeyValueStore)];
    TestJournal theJournal;
    for (int theCount = 0; theCount < 2; ++theCount) {
        auto* theStore = new (thePlace) LmKeyValueStore;
        theStore->SetKeyPathValue("volume", LmValue(1));
        theStore->~LmKeyValueStore();
    }
    const Lines theLines = theJournal.Take("destroyed");
    EXPECT_EQ(theLines, (Lines{Entry(5, "destroyed", Field("object", StoreText(1))),
                               Entry(9, "destroyed", Field("object", StoreText(2)))}));
}

TEST(LmJournalRecorder, GoesOnWhenAStoreDiesInTheMidstOfAPass)
{
    auto theStore = std::make_unique<LmKeyValueStore>();
    Follower theFollower;
    theStore->ObserveKeyPathValue("volume", &theFollower);
    theFollower.mOnChanging = [&] { theStore.reset(); };
    LmKeyValueStore theOther;
    TestJournal theJournal;
    theStore->SetKeyPathValue("volume", LmValue(1));
    theOther.SetKeyPathValue("volume", LmValue(2));
    const Lines theLines = theJournal.Take();
    // named, changing; destroyed, named, unobserve, all because of it; and the other store on its own
    // account.
    ASSERT_EQ(theLines.size(), 8U);
    EXPECT_EQ(theLines[2], Entry(4, 3, "destroyed", Field("object", StoreText(1))));
    EXPECT_EQ(theLines[4], Entry(6, 4, "unobserve",
                                 Field("object", StoreText(1)) + R"(,"key":"volume",)" +
                                     Field("observer", FollowerText(2))));
    EXPECT_EQ(theLines[6], Entry(8, "changing",
                                 Field("object", StoreText(3)) + R"(,"key":"volume",)" +
                                     Field("was", kInvalid) + "," + Field("to", NumberText(2))));
}

TEST(LmJournalRecorder, GoesOnWhenATransformTakesEverythingWithIt)
{
    // Ends the life of where its values come from, and with that its own.
    class Ending : public LmValueTransform
    {
    public:
        Ending(std::unique_ptr<LmKeyValueBinding>& theFollower, std::unique_ptr<LmKeyValueBinding>& theSource)
            : mFollower(theFollower),
              mSource(theSource)
        {
        }
        LmValue Apply(const LmValue&) override
        {
            if (mIsArmed) {
                mFollower->UnbindAll();
                mSource.reset();
            }
            return LmValue(7);
        }
        bool mIsArmed = false;

    private:
        std::unique_ptr<LmKeyValueBinding>& mFollower;
        std::unique_ptr<LmKeyValueBinding>& mSource;
    };
    auto theSource = std::make_unique<LmKeyValueBinding>();
    auto theFollower = std::make_unique<LmKeyValueBinding>();
    auto* theTransform = new Ending(theFollower, theSource);
    theFollower->BindTo("value", theSource.get(), "volume", theTransform);
    theTransform->mIsArmed = true;
    TestJournal theJournal;
    theSource->SetKeyPathValue("volume", LmValue(1));
    Lines theLines = theJournal.Take("update");
    ASSERT_EQ(theLines.size(), 1U);
    EXPECT_NE(theLines[0].find(R"("from":null,"fromKey":"volume",)"), std::string::npos) << theLines[0];
    StandardErrorCapture::TakeText();
}

TEST(LmJournalRecorder, LooksOnlyAtWhatAnObjectSaysOfItself)
{
    // A store that talks of other stores when it is asked for its name: nothing of that is written down.
    class Talkative : public LmKeyValueStore
    {
    public:
        LmString GetDebugInfo() const override
        {
            LmKeyValueStore theOther;
            theOther.SetKeyPathValue("", LmValue(1));
            return "[talkative]";
        }
    };
    Talkative theStore;
    TestJournal theJournal;
    theStore.NotifyObservers("volume", true);
    EXPECT_EQ(theJournal.Take().size(), 2U);
}

TEST(LmJournalRecorder, WritesFromOtherThreads)
{
    LmKeyValueStore theStore;
    TestJournal theJournal;
    theStore.NotifyObservers("volume", true);
    theJournal.Take();
    std::thread([&] { theStore.NotifyObservers("volume", true); }).join();
    EXPECT_EQ(theJournal.Take(),
              Lines{R"({"n":4,"what":"notify","thread":2,)" + Field("object", StoreText(1)) +
                    R"(,"key":"volume",)" + Field("is", kInvalid) + R"(,"phase":"changed"})"});
}

TEST(LmJournalRecorder, ReplacesBytesInKeysThatAreNoUTF8)
{
    LmKeyValueStore theStore;
    TestJournal theJournal;
    theStore.NotifyObservers("vol\xFF", true);
    const Lines theLines = theJournal.Take("notify");
    ASSERT_EQ(theLines.size(), 1U);
    EXPECT_NE(theLines[0].find("\"key\":\"vol\uFFFD\""), std::string::npos) << theLines[0];
}

TEST(LmJournalRecorder, CutsStringsAtTheLimit)
{
    LmJournalSettings theSettings;
    theSettings.theLongestString = 16;
    LmKeyValueStore theStore;
    TestJournal theJournal(theSettings);
    theStore.SetKeyPathValue("volume", LmValue(CFSTR("a text of 27 bytes in UTF-8"), false));
    const Lines theLines = theJournal.Take("changing");
    ASSERT_EQ(theLines.size(), 1U);
    EXPECT_NE(theLines[0].find(R"("to":{"kind":"string","value":"a text of 27 byt","bytes":27})"),
              std::string::npos)
        << theLines[0];
}

TEST(LmJournalRecorder, BeginsAnewWhenTheFileIsFull)
{
    LmJournalSettings theSettings;
    theSettings.theLimit = 4000;
    LmKeyValueStore theStore;
    const TestJournal theJournal(theSettings);
    for (int theCount = 0; theCount < 100; ++theCount) {
        theStore.SetKeyPathValue("volume", LmValue(theCount));
    }
    LmEndJournal();
    const Lines theOld = ReadJournalLines(theJournal.GetPath() + ".1");
    const Lines theNew = ReadJournalLines(theJournal.GetPath());
    EXPECT_NE(theNew.front().find(R"("what":"begin","journal":"lmbindings",)"), std::string::npos);
    EXPECT_NE(theNew.back().find(R"("what":"end","lost":0)"), std::string::npos);
    int theNumber = std::stoi(theOld.front().substr(5));
    EXPECT_GT(theNumber, 1);
    std::size_t theSize = 0;
    for (const Lines& theLines : {theOld, theNew}) {
        theSize = 0;
        for (const std::string& theLine : theLines) {
            EXPECT_EQ(std::stoi(theLine.substr(5)), theNumber++);
            theSize += theLine.size() + 1;
        }
        EXPECT_LE(theSize, 4000U);
    }
}

TEST(LmJournalRecorder, EndsItsFilesEvenWithALimitThatNothingFitsInto)
{
    LmJournalSettings theSettings;
    theSettings.theLimit = 1;
    LmKeyValueStore theStore;
    const TestJournal theJournal(theSettings);
    theStore.SetKeyPathValue("volume", LmValue(1));
    const Lines theLines = ReadJournalLines(theJournal.GetPath());
    ASSERT_EQ(theLines.size(), 2U);
    EXPECT_NE(theLines[1].find(R"("what":"changed")"), std::string::npos);
}

TEST(LmJournalRecorder, KeepsCallersAndWhatTheyLieIn)
{
    LmJournalSettings theSettings;
    theSettings.theCallers = 2;
    LmKeyValueStore theStore;
    TestJournal theJournal(theSettings);
    theStore.NotifyObservers("volume", true);
    const Lines theLines = theJournal.Take();
    ASSERT_GE(theLines.size(), 3U);
    EXPECT_NE(theLines[0].find(R"("what":"module","path":"/)"), std::string::npos) << theLines[0];
    EXPECT_NE(theLines[0].find(R"(inspectionTests","base":)"), std::string::npos) << theLines[0];
    EXPECT_NE(theLines.back().find(R"("what":"notify","callers":["@","@"],"object":)"), std::string::npos)
        << theLines.back();
}

// Callers could not be resolved in half a path, nor events known by half a name.
TEST(LmJournalRecorder, CutsNoPathsAndNoNamesOfEvents)
{
    LmJournalSettings theSettings;
    theSettings.theCallers = 1;
    theSettings.theLongestString = 16;
    const LmKeyValueStore theStore;
    const TestJournal theJournal(theSettings);
    LmJournalEntry theEntry = {kJournalEvent};
    theEntry.theObject = &theStore;
    theEntry.theCode = kEventClassControl;
    theEntry.theDetail = kEventControlValueFieldChanged;
    LmWriteJournalEntry(theEntry, nullptr);
    LmReportDiagnostic("Source/A/RatherLongName.cpp", 7, "a message of more than 16 bytes");
    StandardErrorCapture::TakeText();
    const Lines theLines = ReadJournalLines(theJournal.GetPath());
    const auto has = [&](const char* theText) {
        return std::any_of(theLines.begin(), theLines.end(), [&](const std::string& theLine) {
            return theLine.find(theText) != std::string::npos;
        });
    };
    EXPECT_TRUE(has(R"("event":"kEventControlValueFieldChanged")"));
    EXPECT_TRUE(has(R"("file":"Source/A/RatherLongName.cpp","line":7,"message":"a message of mor")"));
    EXPECT_TRUE(has(R"(inspectionTests","base":)")) << "the path of the module";
}

TEST(LmJournalRecorder, WritesOfEventsThatHaveNoName)
{
    TestJournal theJournal;
    const LmKeyValueStore theStore;
    LmJournalEntry theEntry = {kJournalEvent};
    theEntry.theObject = &theStore;
    theEntry.theCode = 'none';
    theEntry.theDetail = 99;
    LmWriteJournalEntry(theEntry, nullptr);
    const Lines theLines = theJournal.Take("event");
    ASSERT_EQ(theLines.size(), 1U);
    EXPECT_NE(theLines[0].find(R"("event":null,"class":"none","kind":99)"), std::string::npos) << theLines[0];
}

TEST(LmJournalRecorder, TakesTheOldestSetsForThoseThatNeverEnd)
{
    TestJournal theJournal;
    LmKeyValueStore theStore;
    theStore.SetKeyValue("volume", LmValue(40));
    const LmString theKey = "volume";
    const LmValue theValue(41);
    LmJournalEntry theEntry = {kJournalChanging};
    theEntry.theObject = &theStore;
    theEntry.theKey = &theKey;
    theEntry.theValue = &theValue;
    const std::vector<char> theSets(4097);
    for (const char& theSet : theSets) {
        theEntry.theChange = &theSet;
        LmWriteJournalEntry(theEntry, nullptr);
    }
    theEntry.theKind = kJournalChanged;
    theEntry.theChange = &theSets.back();
    LmWriteJournalEntry(theEntry, nullptr);
    theEntry.theChange = &theSets.front();
    LmWriteJournalEntry(theEntry, nullptr);
    const Lines theLines = theJournal.Take("changed");
    ASSERT_EQ(theLines.size(), 2U);
    EXPECT_NE(theLines[0].find(R"("was":)"), std::string::npos) << theLines[0];
    EXPECT_EQ(theLines[1].find(R"("was":)"), std::string::npos) << theLines[1];
}

TEST(LmJournalRecorder, CutsALongNameWhereACharacterEnds)
{
    TestJournal theJournal;
    const LmKeyValueStore theStore;
    // The two bytes of the letter are the last of the limit and the one behind it.
    LmNameObject(theStore, (std::string(199, 'x') + "\xC3\xA9yyy").c_str());
    const Lines theLines = theJournal.Take("named");
    ASSERT_EQ(theLines.size(), 1U);
    EXPECT_NE(theLines[0].find("\"" + std::string(199, 'x') + "\""), std::string::npos) << theLines[0];
}
