// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "OrderWindow.h"
#include "PriceFinder.h"

#include <thread>

// As if it were somewhere in the network.
static SInt64 AskPriceList(const std::string& theName, const std::string& theCurrency)
{
    static const std::map<std::string, std::map<std::string, SInt64>> kPrices = {
        {"Chair", {{"EUR", 8990}, {"USD", 9900}, {"JPY", 14500}}},
        {"Desk", {{"EUR", 34900}, {"USD", 37950}, {"JPY", 56000}}},
        {"Lamp", {{"EUR", 4725}, {"USD", 5199}, {"JPY", 7600}}},
    };
    std::this_thread::sleep_for(std::chrono::milliseconds(700));
    const auto theArticle = kPrices.find(theName);
    return theArticle != kPrices.end() ? theArticle->second.at(theCurrency) : 0;
}

// The first instant of the day, as fields read it.
static SInt64 GetToday()
{
    const LmDateFormatter theDays(kCFDateFormatterMediumStyle);
    const LmValue theText = theDays.Format(LmValue(static_cast<SInt64>(CFAbsoluteTimeGetCurrent())));
    return theDays.Parse(theText.GetString()).theValue.GetSInt64();
}

int main()
{
    OrderModel theModel(GetToday());
    const OrderWindow theWindow(theModel);
    const PriceFinder thePrices(theModel, AskPriceList);
    RunApplicationEventLoop();
    return 0;
}
