// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Shows a window until the person quits. Nothing in it knows of a desktop.

#include <Carbon/Carbon.h>
#include <cstdio>

int main()
{
    const Rect theBounds = {80, 100, 180, 300};
    WindowRef theWindow = nullptr;
    if (CreateNewWindow(kDocumentWindowClass, kWindowStandardDocumentAttributes, &theBounds, &theWindow) !=
        noErr) {
        return 1;
    }
    ShowWindow(theWindow);
    RunApplicationEventLoop();
    DisposeWindow(theWindow);
    std::puts("quit");
    return 0;
}
