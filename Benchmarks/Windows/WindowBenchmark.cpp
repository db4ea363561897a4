// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// <program> open|change|drag|memory|idle sliders|mixed [<controls>]: measures one thing about the window of
// one toolkit and prints it.
//
//   open     opening the window, until it has been painted
//   change   changing every value once in the model, until all has been painted
//   drag     one step of the pointer that drags a slider, which 100 others follow, until all has been painted
//   memory   the bytes that are in use of the heap while the window is open
//   idle     milliseconds of the processor's time, and how often the program woke, in ten seconds in which
//            nothing happens
//
// open, change and drag print the milliseconds of the processor's time that it took. Run by callgrind, they
// let it write a profile of nothing else, whose title ends with the number of operations.
//
// The pointer is moved through the X server. Each measurement ends with a look at what the controls show;
// if that is not what the model has, the program fails.

#include "WindowUnderTest.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <malloc.h>
#include <sys/resource.h>
#include <valgrind/callgrind.h>
#include <X11/extensions/XTest.h>
#include <X11/Xatom.h>

namespace {

constexpr int kRounds = 10;
constexpr std::size_t kFollowers = 100;
constexpr double kIdleTime = 10;

// An even and an odd one, so that check boxes change too. So far apart that a progress bar, which is drawn in
// chunks, cannot leave the change out.
constexpr int kNumbers[] = {73, 40};

// Sliders begin in the middle, where the pointer takes hold of the first one.
constexpr int kFirst = kHighest / 2;

// A step must be wide enough to change the value.
constexpr int kDragSteps = 20; // in one direction
constexpr int kPixelsPerStep = 3;

[[noreturn]] void Fail(const char* theReason)
{
    std::fprintf(stderr, "%s\n", theReason);
    std::exit(EXIT_FAILURE);
}

double ProcessorTime()
{
    timespec theTime = {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &theTime);
    return static_cast<double>(theTime.tv_sec) * 1e3 + static_cast<double>(theTime.tv_nsec) / 1e6;
}

// Until everything is painted: the X server has a part in it, and toolkits keep to the pace of a screen.
// Waiting costs next to nothing of what is measured.
void RunUntilPainted(WindowUnderTest& theWindow)
{
    constexpr int kTurns = 8;
    constexpr double kTurnTime = 0.025;
    for (int theTurn = 0; theTurn < kTurns; ++theTurn) {
        theWindow.Run(kTurnTime);
    }
}

template <class Work>
void Measure(const char* theTitle, int theOperations, const Work& theWork)
{
    CALLGRIND_START_INSTRUMENTATION;
    CALLGRIND_ZERO_STATS;
    const double theStart = ProcessorTime();
    theWork();
    const double theTime = ProcessorTime() - theStart;
    CALLGRIND_STOP_INSTRUMENTATION;
    CALLGRIND_DUMP_STATS_AT((std::string(theTitle) + '\t' + std::to_string(theOperations)).c_str());
    std::printf("%.4f\n", theTime / theOperations);
}

void ExpectToShow(const WindowUnderTest& theWindow, const WindowPlan& thePlan)
{
    for (std::size_t theControl = 0; theControl < thePlan.theControls; ++theControl) {
        if (!theWindow.Shows(theControl, theWindow.Get(thePlan.KeyOf(theControl)))) {
            Fail("a control does not show what the model has");
        }
    }
}

void MeasureOpening(WindowUnderTest& theWindow)
{
    Measure("open", 1, [&] {
        theWindow.Open();
        RunUntilPainted(theWindow);
    });
}

void MeasureChanging(WindowUnderTest& theWindow, const WindowPlan& thePlan)
{
    theWindow.Open();
    RunUntilPainted(theWindow);
    int theNumber = kFirst;
    Measure("change", kRounds, [&] {
        for (int theRound = 0; theRound < kRounds; ++theRound) {
            theNumber = kNumbers[theRound % 2];
            for (std::size_t theKey = 0; theKey < thePlan.theControls; ++theKey) {
                theWindow.Set(theKey, theNumber);
            }
            RunUntilPainted(theWindow);
        }
    });
    if (theWindow.Get(0) != theNumber) {
        Fail("the model has not kept what it was set to");
    }
}

// A hand on the mouse.
class Pointer
{
public:
    Pointer()
        : mDisplay(XOpenDisplay(nullptr))
    {
        if (mDisplay == nullptr) {
            Fail("there is no display");
        }
    }
    ~Pointer() { XCloseDisplay(mDisplay); }
    Pointer(const Pointer&) = delete;
    Pointer& operator=(const Pointer&) = delete;

    // Takes a place in the active window from now on: where that is on the screen is the desktop's to say.
    void EnterWindow()
    {
        const Atom theName = XInternAtom(mDisplay, "_NET_ACTIVE_WINDOW", False);
        Atom theType = None;
        int theFormat = 0;
        unsigned long theCount = 0;
        unsigned long theRest = 0;
        unsigned char* theData = nullptr;
        XGetWindowProperty(mDisplay, DefaultRootWindow(mDisplay), theName, 0, 1, False, XA_WINDOW, &theType,
                           &theFormat, &theCount, &theRest, &theData);
        if (theData == nullptr || theCount != 1) {
            Fail("no window is active");
        }
        Window theWindow = None;
        std::memcpy(&theWindow, theData, sizeof theWindow);
        XFree(theData);
        Window theChild = None;
        XTranslateCoordinates(mDisplay, theWindow, DefaultRootWindow(mDisplay), 0, 0, &mLeft, &mTop,
                              &theChild);
    }

