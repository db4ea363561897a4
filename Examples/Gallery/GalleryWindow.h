// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef GalleryWindow_h
#define GalleryWindow_h

#include "LmControlBinding.h"

#include <Carbon/Carbon.h>

// A window with every kind of control. Everything that shows a number shows the same one, and the check
// box at the bottom enables and disables all the rest: each control is bound to keys of one model. What
// is behind each tab is shown by a key as well.
class Gallery
{
public:
    Gallery();

    WindowRef Window() const { return mWindow; }

    // The names of some controls, for whoever looks for them in the window.
    enum ControlNumber : SInt32
    {
        kSearch = 1,
        kCity,
        kUnit,
        kBold,
        kAlign,
        kHelpButton,
        kTabs,
        kChoices,
        kWell,
        kDetails,
        kMore,
        kRelevance,
        kSlider,
        kSwitch,
        kView,
        kTime,
    };
    static ControlID Name(ControlNumber theNumber) { return {'gall', theNumber}; }

private:
    // Deletes itself together with the control.
    LmControlBinding* Bind(ControlRef theControl);
    void BindLevel(ControlRef theControl);
    void ShowLevel(ControlRef theControl);

    void AddTexts();
    void AddLabel(const Rect& thePlace, CFStringRef theText);
    void AddButtons();
    void AddRanges();
    void AddGroup();
    void AddSwitch();

    // The right half.
    void AddSearch();
    void AddCities();
    void AddUnits();
    void AddBevelButtons();
    void AddPictures();
    void AddTabs();
    ControlRef AddPage(ControlRef theTabs, SInt32 theNumber);
    void AddChoices(ControlRef thePage);
    void AddWell(ControlRef thePage);
    void AddDisclosures();
    void AddRelevance();
    void AddSegments();
    void AddClocks();
    void AddHeader();

    LmKeyValueBinding mModel;
    WindowRef mWindow = nullptr;
};

#endif
