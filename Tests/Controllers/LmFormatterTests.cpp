// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmFormatter.h"

#include "ControllersTestSupport.h"

#include <gtest/gtest.h>
#include <memory>
#include <type_traits>

static_assert(std::has_virtual_destructor<LmFormatter>::value, "it is deleted by its base");
static_assert(!std::is_copy_constructible<LmFormatter>::value, "fields share one");

namespace {

// Accepts nothing, and tells when it goes.
class SternFormatter : public LmFormatter
{
public:
    explicit SternFormatter(bool& isThere)
        : mIsThere(isThere)
    {
        mIsThere = true;
    }
    ~SternFormatter() override { mIsThere = false; }

    LmReading Parse(CFStringRef) const override { return LmReading::Refuse("No."); }
    LmValue Format(const LmValue&) const override { return LmValue(); }

private:
    bool& mIsThere;
};

} // namespace

TEST(LmReading, AcceptsAValue)
{
    const LmReading theReading = LmReading::Accept(LmValue(42));
    EXPECT_TRUE(theReading.IsAccepted());
    EXPECT_EQ(Describe(theReading.theValue), "SInt32 42");
    EXPECT_EQ(Describe(theReading.theProblem), "-");
}

TEST(LmReading, RefusesAValueThatIsNotValid)
{
    const LmReading theReading = LmReading::Accept(LmValue());
    EXPECT_FALSE(theReading.IsAccepted());
    EXPECT_EQ(Describe(theReading.theProblem), "-");
}

TEST(LmReading, RefusesWithASentence)
{
    const LmReading theReading = LmReading::Refuse("Höchstens 99.");
    EXPECT_FALSE(theReading.IsAccepted());
    EXPECT_EQ(Describe(theReading.theProblem), "String \"Höchstens 99.\"");
}

TEST(LmReading, RefusesWithoutAWordWhereThereIsNone)
{
    for (const char* theProblem : {static_cast<const char*>(nullptr), "\xC3"}) {
        const LmReading theReading = LmReading::Refuse(theProblem);
        EXPECT_FALSE(theReading.IsAccepted());
        EXPECT_EQ(Describe(theReading.theProblem), "-");
    }
    EXPECT_EQ(Describe(LmReading::Refuse(nullptr, true).theProblem), "-");
}

TEST(LmReading, KeepsAReferenceToTheSentence)
{
    CFMutableStringRef theProblem = CFStringCreateMutable(nullptr, 0);
    CFStringAppend(theProblem, CFSTR("Too long."));
    {
        const LmReading theReading = LmReading::Refuse(theProblem, false);
        EXPECT_EQ(CFGetRetainCount(theProblem), 2);
        EXPECT_EQ(Describe(theReading.theProblem), "String \"Too long.\"");
    }
    EXPECT_EQ(CFGetRetainCount(theProblem), 1);
    CFRetain(theProblem);
    {
        const LmReading theReading = LmReading::Refuse(theProblem, true);
        EXPECT_EQ(CFGetRetainCount(theProblem), 2);
    }
    EXPECT_EQ(CFGetRetainCount(theProblem), 1);
    CFRelease(theProblem);
}

TEST(LmFormatter, GoesWithItsLastReference)
{
    bool isThere = false;
    LmSharedFormatter theFormatter = std::make_shared<SternFormatter>(isThere);
    {
        const LmSharedFormatter theOther = theFormatter;
        theFormatter.reset();
        EXPECT_TRUE(isThere);
        EXPECT_FALSE(theOther->Parse(CFSTR("1")).IsAccepted());
    }
    EXPECT_FALSE(isThere);
}
