// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Windows_Controls_h
#define Windows_Controls_h

#include "Base/ObjectIds.h"

#include <Carbon/Carbon.h>
#include <memory>
#include <Presentation/PresenterTypes.h>
#include <string>
#include <vector>

namespace Host {

class Control;
class Window;
using SharedControl = std::shared_ptr<Control>;
using SharedWindow = std::shared_ptr<Window>;

// The control behind a reference, or null for null, disposed and foreign references.
SharedControl FindControl(ControlRef theReference);
SharedControl FindControl(ObjectId theIdentifier);

// The identifier of a control; 0 for null, disposed and foreign references.
HOST_PUBLIC ObjectId IdentifierOf(ControlRef theReference);

// Bounds of a control in its window's content (0, 0 is the content's top left), whatever coordinates the
// application uses for it.
Rect BoundsInWindow(const SharedControl& theControl);

// The control that a press at a point of the window's content reaches: the frontmost, deepest visible one.
// Disabled ones are found too, since they cover what is behind them. Null when there is none.
SharedControl ControlAt(const SharedWindow& theWindow, Point theContentPoint);

// The same of the controls in theContainer; the deepest one or the one that is in theContainer itself.
SharedControl SubControlAt(const Control& theContainer, Point theContentPoint, bool theIsDeep);

// A point of the window's content where a press starts to track thePart (an indicator stands where its value
// puts it). False when the control has no such part.
bool PointOfPart(const SharedControl& theControl, ControlPartCode thePart, Point* thePoint);

// Where the indicator of a slider or scroll bar would stand for a value. False for other controls.
bool PointOfValue(const SharedControl& theControl, SInt32 theValue, Point* thePoint);

// The first control of an identifier in theRoot, which is itself before what is inside it; null for none.
// Needs memory for the way to it.
SharedControl FindNamed(const Control& theRoot, const ControlID& theID);

// The control being tracked, or null.
SharedControl TrackedControl();

// Where a mouse event that drags or releases an indicator puts it, exactly, for ranges finer than the
// screen's points; without this parameter (typeSInt32) the indicator goes under the pointer.
enum : EventParamName
{
    kEventParamExactIndicatorValue = 'xval',
};

// A presenter's own text field was edited: theText is the whole new text, the selection in UTF-16 units. Goes
// through the same events as typing. False when the control is not an edit text that takes input.
bool TextEditedByPerson(const SharedControl& theControl, const std::u16string& theText,
                        size_t theSelectionStart, size_t theSelectionEnd);

// Lets the Tab key and the focus reach every control that can be worked by keys, not only text fields. On at
// start: nobody who needs the keyboard should have to look for a switch.
HOST_PUBLIC void SetFullKeyboardAccess(bool theIsOn);

} // namespace Host

#endif
