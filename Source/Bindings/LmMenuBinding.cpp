// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmMenuBinding.h"

#include "LmAdoptedString.h"
#include "LmCodeText.h"
#include "LmDiagnostics.h"
#include "LmEventNote.h"
#include "LmIsText.h"
#include "LmNameComparison.h"
#include "LmUpdateScope.h"

#include <cstdio>

namespace {

const char kKeyMark[] = "mark";
const char kKeyEnabled[] = "enabled";
const char kKeyTitle[] = "title";

const EventTypeSpec kMenuEvents[] = {
    {kEventClassMenu, kEventMenuDispose},
    {kEventClassCommand, kEventCommandUpdateStatus},
};

const UInt32 kOtherMark = 2;

UniChar MarkCharacter(UInt32 theMark)
{
    switch (theMark) {
    case 0:
        return noMark;
    case 1:
        return kCheckCharCode;
    default:
        return kDiamondCharCode;
    }
}

// A command's first item. More items of the menu may carry the command.
struct CommandItem
{
    MenuRef theMenu;
    MenuItemIndex theIndex;
    MenuCommand theCommand;
};

// ---- Reading

// On purpose: a mark is set as a number, but the two common marks are read as booleans, so that "mark" can be
// compared with a model's boolean; only a third mark reads as a number.
LmValue ReadMark(const CommandItem& theItem)
{
    UniChar theMark = noMark;
    LM_CHECK_STATUS(GetMenuCommandMark(theItem.theMenu, theItem.theCommand, &theMark));
    LmValue theValue;
    if (theMark == noMark || theMark == kCheckCharCode) {
        theValue.SetBoolean(theMark == kCheckCharCode);
    } else {
        theValue.SetUInt32(kOtherMark);
    }
    return theValue;
}

LmValue ReadTitle(const CommandItem& theItem)
{
    CFStringRef theString = nullptr;
    LM_CHECK_STATUS(CopyMenuItemTextAsCFString(theItem.theMenu, theItem.theIndex, &theString));
    return LmAdoptedString(theString);
}

LmValue ReadMenu(const CommandItem& theItem, const LmString& theKey)
{
    LmValue theValue;
    if (theKey == kKeyMark) {
        return ReadMark(theItem);
    }
    if (theKey == kKeyEnabled) {
        theValue.SetBoolean(IsMenuCommandEnabled(theItem.theMenu, theItem.theCommand));
    } else if (theKey == kKeyTitle) {
        return ReadTitle(theItem);
    }
    return theValue;
}

// ---- Writing

OSStatus WriteMenu(const CommandItem& theItem, const LmString& theKey, const LmValue& theValue)
{
    if (theKey == kKeyMark) {
        return SetMenuCommandMark(theItem.theMenu, theItem.theCommand,
                                  MarkCharacter(static_cast<UInt32>(theValue.GetUInt32())));
    }
    if (theKey == kKeyEnabled) {
        if (theValue.GetBoolean()) {
            EnableMenuCommand(theItem.theMenu, theItem.theCommand);
        } else {
            DisableMenuCommand(theItem.theMenu, theItem.theCommand);
        }
    } else if (theKey == kKeyTitle && LmIsText(theValue)) {
        return SetMenuItemTextWithCFString(theItem.theMenu, theItem.theIndex, theValue.GetString());
    }
    return noErr;
}

// ---- Following

bool IsForCommand(EventRef theEvent, MenuCommand theCommand)
{
    HICommand theAsked = {};
    LM_CHECK_STATUS(GetEventParameter(theEvent, kEventParamDirectObject, typeHICommand, nullptr,
                                      sizeof theAsked, nullptr, &theAsked));
    return theAsked.commandID == theCommand && (theAsked.attributes & kHICommandFromMenu) != 0;
}

} // namespace

LmMenuBinding::LmMenuBinding(UInt32 theCommand)
    : LmMenuBinding()
{
    InitialiseSelf(theCommand);
}

LmMenuBinding::LmMenuBinding()
    : mMenu(nullptr),
      mMenuItem(0),
      mCommand(0),
      mEventHandler(nullptr),
      mUpdateMenu(true)
{
}

LmMenuBinding::~LmMenuBinding()
{
    SetMenuCommand(0);
}

