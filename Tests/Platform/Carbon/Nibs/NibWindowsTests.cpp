// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Windows from nibs.

#include "NibTestSupport.h"

namespace {

class NibWindows : public NibTest
{
protected:
    WindowAttributes Attributes(const std::string& theAttributes)
    {
        EXPECT_EQ(MakeWindow(WindowWith(theAttributes)), noErr) << theAttributes;
        WindowAttributes theResult = 0;
        EXPECT_EQ(GetWindowAttributes(mMade, &theResult), noErr);
        return theResult;
    }
};

const WindowAttributes kUsual = kWindowStandardDocumentAttributes | kWindowStandardHandlerAttribute;

std::string Flag(const char* theName, const char* theValue)
{
    return "<boolean name=\"" + std::string(theName) + "\">" + theValue + "</boolean>";
}

} // namespace

TEST_F(NibWindows, AreHiddenDocumentWindowsWithTitleAndPlace)
{
    ASSERT_EQ(MakeWindow(WindowWith("<string name=\"title\">Volume</string>")), noErr);
    EXPECT_FALSE(IsWindowVisible(mMade));
    EXPECT_EQ(GetWindowRetainCount(mMade), 1u);
    CFStringRef theTitle = nullptr;
    ASSERT_EQ(CopyWindowTitleAsCFString(mMade, &theTitle), noErr);
    EXPECT_EQ(TextOf(theTitle), "Volume");
    CFRelease(theTitle);
    WindowClass theClass = 0;
    GetWindowClass(mMade, &theClass);
    EXPECT_EQ(theClass, WindowClass{kDocumentWindowClass});
    Rect theBounds;
    ASSERT_EQ(GetWindowBounds(mMade, kWindowContentRgn, &theBounds), noErr);
    EXPECT_EQ(Describe(theBounds), Describe(MakeRect(120, 100, 520, 300)));
}

TEST_F(NibWindows, HaveTheAttributesThatAreWritten)
{
    EXPECT_EQ(Attributes(""), kUsual);
    const std::pair<std::string, WindowAttributes> kRows[] = {
        {Flag("isResizable", "FALSE"), kUsual & ~kWindowResizableAttribute},
        {Flag("hasCloseBox", "FALSE"), kUsual & ~kWindowCloseBoxAttribute},
        {Flag("hasCollapseBox", "FALSE"), kUsual & ~kWindowCollapseBoxAttribute},
        {Flag("hasHorizontalZoom", "FALSE"), kUsual & ~kWindowHorizontalZoomAttribute},
        {Flag("hasVerticalZoom", "FALSE"), kUsual & ~kWindowVerticalZoomAttribute},
        {Flag("liveResize", "TRUE"), kUsual | kWindowLiveResizeAttribute},
        {Flag("compositing", "TRUE"), kUsual | kWindowCompositingAttribute},
        {Flag("receiveUpdates", "FALSE"), kUsual | kWindowNoUpdatesAttribute},
        {Flag("isConstrained", "FALSE"), kUsual | kWindowNoConstrainAttribute},
        {Flag("hideOnSuspend", "TRUE"), kUsual | kWindowHideOnSuspendAttribute},
        {Flag("hideOnFullScreen", "TRUE"), kUsual | kWindowHideOnFullScreenAttribute},
        {Flag("asyncDrag", "TRUE"), kUsual | kWindowAsyncDragAttribute},
        {Flag("metal", "TRUE"), kUsual | kWindowMetalAttribute},
    };
    for (const auto& theRow : kRows) {
        EXPECT_EQ(Attributes(theRow.first), theRow.second) << theRow.first;
    }
}

TEST_F(NibWindows, HaveNoAttributeThatTheirClassCannotHave)
{
    for (const char* theClass : {"1", "2", "3", "4", "5", "6", "8", "11", "13", "20"}) {
        EXPECT_EQ(
            MakeWindow(WindowWith("<int name=\"carbonWindowClass\">" + std::string(theClass) + "</int>")),
            noErr)
            << theClass;
    }
}

TEST_F(NibWindows, AreOfNoClassThatThereIsNot)
{
    EXPECT_EQ(MakeWindow(WindowWith("<int name=\"carbonWindowClass\">77</int>")), errUnrecognizedWindowClass);
    EXPECT_EQ(mMade, nullptr);
}

TEST_F(NibWindows, NeedAPlaceWithSomethingInIt)
{
    for (const char* theRect : {"", "1 2 3", "5 5 5 5", "10 10 0 0", "words"}) {
        EXPECT_EQ(
            MakeWindow(NibWith("<object class=\"IBCarbonWindow\" id=\"1\"><string name=\"windowRect\">" +
                               std::string(theRect) + "</string></object>")),
            paramErr)
            << theRect;
        EXPECT_EQ(mMade, nullptr);
    }
    ASSERT_EQ(MakeWindow(NibWith("<object class=\"IBCarbonWindow\" id=\"1\"><string name=\"windowRect\">"
                                 "-99999999999999999999 0 99999999999999999999 200</string></object>")),
              noErr);
}

TEST_F(NibWindows, ArePutWhereTheyAreToStand)
{
    ASSERT_EQ(MakeWindow(WindowWith("")), noErr);
    RepositionWindow(mMade, nullptr, kWindowCenterOnMainScreen);
    Rect theExpected;
    GetWindowBounds(mMade, kWindowContentRgn, &theExpected);
    ASSERT_EQ(MakeWindow(WindowWith("<int name=\"windowPosition\">1</int>")), noErr);
    Rect theBounds;
    GetWindowBounds(mMade, kWindowContentRgn, &theBounds);
    EXPECT_EQ(Describe(theBounds), Describe(theExpected));
    EXPECT_EQ(MakeWindow(WindowWith("<int name=\"windowPosition\">99</int>")), noErr);
}
