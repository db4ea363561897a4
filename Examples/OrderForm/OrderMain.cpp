// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "OrderWindow.h"
#include "PriceFinder.h"

#include <thread>

static SInt64 AskPriceList(const std::string& theName, const std::string& theCurrency)
{
    static const std::map<std::string, std::map<std::string, SInt64>> kPrices = {
        {"Chair", {{"EUR", 8990}, {"USD", 9900}, {"JPY", 14500}}},
        {"Desk", {{"EUR", 34900}, {"USD", 37950}, {"JPY", 56000}}},
        {"Lamp", {{"EUR", 4725}, {"USD", 5199}, {"JPY", 7600}}},
    };
    std::this_thread::sleep_for(std::chrono::milliseconds(700)); // as if it were somewhere in the network
    const auto theArticle = kPrices.find(theName);
    return theArticle != kPrices.end() ? theArticle->second.at(theCurrency) : 0;
}

int main()
{
    const LmDateFormatter theDays(kCFDateFormatterMediumStyle);
    const LmValue theDate = theDays.Format(LmValue(static_cast<SInt64>(CFAbsoluteTimeGetCurrent())));
    OrderModel theModel(theDays.Parse(theDate.GetString()).theValue.GetSInt64()); // the day's first instant
    const OrderWindow theWindow(theModel);
    const PriceFinder thePrices(theModel, AskPriceList);
    RunApplicationEventLoop();
    return 0;
}