void LmMenuBinding::InitialiseSelf(UInt32 theCommand)
{
    mMenu = nullptr;
    mMenuItem = 0;
    mCommand = theCommand;
    mEventHandler = nullptr;
    mUpdateMenu = true;
    if (theCommand != 0) {
        SetMenuCommand(theCommand);
    }
}

LmString LmMenuBinding::GetDebugInfo() const
{
    Str255 theTitle = {0};
    if (mCommand != 0) {
        GetMenuItemText(mMenu, mMenuItem, theTitle);
    }
    char theText[300];
    std::snprintf(theText, sizeof theText, "[MenuCommand '%.4s', \"%.*s\"]", LmCodeText(mCommand).GetText(),
                  theTitle[0], reinterpret_cast<const char*>(theTitle + 1));
    return LmString(theText);
}

bool LmMenuBinding::IsBindable(const LmString&)
{
    return false;
}

void LmMenuBinding::SetMenuCommand(UInt32 theCommand)
{
    static const EventHandlerUPP kHandler = NewEventHandlerUPP(EventHandler);

    if (mEventHandler != nullptr) {
        LM_CHECK_STATUS(RemoveEventHandler(mEventHandler));
    }
    mMenuItem = 0;
    mMenu = nullptr;
    if (theCommand != 0) {
        LM_CHECK_STATUS(GetIndMenuItemWithCommandID(nullptr, theCommand, 1, &mMenu, &mMenuItem));
    }
    mCommand = theCommand;
    mUpdateMenu = true;
    mEventHandler = nullptr;
    if (theCommand == 0) {
        return;
    }
    // A command that no menu holds has no event target to listen to.
    if (mMenu != nullptr) {
        LM_CHECK_STATUS(InstallEventHandler(GetMenuEventTarget(mMenu), kHandler,
                                            GetEventTypeCount(kMenuEvents), kMenuEvents, this,
                                            &mEventHandler));
    }
    LmSyncKeys(this, mUpdateMenu, {kKeyMark, kKeyEnabled, kKeyTitle});
}

void LmMenuBinding::SetKeyValue(const LmString& theKey, const LmValue& theValue)
{
    if (mCommand != 0 && mUpdateMenu) {
        LM_CHECK_STATUS(WriteMenu({mMenu, mMenuItem, mCommand}, theKey, theValue));
    }
    LmKeyValueStore::SetKeyValue(theKey, theValue);
}

void LmMenuBinding::SyncValue(const LmString& theKey)
{
    LM_ASSERT(mMenu != NULL);
    const LmValue theValue = ReadMenu({mMenu, mMenuItem, mCommand}, theKey);
    if (theValue.IsValid()) {
        SetKeyPathValue(theKey, theValue);
    }
}

OSStatus LmMenuBinding::EventHandler(EventHandlerCallRef, EventRef theEvent, void* userData)
{
    LM_ASSERT(userData != NULL);
    if (userData == nullptr) {
        return eventNotHandledErr;
    }
    LmMenuBinding* const theBinding = static_cast<LmMenuBinding*>(userData);
    const LmEventNote theNote(*theBinding, theEvent);
    const UInt32 theKind = GetEventKind(theEvent);
    switch (GetEventClass(theEvent)) {
    case kEventClassCommand:
        return theBinding->DoEventCommand(theEvent, theKind);
    case kEventClassMenu:
        return theBinding->DoEventMenu(theEvent, theKind);
    default:
        return eventNotHandledErr;
    }
}

OSStatus LmMenuBinding::DoEventMenu(EventRef theEvent, UInt32 theKind)
{
    LM_ASSERT(GetEventClass(theEvent) == kEventClassMenu);
    mUpdateMenu = true;
    if (theKind == kEventMenuDispose) {
        delete this;
    }
    return eventNotHandledErr;
}

OSStatus LmMenuBinding::DoEventCommand(EventRef theEvent, UInt32 theKind)
{
    LM_ASSERT(GetEventClass(theEvent) == kEventClassCommand);
    const LmUpdateScope theScope(this, mUpdateMenu);
    if (theKind == kEventCommandUpdateStatus && IsForCommand(theEvent, mCommand)) {
        SyncValue(kKeyMark);
        if (!theScope.BindingIsGone()) {
            SyncValue(kKeyEnabled);
        }
    }
    return eventNotHandledErr;
}
