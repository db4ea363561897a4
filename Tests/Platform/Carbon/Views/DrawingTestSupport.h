// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Views_DrawingTestSupport_h
#define Views_DrawingTestSupport_h

#include "Views/ViewTestSupport.h"

#include "HeadlessPresenter.h"
#include "Windows/Controls.h"

#include <ApplicationServices/ApplicationServices.h>

// User panes that are drawn: each draw event is noted as "name: left, top, right, bottom" of what must be
// drawn.
class DrawingTest : public ViewTest
{
protected:
    using Drawing = std::function<void(CGContextRef)>;

    DrawingTest()
    {
        RunLoop();
        TakeLog();
    }

    static EventTypeSpec DrawEvent() { return {kEventClassControl, kEventControlDraw}; }

    // Lets the event loop turn until there is nothing to do.
    static void RunLoop() { RunCurrentEventLoop(0); }

    ControlRef NewPane(const Rect& theBounds)
    {
        ControlRef thePane = nullptr;
        EXPECT_EQ(CreateUserPaneControl(mWindow, &theBounds, kControlSupportsEmbedding, &thePane), noErr);
        return thePane;
    }

    void DrawWith(ControlRef theView, const std::string& theName, const Drawing& theDrawing = nullptr)
    {
        mDraws.push_back(std::make_unique<EventWatch>(
            GetControlEventTarget(theView), theName, mUnnoted, std::vector<EventTypeSpec>{DrawEvent()},
            [this, theName, theDrawing](EventRef theEvent) {
                Note(theName, theEvent);
                CGContextRef theContext = nullptr;
                EXPECT_EQ(GetEventParameter(theEvent, kEventParamCGContextRef, typeCGContextRef, nullptr,
                                            sizeof theContext, nullptr, &theContext),
                          noErr);
                if (theDrawing) {
                    theDrawing(theContext);
                }
                return OSStatus{noErr};
            }));
    }

    // A pane that is drawn all in one colour.
    ControlRef NewFilledPane(const Rect& theBounds, const std::string& theName)
    {
        const ControlRef thePane = NewPane(theBounds);
        DrawWith(thePane, theName, [](CGContextRef theContext) {
            CGContextSetRGBFillColor(theContext, 1, 0, 0, 1);
            CGContextFillRect(theContext, CGRectMake(0, 0, 1000, 1000));
        });
        return thePane;
    }

    Log Draws()
    {
        RunLoop();
        return TakeLog();
    }

    static std::shared_ptr<const Host::Picture> PictureOf(ControlRef theView)
    {
        Host::HeadlessSnapshot theScreen;
        Host::PresenterRegistry::ReplayLooks(theScreen);
        const Host::ControlLook* const theLook = theScreen.FindControl(Host::IdentifierOf(theView));
        return theLook == nullptr ? nullptr : theLook->Rare().theDrawing;
    }

    static std::uint32_t PixelAt(const Host::Picture& thePicture, int theX, int theY)
    {
        return thePicture.thePixels.at(static_cast<size_t>(theY) * static_cast<size_t>(thePicture.theWidth) +
                                       static_cast<size_t>(theX));
    }

private:
    void Note(const std::string& theName, EventRef theEvent)
    {
        RgnHandle theRegion = nullptr;
        Rect theBounds = {};
        GetEventParameter(theEvent, kEventParamRgnHandle, typeQDRgnHandle, nullptr, sizeof theRegion, nullptr,
                          &theRegion);
        GetRegionBounds(theRegion, &theBounds);
        mLog.push_back(theName + ": " + Describe(theBounds));
    }

    Log mUnnoted;
    std::vector<std::unique_ptr<EventWatch>> mDraws;
};

#endif
