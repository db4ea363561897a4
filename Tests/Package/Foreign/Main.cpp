// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Touches each library once: two bound objects of the library's own, the event queue of Carbon, and, through
// plain C, a string of CoreFoundation. Then uses a binding of the project's own.

#include <Carbon/Carbon.h>
#include <cstdio>
#include <LmBindings.h>

extern "C" long LengthOfGreeting();
void UseCopiedBinding();

int main()
{
    LmKeyValueBinding theModel;
    LmKeyValueBinding theView;
    theModel.SetKeyPathValue("volume", LmValue(7L));
    if (theView.Bind("level", &theModel, "volume", nullptr, nullptr) != noErr) {
        return 1;
    }
    theView.SetKeyPathValue("level", LmValue(11L));
    std::printf("volume %ld\n", theModel.GetKeyPathValue("volume").GetSInt32());
    std::printf("queue %s\n", GetMainEventQueue() != nullptr ? "there" : "missing");
    std::printf("greeting %ld\n", LengthOfGreeting());
    UseCopiedBinding();
    return 0;
}
