// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// How rules of layout are given, taken and switched off; what they do is tested with the layout itself.

#include "ViewTestSupport.h"

#include <cstring>

namespace {

class ViewLayout : public ViewTest
{
protected:
    HIViewRef mView = NewBox(Root(), MakeRect(0, 0, 100, 100));
};

} // namespace

static_assert(sizeof(void*) != 4 || (sizeof(HILayoutInfo) == 84 && sizeof(HIBinding) == 40 &&
                                     sizeof(HIScaling) == 20 && sizeof(HIPositioning) == 20),
              "The platform's sizes");

TEST_F(ViewLayout, RulesAreCopiedAndToldOf)
{
    Watch(mView, "view", {{kEventClassControl, kEventControlLayoutInfoChanged}});
    HILayoutInfo theRules = {};
    theRules.binding.right.kind = kHILayoutBindRight;
    theRules.scale.x.ratio = CGFloat(0.5);
    theRules.position.y.kind = kHILayoutPositionBottom;
    EXPECT_EQ(HIViewSetLayoutInfo(mView, &theRules), noErr);
    EXPECT_EQ(TakeLog().size(), 1U);
    theRules.binding.right.kind = kHILayoutBindNone;
    HILayoutInfo theFound = {};
    EXPECT_EQ(HIViewGetLayoutInfo(mView, &theFound), noErr);
    const HIBindingKind theRight = theFound.binding.right.kind;
    const CGFloat theRatio = theFound.scale.x.ratio;
    const HIPositionKind thePlace = theFound.position.y.kind;
    EXPECT_EQ(theRight, kHILayoutBindRight);
    EXPECT_EQ(theRatio, CGFloat(0.5));
    EXPECT_EQ(thePlace, kHILayoutPositionBottom);
}

TEST_F(ViewLayout, AViewWithoutRulesHasThoseThatDoNothing)
{
    HILayoutInfo theFound;
    std::memset(&theFound, 1, sizeof(theFound));
    theFound.version = kHILayoutInfoVersionZero;
    EXPECT_EQ(HIViewGetLayoutInfo(mView, &theFound), noErr);
    for (const HISideBinding& theSide :
         {theFound.binding.top, theFound.binding.left, theFound.binding.bottom, theFound.binding.right}) {
        const HIBindingKind theKind = theSide.kind;
        EXPECT_EQ(theKind, kHILayoutBindNone);
    }
    for (const HIAxisScale& theScale : {theFound.scale.x, theFound.scale.y}) {
        const CGFloat theRatio = theScale.ratio;
        EXPECT_EQ(theRatio, CGFloat{0});
    }
    for (const HIAxisPosition& thePosition : {theFound.position.x, theFound.position.y}) {
        const HIPositionKind theKind = thePosition.kind;
        EXPECT_EQ(theKind, kHILayoutPositionNone);
    }
}

TEST_F(ViewLayout, RulesOfOtherKindsAndVersionsAreRefused)
{
    std::vector<HILayoutInfo> theBadOnes(10);
    theBadOnes[0].version = 1;
    theBadOnes[1].binding.top.kind = 3;
    theBadOnes[2].binding.left.kind = 3;
    theBadOnes[3].binding.bottom.kind = 3;
    theBadOnes[4].binding.right.kind = 3;
    theBadOnes[5].scale.x.kind = 1;
    theBadOnes[6].scale.y.kind = 1;
    theBadOnes[7].position.x.kind = 4;
    theBadOnes[8].position.y.kind = 4;
    theBadOnes[9].position.y.kind = 0xFFFF;
    for (size_t theIndex = 0; theIndex < theBadOnes.size(); ++theIndex) {
        EXPECT_EQ(HIViewSetLayoutInfo(mView, &theBadOnes[theIndex]), paramErr) << theIndex;
    }
    HILayoutInfo theRules = {};
    EXPECT_EQ(HIViewSetLayoutInfo(mView, nullptr), paramErr);
    EXPECT_EQ(HIViewSetLayoutInfo(nullptr, &theRules), errUnknownControl);
    EXPECT_EQ(HIViewGetLayoutInfo(mView, nullptr), paramErr);
    EXPECT_EQ(HIViewGetLayoutInfo(nullptr, &theRules), errUnknownControl);
    theRules.version = 1;
    EXPECT_EQ(HIViewGetLayoutInfo(mView, &theRules), paramErr);
}

TEST_F(ViewLayout, ASuspendedLayoutRestsInAllThatIsInside)
{
    const HIViewRef theInner = NewBox(mView, MakeRect(0, 0, 10, 10));
    EXPECT_TRUE(HIViewIsLayoutActive(theInner));
    EXPECT_EQ(HIViewSuspendLayout(mView), noErr);
    EXPECT_FALSE(HIViewIsLayoutActive(mView));
    EXPECT_FALSE(HIViewIsLayoutActive(theInner));
    EXPECT_EQ(HIViewResumeLayout(mView), noErr);
    EXPECT_TRUE(HIViewIsLayoutActive(theInner));
    EXPECT_EQ(HIViewSuspendLayout(nullptr), errUnknownControl);
    EXPECT_EQ(HIViewResumeLayout(nullptr), errUnknownControl);
    EXPECT_FALSE(HIViewIsLayoutActive(nullptr));
}

TEST_F(ViewLayout, PlacesAndSizesAreAppliedWhenTheProgramAsks)
{
    HILayoutInfo theRules = {};
    theRules.position.x.kind = kHILayoutPositionRight;
    theRules.position.x.offset = -10;
    theRules.position.y.kind = kHILayoutPositionCenter;
    ASSERT_EQ(HIViewSetLayoutInfo(mView, &theRules), noErr);
    EXPECT_EQ(Frame(mView), "0, 0, 100 x 100");
    EXPECT_EQ(HIViewSuspendLayout(mView), noErr);
    EXPECT_EQ(HIViewApplyLayout(mView), noErr);
    EXPECT_EQ(Frame(mView), "0, 0, 100 x 100");
    EXPECT_EQ(HIViewResumeLayout(mView), noErr);
    EXPECT_EQ(HIViewApplyLayout(mView), noErr);
    EXPECT_EQ(Frame(mView), "290, 100, 100 x 100");
    EXPECT_EQ(HIViewApplyLayout(nullptr), errUnknownControl);
}
