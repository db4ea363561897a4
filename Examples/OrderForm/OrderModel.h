// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef OrderModel_h
#define OrderModel_h

#include "LmBindable.h"
#include "LmControllers.h"
#include "LmConveniences.h"
#include "LmJournalHook.h"

#include <algorithm>

// The state of an order, apart from any window. Its keys are those of GetBindings():
//
//     "name"       what is ordered; empty in a new order
//     "quantity"   how many, 1 to 999
//     "currency"   its code: "EUR", "USD" or "JPY"
//     "price"      of one, up to kHighestPrice; an empty string while nobody knows it
//     "discount"   in tenths of a percent, 0 to 1000
//     "delivery"   the day, in seconds since 2001; one before today becomes today
//     "status"     a sentence for the person
//     "net"        price times quantity, less the discount; "tax" is 19% of it, "total" is both together
//
// Amounts are whole numbers of the currency's smallest unit, cents or yen. So stores, which compare numbers
// as integers, notice every difference. "net" and "tax" are rounded to the nearest unit, halves up.
class OrderModel : public LmBindable
{
public:
    static constexpr SInt64 kHighestPrice = 99999999;

    explicit OrderModel(SInt64 theToday) // a new order, to be delivered at once
        : mToday(theToday)
    {
        LmNameObject(*this, "order"); // so that journals and the inspector call it that
        Set("currency", LmMakeStringValue("EUR"));
        Set("status", LmMakeStringValue(""));
        BeginOrder();
        DeriveAmounts();
        for (const char* theKey : {"price", "quantity", "discount"}) {
            mObservations.emplace_back(GetBindings(), theKey, [this](const LmChange&) { DeriveAmounts(); });
        }
        mObservations.emplace_back(GetBindings(), "delivery", [this](const LmChange& theChange) {
            Set("delivery", LmValue(std::max(theChange.theNewValue.GetSInt64(), mToday)));
        });
    }

    // Says what was ordered, and begins a new order.
    void PlaceOrder()
    {
        const std::string theQuantity = std::to_string(Get("quantity").GetSInt32());
        Set("status", LmMakeStringValue("Ordered: " + theQuantity + " × " + LmGetStdString(Get("name"))));
        BeginOrder();
    }

    LmValue Get(const char* theKey) { return GetBindings()->GetKeyPathValue(theKey); }
    void Set(const char* theKey, const LmValue& theNew) { GetBindings()->SetKeyPathValue(theKey, theNew); }
    bool HasPrice() { return !Get("price").IsString(); }

private:
    void BeginOrder()
    {
        LmChangeGroup theGroup; // sets all of this at the end of the block
        theGroup.Set(GetBindings(), "name", LmMakeStringValue(""));
        theGroup.Set(GetBindings(), "quantity", LmValue(1));
        theGroup.Set(GetBindings(), "price", LmMakeStringValue(""));
        theGroup.Set(GetBindings(), "discount", LmValue(0));
        theGroup.Set(GetBindings(), "delivery", LmValue(mToday));
    }

    void DeriveAmounts()
    {
        const SInt64 thePrice = HasPrice() ? Get("price").GetSInt64() * Get("quantity").GetSInt64() : 0;
        const SInt64 theNet = (thePrice * (1000 - Get("discount").GetSInt64()) + 500) / 1000;
        const SInt64 theTax = (theNet * 19 + 50) / 100;
        const LmValue theUnknown = LmMakeStringValue("");
        Set("net", HasPrice() ? LmValue(theNet) : theUnknown);
        Set("tax", HasPrice() ? LmValue(theTax) : theUnknown);
        Set("total", HasPrice() ? LmValue(theNet + theTax) : theUnknown);
        if (HasPrice()) {
            Set("status", theUnknown); // which was about the price
        }
    }

    const SInt64 mToday;
    std::vector<LmObservation> mObservations;
};

#endif
