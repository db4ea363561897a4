// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Events_PersonActions_h
#define Events_PersonActions_h

#include "Base/OnStack.h"
#include "OutgoingEvent.h"

#include <Carbon/Carbon.h>
#include <optional>
#include <Presentation/PresenterTypes.h>

// The target that is told of what a person does by other ways than the mouse and the keyboard: of a choice
// from a menu, of a window that is moved by its frame or asked to close. A program never meets these events,
// and sends none to it; it is there for whoever wants to know what a person began. A handler hears of an
// action before anything follows from it, and everything has followed when CallNextEventHandler returns.
//
// Looked up by its name, since the platform has nothing of the kind: there such an action begins with an
// event of the mouse, which is sent through the dispatcher. Handlers may look, and change nothing.
extern "C" HOST_PUBLIC EventTargetRef HostGetPersonActionTarget();

namespace Host {

// One such action:
//
//     PersonAction theAction(kEventClassWindow, kEventWindowClose);
//     theAction.Set(kEventParamDirectObject, typeWindowRef, theWindow->Reference());
//     theAction.Do([&] { theWindow->Ask(kEventWindowClose); });
//
// It is named by the event that says best what the person wants. Unless somebody listens no event is made.
class [[nodiscard]] PersonAction : public OnStack<PersonAction>
{
public:
    PersonAction(OSType theClass, UInt32 theKind);
    PersonAction(const PersonAction&) = delete;
    PersonAction& operator=(const PersonAction&) = delete;

    template <class Type>
    void Set(EventParamName theName, EventParamType theType, const Type& theValue)
    {
        if (mEvent) {
            mEvent->Set(theName, theType, theValue);
        }
    }

    // Does theWork, a function without parameters: once, whatever the handlers do and whether there is memory
    // or not.
    template <class Work>
    void Do(const Work& theWork)
    {
        mContext = &theWork;
        mWork = [](const void* theContext) { (*static_cast<const Work*>(theContext))(); };
        Run();
    }

    // What is still to be done of the action that an event of the target tells of; what the target does by
    // itself.
    static void DoWorkOf(EventRef theEvent);

private:
    void Run();
    void DoWork();

    std::optional<OutgoingEvent> mEvent; // while somebody listens
    const void* mContext = nullptr;
    void (*mWork)(const void* theContext) = nullptr; // null when it is done
};

} // namespace Host

#endif
