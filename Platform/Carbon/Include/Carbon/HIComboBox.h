// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef HIComboBox_h
#define HIComboBox_h

// A field with a list of texts to choose from. It is an edit text, with the tags, the text events and the
// keys of one, and a button that shows the list. Made without a window and hidden: add it to a view and show
// it.
//
// A person who chooses from the list, with the button or with option and the down arrow, or who goes through
// it with the up and down arrows, edits the whole text: the questions and answers about edits are sent, then
// kEventComboBoxListItemSelected, then kEventTextAccepted.

#include <Carbon/ControlDefinitions.h>
#include <Carbon/HIGeometry.h>

enum
{
    kHIComboBoxNoAttributes = 0,
    kHIComboBoxAutoCompletionAttribute = 1, // what is typed is completed to the first item that begins so
    kHIComboBoxAutoDisclosureAttribute = 2, // kept
    kHIComboBoxAutoSortAttribute = 4,       // items stand in the order of the alphabet
    kHIComboBoxAutoSizeListAttribute = 8,   // kept
    kHIComboBoxStandardAttributes = 11
};

enum
{
    kHIComboBoxEditTextPart = 5,
    kHIComboBoxDisclosurePart = 28
};

// The last three are kept for the application: the desktop knows how large its lists are.
enum
{
    kHIComboBoxListTag = 'cbls',            // CFArrayRef of strings; one that is read belongs to the caller
    kHIComboBoxListPixelWidthTag = 'cblw',  // UInt32
    kHIComboBoxListPixelHeightTag = 'cblh', // UInt32
    kHIComboBoxNumVisibleItemsTag = 'cbni'  // UInt32
};

// To all handlers. Parameters: kEventParamDirectObject (typeControlRef), and the place in the list, from 0.
enum
{
    kEventClassHIComboBox = 'hicb',
    kEventComboBoxListItemSelected = 1,
    kEventParamComboBoxListSelectedItemIndex = 'cbli' // typeCFIndex
};

// The bounds and the result must not be null; whatever in the list is no string is left out. Attributes that
// do not exist are a paramErr, here and below.
CARBON_EXPORT OSStatus HIComboBoxCreate(const HIRect* boundsRect, CFStringRef text,
                                        const ControlFontStyleRec* style, CFArrayRef list,
                                        OptionBits inAttributes, HIViewRef* outComboBox);

// Places count from 0. errUnknownControl for what is no combo box; paramErr for null texts and for places
// that the list has not, except that an item which is inserted beyond it comes to its end.
CARBON_EXPORT OSStatus HIComboBoxAppendTextItem(HIViewRef inComboBox, CFStringRef inText, CFIndex* outIndex);
CARBON_EXPORT OSStatus HIComboBoxInsertTextItemAtIndex(HIViewRef inComboBox, CFIndex inIndex,
                                                       CFStringRef inText);
CARBON_EXPORT OSStatus HIComboBoxRemoveItemAtIndex(HIViewRef inComboBox, CFIndex inIndex);
CARBON_EXPORT OSStatus HIComboBoxCopyTextItemAtIndex(HIViewRef inComboBox, CFIndex inIndex,
                                                     CFStringRef* outString);
CARBON_EXPORT ItemCount HIComboBoxGetItemCount(HIViewRef inComboBox);
CARBON_EXPORT OSStatus HIComboBoxChangeAttributes(HIViewRef inComboBox, OptionBits inAttributesToSet,
                                                  OptionBits inAttributesToClear);
CARBON_EXPORT OSStatus HIComboBoxGetAttributes(HIViewRef inComboBox, OptionBits* outAttributes);

CARBON_EXPORT Boolean HIComboBoxIsListVisible(HIViewRef inComboBox);

#endif
