// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The one header that a Carbon application includes. The C library comes with it, as programs expect.

#ifndef Carbon_h
#define Carbon_h

#include <ApplicationServices/ApplicationServices.h>
#include <Carbon/AEDataModel.h>
#include <Carbon/AEInteraction.h>
#include <Carbon/Appearance.h>
#include <Carbon/AppleEvents.h>
#include <Carbon/CarbonBase.h>
#include <Carbon/CarbonEvents.h>
#include <Carbon/CarbonEventsCore.h>
#include <Carbon/ControlDefinitions.h>
#include <Carbon/Controls.h>
#include <Carbon/Dialogs.h>
#include <Carbon/Events.h>
#include <Carbon/HIComboBox.h>
#include <Carbon/HIGeometry.h>
#include <Carbon/HIImageViews.h>
#include <Carbon/HIObject.h>
#include <Carbon/HISearchField.h>
#include <Carbon/HISegmentedView.h>
#include <Carbon/HIView.h>
#include <Carbon/IBCarbonRuntime.h>
#include <Carbon/Icons.h>
#include <Carbon/MacHelp.h>
#include <Carbon/MacWindows.h>
#include <Carbon/Menus.h>
#include <Carbon/Processes.h>
#include <Carbon/Quickdraw.h>
#include <Carbon/Sound.h>
#include <CoreFoundation/CoreFoundation.h>
#include <CoreServices/CoreServices.h>

#endif
