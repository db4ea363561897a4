// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef HeadlessTestLooks_h
#define HeadlessTestLooks_h

#include "HeadlessSnapshot.h"

// Looks to draw.

constexpr Host::ObjectId kWindow = 1;
constexpr Host::ObjectId kRoot = 2;

inline Host::WindowLook Window(Host::ObjectId theId, const std::string& theTitle, int theOrder)
{
    Host::WindowLook theLook;
    theLook.theId = theId;
    theLook.theTitle = theTitle;
    theLook.theContent = {100, 80, 420, 280};
    theLook.theStructure = {100, 58, 420, 280};
    theLook.theOrder = theOrder;
    theLook.theIsVisible = true;
    return theLook;
}

inline Host::ControlLook Control(Host::ObjectId theId, Host::ControlShape theShape,
                                 Host::ObjectId theParent = kRoot)
{
    Host::ControlLook theLook;
    theLook.theId = theId;
    theLook.theWindow = kWindow;
    theLook.theParent = theParent;
    theLook.theOrder = static_cast<int>(theId);
    theLook.theShape = theShape;
    return theLook;
}

inline Host::ControlLook Valued(Host::ControlShape theShape, std::int32_t theValue, std::int32_t theMinimum,
                                std::int32_t theMaximum)
{
    Host::ControlLook theLook = Control(3, theShape);
    theLook.theValue = theValue;
    theLook.theMinimum = theMinimum;
    theLook.theMaximum = theMaximum;
    return theLook;
}

inline Host::ControlLook Titled(Host::ControlShape theShape, const std::string& theTitle,
                                std::int32_t theValue = 0)
{
    Host::ControlLook theLook = Control(3, theShape);
    theLook.theTitle = theTitle;
    theLook.theValue = theValue;
    return theLook;
}

inline Host::ControlLook Texted(Host::ControlShape theShape, const std::string& theText,
                                bool theIsPassword = false)
{
    Host::ControlLook theLook = Control(3, theShape);
    theLook.theText = theText;
    theLook.theIsPassword = theIsPassword;
    return theLook;
}

inline Host::ControlLook Default(Host::ControlLook theLook)
{
    theLook.theIsDefault = true;
    return theLook;
}

inline Host::ControlLook Indeterminate(Host::ControlLook theLook)
{
    theLook.theIsIndeterminate = true;
    return theLook;
}

#endif
