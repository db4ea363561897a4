// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Runs the order form with a scripted person in front of it. Prints what its window shows, and after every
// action what has changed there. The price list answers when the script lets it.

#include "OrderWindow.h"
#include "PriceFinder.h"

#include <condition_variable>
#include <cstdio>
#include <mutex>
#include <Simulation/UserSimulator.h>

using Host::UserResult;

namespace {

// The rows of the window.
enum Row : SInt32
{
    kName = 1,
    kQuantity,
    kCurrency,
    kPrice,
    kDiscount,
    kDelivery,
    kNet,
    kTax,
    kTotal,
    kOrder
};

// Knows a desk, and answers each question when it may.
class SlowPriceList
{
public:
    SInt64 Ask(const std::string& theName, const std::string& theCurrency)
    {
        std::unique_lock<std::mutex> theLock(mMutex);
        mMayAnswer.wait(theLock, [this] { return mAnswers > 0; });
        mAnswers -= 1;
        return theName != "Desk" ? 0 : theCurrency == "JPY" ? 56000 : 34900;
    }
    void LetAnswer()
    {
        const std::lock_guard<std::mutex> theLock(mMutex);
        mAnswers += 1;
        mMayAnswer.notify_one();
    }

private:
    std::mutex mMutex;
    std::condition_variable mMayAnswer;
    int mAnswers = 0; // that it may still give
};

class Session
{
public:
    Session();
    ~Session();

    bool WasSuccessful() const { return mIsSuccessful; }

private:
    struct Action
    {
        std::string theText;
        std::function<UserResult()> theDeed;
        bool isPriceAwaited;
    };

    void WriteFirstOrder();
    void WriteSecondOrder();
    void Person(const std::string& theText, const std::function<UserResult()>& theDeed);
    void PriceListAnswers(const std::string& theText);

    Host::ControlAddress Control(Row theRow) const;
    UserResult TypeOver(Row theRow, const std::string& theText);

    static void TimerFired(EventLoopTimerRef theTimer, void* theSession);
    void GoOn();
    void PrintState();
    std::string DescribeRow(Row theRow) const;

