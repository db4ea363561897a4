// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "BindingTestSupport.h"
#include "LmExampleBinding.h"
#include "NotificationRecorder.h"

#include <gtest/gtest.h>

namespace {

const char kAssertNoModel[] = "Source/Bindings/LmExampleBinding.cpp, line #: mModel != NULL";

void ObserveAll(LmExampleBinding& theBinding, NotificationRecorder& theRecorder)
{
    for (const char* theKey : {"one", "two", "three"}) {
        theBinding.ObserveKeyPathValue(theKey, &theRecorder);
    }
}

void ExpectModelState(const LmExampleBinding& theBinding)
{
    EXPECT_EQ(theBinding.GetKeyPathValue("one").GetType(), kTypeBoolean);
    EXPECT_TRUE(theBinding.GetKeyPathValue("one").GetBoolean());
    EXPECT_EQ(theBinding.GetKeyPathValue("two").GetType(), kTypeUInt32);
    EXPECT_EQ(theBinding.GetKeyPathValue("two").GetUInt32(), 0UL);
    EXPECT_EQ(theBinding.GetKeyPathValue("three").GetType(), kTypeString);
    EXPECT_EQ(theBinding.GetKeyPathValue("three").GetString(), nullptr);
}

TEST(LmExampleBinding, AttachingAModelReadsTheThreeKeysInOrder)
{
    int theModel = 0;
    LmExampleBinding theBinding;
    NotificationRecorder theRecorder;
    ObserveAll(theBinding, theRecorder);
    theBinding.SetModel(&theModel);
    EXPECT_EQ(theBinding.GetModel(), &theModel);
    EXPECT_EQ(theRecorder.Take(), (Lines{"changing one", "changed one", "changing two", "changed two",
                                         "changing three", "changed three"}));
    ExpectModelState(theBinding);
}

TEST(LmExampleBinding, AttachingAgainTellsOnlyOfTheNullStringWhichNeverEqualsItselfOnPurpose)
{
    int theModel = 0;
    LmExampleBinding theBinding;
    theBinding.SetModel(&theModel);
    NotificationRecorder theRecorder;
    ObserveAll(theBinding, theRecorder);
    theBinding.SetModel(&theModel);
    EXPECT_EQ(theRecorder.Take(), (Lines{"changing three", "changed three"}));
}

TEST(LmExampleBinding, DetachingKeepsTheKeys)
{
    int theModel = 0;
    LmExampleBinding theBinding;
    theBinding.SetModel(&theModel);
    NotificationRecorder theRecorder;
    ObserveAll(theBinding, theRecorder);
    theBinding.SetModel(nullptr);
    EXPECT_EQ(theBinding.GetModel(), nullptr);
    EXPECT_EQ(theRecorder.Take(), Lines{});
    ExpectModelState(theBinding);
}

TEST(LmExampleBinding, TheModelsNotificationReadsItsOwnKeyOnly)
{
    int theModel = 0;
    LmExampleBinding theBinding;
    theBinding.SetModel(&theModel);
    for (const char* theKey : {"one", "two", "three"}) {
        theBinding.SetKeyPathValue(theKey, LmValue(5L));
    }
    NotificationRecorder theRecorder;
    ObserveAll(theBinding, theRecorder);
    theBinding.DoEventFromModel(1);
    EXPECT_EQ(theRecorder.Take(), (Lines{"changing one", "changed one"}));
    theBinding.DoEventFromModel(2);
    EXPECT_EQ(theRecorder.Take(), (Lines{"changing two", "changed two"}));
    theBinding.DoEventFromModel(3);
    EXPECT_EQ(theRecorder.Take(), (Lines{"changing three", "changed three"}));
    for (const UInt32 theEvent : {0U, 4U, 7U, 4294967295U}) {
        theBinding.DoEventFromModel(theEvent);
        EXPECT_EQ(theRecorder.Take(), Lines{}) << theEvent;
    }
    ExpectModelState(theBinding);
}

TEST(LmExampleBinding, KeysAreStoredWithAndWithoutAModel)
{
    int theModel = 0;
    for (void* theAttached : {static_cast<void*>(nullptr), static_cast<void*>(&theModel)}) {
        LmExampleBinding theBinding;
        theBinding.SetModel(theAttached);
        for (const char* theKey : {"one", "two", "three", "four"}) {
            theBinding.SetKeyPathValue(theKey, LmValue(7L));
            EXPECT_EQ(theBinding.GetKeyPathValue(theKey).GetSInt32(), 7L) << theKey;
        }
    }
}

TEST(LmExampleBinding, SyncingWithoutAModelPrintsTheAssertionAndGoesOn)
{
    LmExampleBinding theBinding;
    theBinding.SyncValue("two");
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{kAssertNoModel});
    EXPECT_EQ(theBinding.GetKeyPathValue("two").GetUInt32(), 0UL);
    EXPECT_TRUE(theBinding.HasKey("two"));
}

