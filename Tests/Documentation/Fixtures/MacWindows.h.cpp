// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <Carbon/Carbon.h>
#include <gtest/gtest.h>
#include <vector>

namespace {

OSStatus Note(EventHandlerCallRef, EventRef theEvent, void* theUserData)
{
    static_cast<std::vector<UInt32>*>(theUserData)->push_back(GetEventKind(theEvent));
    return eventNotHandledErr;
}

} // namespace

TEST(MacWindows, OpenAsTheirHeaderShows)
{
    const EventTypeSpec kKinds[] = {{kEventClassWindow, kEventWindowShowing},
                                    {kEventClassWindow, kEventWindowShown},
                                    {kEventClassWindow, kEventWindowActivated}};
    std::vector<UInt32> theKinds;
    EventHandlerRef theHandler = nullptr;
    InstallEventHandler(GetApplicationEventTarget(), Note, 3, kKinds, &theKinds, &theHandler);
    // @code 1
    const std::vector<UInt32> theExpected = {kEventWindowShowing, kEventWindowShown, kEventWindowActivated};
    EXPECT_EQ(theKinds, theExpected);
    RemoveEventHandler(theHandler);
    DisposeWindow(theWindow);
}