    // Goes where no window is.
    void LeaveAlone() { MoveTo(DisplayWidth(mDisplay, 0) - 1, DisplayHeight(mDisplay, 0) - 1); }

    void MoveTo(int theX, int theY)
    {
        XTestFakeMotionEvent(mDisplay, -1, mLeft + theX, mTop + theY, CurrentTime);
        XFlush(mDisplay);
    }

    void SetPressed(bool theIsPressed)
    {
        XTestFakeButtonEvent(mDisplay, 1, theIsPressed ? True : False, CurrentTime);
        XFlush(mDisplay);
    }

private:
    Display* mDisplay;
    int mLeft = 0;
    int mTop = 0;
};

void MeasureDragging(WindowUnderTest& theWindow)
{
    theWindow.Open();
    RunUntilPainted(theWindow);
    Pointer thePointer;
    thePointer.EnterWindow();
    const Place thePlace = WindowPlan::PlaceOf(0);
    const int theX = thePlace.theLeft + kControlWidth / 2;
    const int theY = thePlace.theTop + kControlHeight / 2;
    thePointer.MoveTo(theX, theY);
    RunUntilPainted(theWindow);
    thePointer.SetPressed(true);
    RunUntilPainted(theWindow);
    int theChanges = 0;
    Measure("drag", 2 * kDragSteps, [&] {
        for (int theStep = 1; theStep <= 2 * kDragSteps; ++theStep) {
            const int theOld = theWindow.Get(0);
            const int theWay = theStep <= kDragSteps ? theStep : 2 * kDragSteps - theStep;
            thePointer.MoveTo(theX + theWay * kPixelsPerStep, theY);
            RunUntilPainted(theWindow);
            theChanges += theWindow.Get(0) != theOld ? 1 : 0;
        }
    });
    if (theChanges < 2 * kDragSteps - 2) {
        Fail("the value does not follow the pointer");
    }
    thePointer.SetPressed(false);
    RunUntilPainted(theWindow);
}

void MeasureMemory(WindowUnderTest& theWindow)
{
    theWindow.Open();
    RunUntilPainted(theWindow);
    const struct mallinfo2 theHeap = mallinfo2();
    std::printf("%zu\n", theHeap.uordblks + theHeap.hblkhd);
}

long Wakings()
{
    rusage theUsage = {};
    getrusage(RUSAGE_SELF, &theUsage);
    return theUsage.ru_nvcsw;
}

void MeasureIdling(WindowUnderTest& theWindow)
{
    theWindow.Open();
    RunUntilPainted(theWindow);
    theWindow.Run(1); // what a toolkit has left for later
    const double theTime = ProcessorTime();
    const long theWakings = Wakings();
    theWindow.Run(kIdleTime);
    // The end of the ten seconds is one.
    std::printf("%.4f\t%ld\n", ProcessorTime() - theTime, Wakings() - theWakings - 1);
}

} // namespace

WidgetKind WindowPlan::KindOf(std::size_t theControl) const
{
    constexpr std::size_t kKinds = 4;
    return theIsMixed ? static_cast<WidgetKind>(theControl % kKinds) : WidgetKind::kSlider;
}

Place WindowPlan::PlaceOf(std::size_t theControl)
{
    const int theIndex = static_cast<int>(theControl);
    return {theIndex % kColumns * kCellWidth, theIndex / kColumns * kCellHeight};
}

std::string TextOf(int theNumber)
{
    return "Number " + std::to_string(theNumber);
}

int main(int theCount, char** theArguments)
{
    const std::string theQuestion = theCount > 1 ? theArguments[1] : "";
    WindowPlan thePlan;
    thePlan.theIsMixed = theCount > 2 && std::strcmp(theArguments[2], "mixed") == 0;
    thePlan.theControls = theCount > 3 ? std::strtoul(theArguments[3], nullptr, 10) : thePlan.theControls;
    thePlan.theFollowers = theQuestion == "drag" ? kFollowers : 0;
    Pointer().LeaveAlone();
    const std::unique_ptr<WindowUnderTest> theWindow = MakeWindow(thePlan);
    for (std::size_t theKey = 0; theKey < thePlan.theControls; ++theKey) {
        theWindow->Set(theKey, kFirst);
    }
    if (theQuestion == "open") {
        MeasureOpening(*theWindow);
    } else if (theQuestion == "change") {
        MeasureChanging(*theWindow, thePlan);
    } else if (theQuestion == "drag") {
        MeasureDragging(*theWindow);
    } else if (theQuestion == "memory") {
        MeasureMemory(*theWindow);
    } else if (theQuestion == "idle") {
        MeasureIdling(*theWindow);
    } else {
        Fail("usage: <program> open|change|drag|memory|idle sliders|mixed [<controls>]");
    }
    ExpectToShow(*theWindow, thePlan);
    return EXIT_SUCCESS;
}
