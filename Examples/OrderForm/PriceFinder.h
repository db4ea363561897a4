// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef PriceFinder_h
#define PriceFinder_h

#include "OrderModel.h"

#include <future>
#include <map>

// Finds the price of what an order names, anew when name or currency change. Threads wait for the answers, so
// the person can go on; a price that he has typed meanwhile is left alone. The model must live longer.
class PriceFinder
{
public:
    // The price in the smallest unit of the currency, or 0 where there is none. It is called on other
    // threads, also on several at once, and may take its time.
    using PriceList = std::function<SInt64(const std::string& theName, const std::string& theCurrency)>;

    PriceFinder(OrderModel& theModel, PriceList thePriceList)
        : mModel(theModel),
          mPriceList(std::move(thePriceList)),
          mName(theModel.GetBindings(), "name", [this](const LmChange&) { Ask(); }),
          mCurrency(theModel.GetBindings(), "currency", [this](const LmChange&) { Ask(); })
    {
    }

    bool IsAsking() const { return !mThreads.empty(); } // whether a question has no answer yet

private:
    void Ask()
    {
        const std::string theName = LmGetStdString(mModel.Get("name"));
        const std::string theCurrency = LmGetStdString(mModel.Get("currency"));
        const int theQuestion = ++mLastQuestion;
        mModel.Set("price", LmMakeStringValue(""));
        if (!theName.empty()) {
            mModel.Set("status", LmMakeStringValue("Looking up the price …"));
            // The thread gets copies of what it needs: the model is for the main thread alone.
            mThreads[theQuestion] = std::async(std::launch::async, [=, thePoster = mQueue.GetPoster()] {
                const SInt64 thePrice = mPriceList(theName, theCurrency);
                // This is called on the main thread, or never when the queue, and so this object, has gone.
                thePoster.Call([=] { TakeAnswer(theQuestion, thePrice); });
            });
        }
    }

    void TakeAnswer(int theQuestion, SInt64 thePrice)
    {
        mThreads.erase(theQuestion); // its thread has nothing else to do
        const bool theIsLate = theQuestion != mLastQuestion || mModel.HasPrice();
        if (thePrice != 0 && !theIsLate) {
            mModel.Set("price", LmValue(thePrice));
        } else if (!theIsLate) {
            mModel.Set("status", LmMakeStringValue("No price is known; please type one."));
        }
    }

    OrderModel& mModel;
    const PriceList mPriceList;
    const LmMainQueue mQueue;
    std::map<int, std::future<void>> mThreads; // by question; what goes waits for its thread
    int mLastQuestion = 0;
    LmObservation mName;
    LmObservation mCurrency;
};

#endif
