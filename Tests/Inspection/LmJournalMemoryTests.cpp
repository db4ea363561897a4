// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmJournalMemory.h"
#include "LmKeyValueBinding.h"
#include "StandardErrorCapture.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <utility>

namespace {

// What it is told: kinds by their numbers, names and keys.
class Listener : public LmJournalHook
{
public:
    std::uint64_t Write(const LmJournalEntry& theEntry, const void* /*theScope*/) noexcept override
    {
        if (theEntry.theKind == kJournalNamed) {
            mHeard.push_back(std::string("named ") + theEntry.theText);
        } else if (theEntry.theKind == kJournalBind) {
            mHeard.push_back(std::string(theEntry.theKey->GetUTF8()) + " follows " +
                             theEntry.theOtherKey->GetUTF8());
        }
        return 7;
    }
    Lines Take() { return std::exchange(mHeard, {}); }

private:
    Lines mHeard;
};

// The memory is the hook while this lives.
class Remembering
{
public:
    Remembering() { LmSetJournalHook(&mMemory); }
    ~Remembering() { LmSetJournalHook(nullptr); }
    Remembering(const Remembering&) = delete;
    Remembering& operator=(const Remembering&) = delete;

    // What a journal is told that begins now.
    Lines Begin()
    {
        mMemory.SetNext(&mListener);
        return mListener.Take();
    }
    Lines Take() { return mListener.Take(); }
    void End() { mMemory.SetNext(nullptr); }

private:
    LmJournalMemory mMemory;
    Listener mListener;
};

} // namespace

TEST(LmJournalMemory, TellsAJournalThatBeginsOfNamesAndBindings)
{
    Remembering theMemory;
    LmKeyValueBinding theModel;
    LmKeyValueBinding theSlider;
    LmNameObject(theModel, "first");
    LmNameObject(theModel, "model");
    theSlider.Bind("value", &theModel, "level", nullptr, nullptr);
    Lines theLines = theMemory.Begin();
    std::sort(theLines.begin(), theLines.end());
    EXPECT_EQ(theLines, (Lines{"level follows value", "named model", "value follows level"}));
}

TEST(LmJournalMemory, HandsOnWhatItIsTold)
{
    Remembering theMemory;
    theMemory.Begin();
    const LmKeyValueBinding theModel;
    LmNameObject(theModel, "model");
    EXPECT_EQ(theMemory.Take(), Lines{"named model"});
    theMemory.End();
    LmNameObject(theModel, "later");
    EXPECT_EQ(theMemory.Take(), Lines{});
    EXPECT_EQ(theMemory.Begin(), Lines{"named later"}) << "it listened all the time";
}

TEST(LmJournalMemory, ForgetsWhatIsGone)
{
    Remembering theMemory;
    // It keeps an address of what is gone, so it must not be destroyed.
    static auto* const sFollower = new LmKeyValueBinding;
    auto theGone = std::make_unique<LmKeyValueBinding>();
    LmNameObject(*theGone, "gone");
    theGone->SetKeyPathValue("level", LmValue(1));
    sFollower->BindTo("value", theGone.get(), "level", nullptr);
    LmKeyValueBinding theModel;
    LmKeyValueBinding theSlider;
    theSlider.Bind("value", &theModel, "level", nullptr, nullptr);
    theSlider.UnbindAll();
    theGone.reset();
    EXPECT_EQ(theMemory.Begin(), Lines{});
}