TEST(LmExampleBinding, SyncingAnotherKeyChangesNothing)
{
    int theModel = 0;
    LmExampleBinding theBinding;
    theBinding.SetModel(&theModel);
    theBinding.SyncValue("four");
    EXPECT_FALSE(theBinding.HasKey("four"));
}

TEST(LmExampleBinding, TheDebugTextShowsTheModelsAddress)
{
    LmExampleBinding theBinding;
    EXPECT_STREQ(theBinding.GetDebugInfo().GetUTF8(), "[Model 0x0]");
    theBinding.SetModel(reinterpret_cast<void*>(0xABC0));
    EXPECT_STREQ(theBinding.GetDebugInfo().GetUTF8(), "[Model 0xABC0]");
}

TEST(LmExampleBinding, AModelKeyCanDriveAndBeDriven)
{
    int theModel = 0;
    LmExampleBinding theBinding;
    theBinding.SetModel(&theModel);
    LmKeyValueBinding theOther;
    EXPECT_EQ(theOther.Bind("number", &theBinding, "two", nullptr, nullptr), noErr);
    theOther.SetKeyPathValue("number", LmValue(9UL));
    EXPECT_EQ(theBinding.GetKeyPathValue("two").GetUInt32(), 9UL);
    theBinding.DoEventFromModel(2);
    EXPECT_EQ(theOther.GetKeyPathValue("number").GetUInt32(), 0UL);
}

using MortalBinding = Mortal<LmExampleBinding>;

TEST(LmExampleBinding, AnObserverMayDeleteTheBindingWhileItAttaches)
{
    int theModel = 0;
    bool isGone = false;
    auto* const theBinding = new MortalBinding(isGone);
    NotificationRecorder theRecorder;
    ObserveAll(*theBinding, theRecorder);
    BindingDeleter theDeleter(theBinding);
    theBinding->ObserveKeyPathValue("two", &theDeleter);
    theBinding->SetModel(&theModel);
    EXPECT_TRUE(isGone);
    EXPECT_EQ(theDeleter.GetCount(), 1);
    EXPECT_EQ(theRecorder.Take(), (Lines{"changing one", "changed one", "changing two", "changed two"}))
        << "the third key is not copied any more";
}

TEST(LmExampleBinding, AnObserverMayDeleteTheBindingDuringTheModelsNotification)
{
    int theModel = 0;
    bool isGone = false;
    auto* const theBinding = new MortalBinding(isGone);
    theBinding->SetModel(&theModel);
    theBinding->SetKeyPathValue("two", LmValue(5UL));
    BindingDeleter theDeleter(theBinding);
    theBinding->ObserveKeyPathValue("two", &theDeleter);
    theBinding->DoEventFromModel(2);
    EXPECT_TRUE(isGone);
    EXPECT_EQ(theDeleter.GetCount(), 1);
}

} // namespace
