// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef HISearchField_h
#define HISearchField_h

// A field for what to look for. It is an edit text, with the tags, the text events and the keys of one. Made
// without a window and hidden: add it to a view and show it.

#include <Carbon/ControlDefinitions.h>
#include <Carbon/HIGeometry.h>
#include <Carbon/Menus.h>

enum
{
    kHISearchFieldNoAttributes = 0,
    kHISearchFieldAttributesCancel = 1,    // a button to empty the field, while there is something in it
    kHISearchFieldAttributesSearchIcon = 2 // a glass at the left; a field with a menu always has one
};

enum
{
    kControlSearchFieldCancelPart = 30
};

// The button was clicked, or Escape pressed while it was there; unless a handler takes the event, the field
// becomes empty, as by an edit. The glass was clicked, in a field without a menu: this event does not go up
// to the view around. Parameter: kEventParamDirectObject (typeControlRef).
enum
{
    kEventClassSearchField = 'srfd',
    kEventSearchFieldCancelClicked = 1,
    kEventSearchFieldSearchClicked = 2
};

// No bounds are an empty rectangle. The menu and the text are retained: the menu pops up from the glass, or
// with option and the down arrow, and sends its commands; the text is shown while the field is empty. Both
// may be null. Attributes that do not exist are a paramErr, here and below, and so is a menu that is none.
CARBON_EXPORT OSStatus HISearchFieldCreate(const HIRect* inBounds, OptionBits inAttributes,
                                           MenuRef inSearchMenu, CFStringRef inDescriptiveText,
                                           HIViewRef* outRef);

// errUnknownControl for what is no search field. The menu that is read is not retained, the text belongs to
// the caller.
CARBON_EXPORT OSStatus HISearchFieldSetSearchMenu(HIViewRef inSearchField, MenuRef inSearchMenu);
CARBON_EXPORT OSStatus HISearchFieldGetSearchMenu(HIViewRef inSearchField, MenuRef* outSearchMenu);
CARBON_EXPORT OSStatus HISearchFieldChangeAttributes(HIViewRef inSearchField, OptionBits inAttributesToSet,
                                                     OptionBits inAttributesToClear);
CARBON_EXPORT OSStatus HISearchFieldGetAttributes(HIViewRef inSearchField, OptionBits* outAttributes);
CARBON_EXPORT OSStatus HISearchFieldSetDescriptiveText(HIViewRef inSearchField, CFStringRef inDescription);
CARBON_EXPORT OSStatus HISearchFieldCopyDescriptiveText(HIViewRef inSearchField, CFStringRef* outDescription);

#endif
