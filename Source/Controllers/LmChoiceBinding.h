// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmChoiceBinding_h
#define LmChoiceBinding_h

#include "LmExport.h"
#include "LmKeyValueBinding.h"

#include <Carbon/Carbon.h>

#include <memory>
#include <vector>

// A choice binding makes one object of the choices that a person has: of the items of a pop-up button, of
// tabs, of the buttons in a radio group, or of several radio buttons of a window.
//
//     LmChoiceBinding theDelivery({thePostButton, theCourierButton, thePickUpButton});
//     theDelivery.Bind("tag", &theModel, "delivery", NULL, NULL);
//
//     LmChoiceBinding theCurrency(thePopUpButton);
//     theCurrency.Bind("title", &theModel, "currency", NULL, NULL);
//
// The keys, of which the first three are three ways to say which choice is selected:
//
//     "index"       signed 32-bit: its place, from 0; -1 when none is selected
//     "tag"         signed 32-bit: its tag, which goes with it to another place; -1 when none is selected
//     "title"       string: its title; empty when none is selected
//     "count"       signed 32-bit: how many choices there are
//     "choices.0"   string: the title of the first choice; "choices.1" that of the second, and so on
//
// The tag of a button is the number of its ControlID; of one whose ControlID is not set, its place when it
// was added. The tag of a menu item is its command. An item without a command has none, which reads as -1;
// nor has a tab, or a button whose number is -1. Separators and hidden items are no choices, nor is what else
// stands in a radio group.
//
// Setting one of the first three selects the first choice of which it is true, sets the others, and shows
// that choice in the controls alone. Where there is no such choice, none is selected: buttons are off, a
// pop-up button is empty and no tab is in front, with the value and the minimum 0. A tag or title that was
// set so stays in its key: when such a choice comes, it is selected. In the same way the selection is kept
// when choices come, go or change places: it goes with the tag, or with the title where there is no tag. When
// the selected choice goes, none is selected until one with its tag or title comes.
//
// Setting "choices.0" changes the title of the button, item or tab, as setting "title" does not. Setting
// "count" changes nothing. Values that are of another kind select nothing, and change no title.
//
// The controls are not owned, and the object is the application's: it outlives them, or goes first. Whether
// buttons turn themselves on when they are clicked makes no difference; two that are on at first are one that
// is selected, the first, and one that is turned off. Where there is no memory for the handler of a control,
// that is said in one line on the standard error stream ("file, line n: Error -108"), and what a person does
// there is not heard of. Main thread only. Cost: a handler on each button, or on the one control; what a
// selection costs grows with the number of choices.
class LM_EXPORT LmChoiceBinding : public LmKeyValueBinding
{
public:
    // ---- Life

    // No choices.
    LmChoiceBinding();

    // The choices that theButtons are, in this order. Selects the first one that is on.
    explicit LmChoiceBinding(const std::vector<ControlRef>& theButtons);

    // The choices that theControl offers, as SetControl says. Selects the one that it shows.
    explicit LmChoiceBinding(ControlRef theControl);

    // Leaves the controls as they are.
    ~LmChoiceBinding() override;

    LmChoiceBinding(const LmChoiceBinding&) = delete;
    LmChoiceBinding& operator=(const LmChoiceBinding&) = delete;

    // ---- The choices

    // From now on the choices are theButtons, in this order; those that are null are left out, and of one
    // that is there twice the first counts. Keeps the selection, as said above.
    void SetButtons(const std::vector<ControlRef>& theButtons);

    // From now on the choices are those of theControl, a pop-up button, tabs or a radio group; any other
    // control is one button, and null has no choices. Keeps the selection.
    void SetControl(ControlRef theControl);

    // Looks at the choices anew. To be called when items of a pop-up button's menu came, went, changed places
    // or got another text, or tabs another name, for Carbon tells nobody; it is noticed without that when the
    // program then sets the maximum of the control to another number. What happens to buttons is noticed
    // always, but for a new order in a radio group. Keeps the selection, and gives a pop-up button the
    // maximum that it needs.
    void UpdateChoices();

    // ---- Called by others

    // Keeps the value, and does what it says.
    void SetKeyValue(const LmString& theKey, const LmValue& theValue) override;

private:
    class LM_HIDDEN Controls;
    class LM_HIDDEN RadioButtons;
    class LM_HIDDEN OneControl;
    class LM_HIDDEN Telling;

    // Each of these is false when this object has been destroyed meanwhile, or something else was selected.
    LM_HIDDEN bool Tell(const LmString& theKey, const LmValue& theValue);
    LM_HIDDEN bool TellUnless(const LmString& theWantedKey, const char* theKey, const LmValue& theValue);

    LM_HIDDEN void Select(SInt32 thePlace, const LmString& theWantedKey);
    LM_HIDDEN void SelectWanted();
    LM_HIDDEN void TellChoices();
    LM_HIDDEN void SetTitle(SInt32 thePlace, CFStringRef theTitle);
    LM_HIDDEN SInt32 FindChoice(const LmString& theKey, const LmValue& theValue) const;

    // What the controls tell.
    LM_HIDDEN void ChoiceWasMade(SInt32 thePlace);
    LM_HIDDEN void ChoiceHasGone(SInt32 thePlace);
    LM_HIDDEN void ChoicesAreOthers();

    std::unique_ptr<Controls> mControls; // what shows the choices; never null
    SInt32 mSelected = -1;               // the place of the selected choice, or -1
    SInt32 mToldCount = 0;               // for how many choices there is a key
    unsigned mTurn = 0;                  // counts selections, so that an overtaken one notices
    const LmValue* mToldValue = nullptr; // the value that this object itself sets, or null
    unsigned mToldTurn = 0;              // the turn in which it was set
};

#endif
