// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The assertions as a production build has them: remarks are gone, requirements stay.

#undef DEBUG
#include <CoreServices/CoreServices.h>
#include <gtest/gtest.h>

static_assert(DEBUG_ASSERT_PRODUCTION_CODE);

TEST(ProductionAssertion, ChecksAreNotEvaluated)
{
    int theEvaluations = 0;
    check(++theEvaluations < 0);
    check_noerr(++theEvaluations);
    check_string(++theEvaluations < 0, "text");
    check_noerr_string(++theEvaluations, "text");
    ncheck(++theEvaluations);
    debug_string("text");
    EXPECT_EQ(theEvaluations, 0);
}

TEST(ProductionAssertion, VerificationsAreEvaluatedAndSayNothing)
{
    int theEvaluations = 0;
    int theActions = 0;
    verify(++theEvaluations < 0);
    verify_noerr(++theEvaluations);
    verify_string(++theEvaluations < 0, "text");
    nverify(++theEvaluations);
    verify_action(++theEvaluations < 0, ++theActions);
    EXPECT_EQ(theEvaluations, 5);
    EXPECT_EQ(theActions, 1);
}

TEST(ProductionAssertion, RequirementsLeadOutAndSayNothing)
{
    int theEvaluations = 0;
    require(++theEvaluations < 0, One);
    ADD_FAILURE();
One:
    require_noerr_action(++theEvaluations, Two, ++theEvaluations);
    ADD_FAILURE();
Two:
    EXPECT_EQ(theEvaluations, 3);
}