    SlowPriceList mPriceList;
    OrderModel mModel;
    OrderWindow mWindow;
    PriceFinder mPriceFinder;
    Host::UserSimulator mUser;
    EventLoopTimerRef mTimer = nullptr;
    std::vector<Action> mScript;
    size_t mNextAction = 0;
    bool mIsPriceAwaited = false;
    std::vector<std::string> mShownLines; // after the action before
    bool mIsSuccessful = true;
};

SInt64 ReadDay(CFStringRef theText)
{
    return LmDateFormatter(kCFDateFormatterMediumStyle).Parse(theText).theValue.GetSInt64();
}

Session::Session()
    : mModel(ReadDay(CFSTR("Nov 23, 2026"))),
      mWindow(mModel),
      mPriceFinder(mModel, [this](const std::string& theName, const std::string& theCurrency) {
          return mPriceList.Ask(theName, theCurrency);
      })
{
    WriteFirstOrder();
    WriteSecondOrder();
    InstallEventLoopTimer(GetMainEventLoop(), 0, kEventDurationMillisecond, NewEventLoopTimerUPP(TimerFired),
                          this, &mTimer);
}

Session::~Session()
{
    RemoveEventLoopTimer(mTimer);
    mPriceList.LetAnswer(); // the question of the order that was not finished
}

// The script -------------------------------------------------------------------------------------------

void Session::WriteFirstOrder()
{
    Person("The application has opened its window.", [] { return UserResult::Done(); });
    Person("The person types a name and presses Tab. A thread asks for the price.",
           [this] { return TypeOver(kName, "Desk\t"); });
    Person("Meanwhile he types a quantity.", [this] { return TypeOver(kQuantity, "12\n"); });
    PriceListAnswers("The price arrives, and the total with it. Everything is valid now.");
    Person("He types a letter for a digit into the discount ...",
           [this] { return TypeOver(kDiscount, "1O"); });
    Person("... and clicks into another field: what he typed stays, and what is wrong stands beside it.",
           [this] { return mUser.Click(Control(kQuantity)); });
    Person("He comes back and presses Escape, which gives back what was there.", [this] {
        mUser.Click(Control(kDiscount));
        return mUser.PressKey(kVK_Escape);
    });
    Person("He types another discount, and each key changes the total ...",
           [this] { return TypeOver(kDiscount, "7.5"); });
    Person("... and leaves the field with the mouse, which shows it in its normal form.",
           [this] { return mUser.Click(Control(kQuantity)); });
    Person("He types the day of the delivery ...", [this] { return TypeOver(kDelivery, "Dec 1, 2026\n"); });
    Person("... and one that is over. The model makes today of it, and the field shows that.",
           [this] { return TypeOver(kDelivery, "Nov 1, 2026\n"); });
    Person("He types another quantity, and Command-O at once: that is what is ordered.", [this] {
        TypeOver(kQuantity, "3");
        return mUser.PressKey(kVK_ANSI_O, cmdKey);
    });
}

void Session::WriteSecondOrder()
{
    Person("The next order: a thing that the price list does not know.",
           [this] { return TypeOver(kName, "Sofa\t"); });
    PriceListAnswers("The answer arrives.");
    Person("He types a price himself.", [this] { return TypeOver(kPrice, "1299\n"); });
    Person("He chooses another currency. It has another price, and other places behind the point.",
           [this] { return mUser.ChooseInPopUp(Control(kCurrency), "JPY"); });
    Person("Before the answer arrives, he types the price. Of the tax, 36,109.5 yen, a half is rounded up.",
           [this] { return TypeOver(kPrice, "190050\n"); });
    PriceListAnswers("It comes too late to change that.");
    Person("He types a quantity that is none, and presses the button: nothing is ordered.", [this] {
        TypeOver(kQuantity, "1000");
        return mUser.Click(Control(kOrder));
    });
    Person("He types one that is, and presses it.", [this] {
        TypeOver(kQuantity, "2\n");
        return mUser.Click(Control(kOrder));
    });
    Person("He begins a third order, and closes the window while he types.", [this] {
        TypeOver(kName, "Lamp");
        return mUser.CloseWindow(mWindow.GetWindow());
    });
}

void Session::Person(const std::string& theText, const std::function<UserResult()>& theDeed)
{
    mScript.push_back({theText, theDeed, false});
}

void Session::PriceListAnswers(const std::string& theText)
{
    mScript.push_back({theText,
                       [this] {
                           mPriceList.LetAnswer();
                           return UserResult::Done();
                       },
                       true});
}

Host::ControlAddress Session::Control(Row theRow) const
{
    return Host::ControlAddress(mWindow.GetWindow(), ControlID{'Ordr', theRow});
}

UserResult Session::TypeOver(Row theRow, const std::string& theText)
{
    mUser.Click(Control(theRow));
    mUser.PressKey(kVK_ANSI_A, cmdKey);
    return mUser.TypeText(theText);
}

// Running ----------------------------------------------------------------------------------------------

void Session::TimerFired(EventLoopTimerRef, void* theSession)
{
    static_cast<Session*>(theSession)->GoOn();
}

void Session::GoOn()
{
    if (mIsPriceAwaited) {
        if (mPriceFinder.IsAsking()) {
            return;
        }
        mIsPriceAwaited = false;
        PrintState();
    }
    if (mNextAction == mScript.size()) {
        return;
    }
    const Action& theAction = mScript[mNextAction++];
    std::printf("\n%s\n", theAction.theText.c_str());
    const UserResult theResult = theAction.theDeed();
    if (!theResult) {
        std::printf("%s\n", theResult.Explain().c_str());
        mIsSuccessful = false;
        QuitApplicationEventLoop();
    }
    mIsPriceAwaited = theAction.isPriceAwaited;
    if (!mIsPriceAwaited) {
        PrintState();
    }
}

void Session::PrintState()
{
    std::vector<std::string> theLines;
    for (SInt32 theRow = kName; theRow <= kOrder; ++theRow) {
        theLines.push_back(DescribeRow(static_cast<Row>(theRow)));
    }
    mShownLines.resize(theLines.size());
    for (size_t theIndex = 0; theIndex < theLines.size(); ++theIndex) {
        if (theLines[theIndex] != mShownLines[theIndex]) {
            std::printf("  %s\n", theLines[theIndex].c_str());
        }
    }
    mShownLines.swap(theLines);
}

std::string Session::DescribeRow(Row theRow) const
{
    const Host::ControlAddress theNote(mWindow.GetWindow(), ControlID{'Note', theRow});
    LmControlBinding theText(theNote.Find());
    const std::string theSentence =
        theNote.Find() == nullptr ? "" : LmGetStdString(theText.GetKeyPathValue("value"));
    return mUser.DescribeControl(Control(theRow)) + (theSentence.empty() ? "" : "\n      " + theSentence);
}

} // namespace

int main()
{
    Session theSession;
    RunApplicationEventLoop();
    return theSession.WasSuccessful() ? 0 : 1;
}
