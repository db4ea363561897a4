// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef BindingScenarios_h
#define BindingScenarios_h

// What is measured of the bindings of windows, controls, menus and preferences, and of the transforms. The
// rules are those of Scenarios.h.

#include <Carbon/Carbon.h>
#include <cstddef>
#include <LmBindings.h>
#include <vector>

// One transform applied to one value. A step applies it; the same value each time, for it keeps no state.
class TransformScenario
{
public:
    TransformScenario(std::size_t theTransform, std::size_t theKind);
    ~TransformScenario();
    TransformScenario(const TransformScenario&) = delete;
    TransformScenario& operator=(const TransformScenario&) = delete;

    void Step();
    bool IsRight() const;

    // The names of what the two arguments choose from.
    static const std::vector<const char*>& TransformNames();
    static const std::vector<const char*>& KindNames();

    // Whether the transform is meant for values of that kind; it reports others as errors.
    static bool IsMeantFor(std::size_t theTransform, std::size_t theKind);

private:
    LmValue mValue;
    LmValueTransform* mTransform; // one reference is owned
    LmValue mFirstResult;
    LmValue mResult;
};

// A window with a slider. A step changes the slider as a program does; the event tells the binding.
class ControlEventScenario
{
public:
    ControlEventScenario();
    ~ControlEventScenario();
    ControlEventScenario(const ControlEventScenario&) = delete;
    ControlEventScenario& operator=(const ControlEventScenario&) = delete;

    void Step();
    bool IsRight() const;

private:
    WindowRef mWindow = nullptr;
    ControlRef mSlider = nullptr;
    LmControlBinding* mBinding = nullptr; // dies with the slider
    SInt32 mValue = 0;
};

// A step moves the window; the event tells the binding.
class WindowEventScenario
{
public:
    WindowEventScenario();
    ~WindowEventScenario();
    WindowEventScenario(const WindowEventScenario&) = delete;
    WindowEventScenario& operator=(const WindowEventScenario&) = delete;

    void Step();
    bool IsRight() const;

private:
    WindowRef mWindow = nullptr;
    LmWindowBinding* mBinding = nullptr; // dies with the window
    short mLeft = 100;
};

// A step marks a menu item, or takes its mark away, and asks for the command's state.
class MenuEventScenario
{
public:
    MenuEventScenario();
    ~MenuEventScenario();
    MenuEventScenario(const MenuEventScenario&) = delete;
    MenuEventScenario& operator=(const MenuEventScenario&) = delete;

    void Step();
    bool IsRight() const;

private:
    MenuRef mMenu = nullptr;
    LmMenuBinding* mBinding = nullptr; // dies with the menu
    bool mIsMarked = false;
};

// A step lets a model of the application's own tell the binding of a change.
class ModelEventScenario
{
public:
    ModelEventScenario();
    void Step();
    bool IsRight() const;

private:
    LmExampleBinding mBinding;
};

// Reading or writing a number of a preference domain that is kept in memory.
class PreferenceScenario
{
public:
    explicit PreferenceScenario(bool theWrite);
    void Step();
    bool IsRight() const;

private:
    LmPreferenceBinding mPreferences;
    bool mWrite;
    long mValue = 0;
    long mFound = 0;
};

#endif
