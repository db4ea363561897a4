// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef WindowUnderTest_h
#define WindowUnderTest_h

#include <cstddef>
#include <memory>
#include <string>

// The same window, as it is written with one toolkit after the other. It is full of controls in rows, and
// each shows a value of a model and changes it.

enum class WidgetKind
{
    kSlider,
    kCheckBox,
    kTextField,
    kProgressBar,
};

struct Place
{
    int theLeft;
    int theTop;
};

struct WindowPlan
{
    std::size_t theControls = 1000;
    bool theIsMixed = false;      // four kinds of control in turn; otherwise sliders alone
    std::size_t theFollowers = 0; // so many controls after the first one show the same value as that

    WidgetKind KindOf(std::size_t theControl) const;
    std::size_t KeyOf(std::size_t theControl) const { return theControl <= theFollowers ? 0 : theControl; }
    static Place PlaceOf(std::size_t theControl);
};

// Rows and columns have these distances; a control leaves some of the room free.
constexpr int kCellWidth = 160;
constexpr int kCellHeight = 36;
constexpr int kColumns = 16;
constexpr int kRows = 63;
constexpr int kControlWidth = 150;
constexpr int kControlHeight = 28;
constexpr int kHighest = 100; // of sliders and progress bars; the lowest is 0

// What a text field shows for a number.
std::string TextOf(int theNumber);

// A window and its model, which is there before the window is. The numbers of the model are 0 to kHighest.
class WindowUnderTest
{
public:
    WindowUnderTest() = default;
    virtual ~WindowUnderTest() = default;
    WindowUnderTest(const WindowUnderTest&) = delete;
    WindowUnderTest& operator=(const WindowUnderTest&) = delete;

    // Makes the window and its controls, binds them to the model and puts the window on the screen, where it
    // appears as soon as the event loop runs.
    virtual void Open() = 0;

    // Changes the model.
    virtual void Set(std::size_t theKey, int theNumber) = 0;

    // What the model has, and whether the control itself shows a number: of a check box, whether it is odd.
    virtual int Get(std::size_t theKey) const = 0;
    virtual bool Shows(std::size_t theControl, int theNumber) const = 0;

    // Lets the event loop run for so long.
    virtual void Run(double theSeconds) = 0;
};

// Defined by the file of each toolkit.
std::unique_ptr<WindowUnderTest> MakeWindow(const WindowPlan& thePlan);

#endif
