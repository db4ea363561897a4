// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef OrderWindow_h
#define OrderWindow_h

#include "LmMenuBinding.h"
#include "OrderModel.h"

// Any text but none.
class NameFormatter : public LmFormatter
{
    LmReading Parse(CFStringRef theText) const override
    {
        return CFStringGetLength(theText) > 0 ? LmReading::Accept(LmValue(theText, false))
                                              : LmReading::Refuse("What shall it be?");
    }
    LmValue Format(const LmValue& theName) const override { return Parse(theName.GetString()).theValue; }
};

// The window of an order form, with its menu. A person who closes it ends the event loop; the window goes
// with this object. Controls are numbered by their rows, from 1 on: what holds something has the signature
// 'Ordr', and what is wrong with it stands beside it, with 'Note'. The model must live longer.
class OrderWindow
{
public:
    explicit OrderWindow(OrderModel& theModel)
        : mModel(theModel)
    {
        LmNameObject(mState, "form");
        MakeWindow();
        MakeMenu();
        AddField(CFSTR("Name:"), "name", std::make_shared<NameFormatter>());
        AddField(CFSTR("Quantity:"), "quantity", std::make_shared<LmIntegerFormatter>(1, 999));
        AddCurrencies(CFSTR("Currency:"));
        mAmounts.push_back(AddField(CFSTR("Price:"), "price", NewAmountFormatter()));
        AddField(CFSTR("Discount:"), "discount", std::make_shared<LmPercentFormatter>(1, 0, 1000),
                 kCommitEachKey); // the total follows each key
        AddField(CFSTR("Delivery:"), "delivery",
                 std::make_shared<LmDateFormatter>(kCFDateFormatterMediumStyle));
        AddAmount(CFSTR("Net:"), "net");
        AddAmount(CFSTR("Tax (19%):"), "tax");
        AddAmount(CFSTR("Total:"), "total");
        AddStatusAndButton();
        ShowWindow(mWindow);
    }

    ~OrderWindow()
    {
        DisposeWindow(mWindow);
        DeleteMenu(kMenu);
    }

    WindowRef GetWindow() const { return mWindow; }

private:
    static constexpr MenuID kMenu = 128;
    static constexpr MenuCommand kPlaceOrder = 'ordr';

    void MakeWindow()
    {
        const Rect thePlace = {100, 100, 444, 620};
        const WindowAttributes theLook = kWindowStandardDocumentAttributes | kWindowStandardHandlerAttribute;
        ControlRef theRoot = nullptr;
        CreateNewWindow(kDocumentWindowClass, theLook, &thePlace, &mWindow);
        SetWindowTitleWithCFString(mWindow, CFSTR("Order form"));
        CreateRootControl(mWindow, &theRoot);
        // Of two handlers, the later one is called first. This one shall find what was typed taken, so it is
        // installed before the bindings of the fields are made.
        const EventTypeSpec theEvents[] = {{kEventClassCommand, kEventCommandProcess},
                                           {kEventClassWindow, kEventWindowClose}};
        InstallWindowEventHandler(mWindow, NewEventHandlerUPP(HandleEvent), 2, theEvents, this, nullptr);
    }

    static void MakeMenu()
    {
        MenuRef theMenu = nullptr;
        CreateNewMenu(kMenu, 0, &theMenu);
        SetMenuTitleWithCFString(theMenu, CFSTR("Order"));
        AppendMenuItemTextWithCFString(theMenu, CFSTR("Place Order"), 0, kPlaceOrder, nullptr);
        AppendMenuItemTextWithCFString(theMenu, CFSTR("Quit"), 0, kHICommandQuit, nullptr);
        SetMenuItemCommandKey(theMenu, 1, false, 'O');
        SetMenuItemCommandKey(theMenu, 2, false, 'Q');
        InsertMenu(theMenu, 0);
        ReleaseMenu(theMenu); // the menu bar holds it now
    }

    // Rows are made from the top to the bottom; this is in the last one.
    Rect PlaceFrom(short theLeft, short theRight) const
    {
        const short theTop = static_cast<short>(32 * mRow - 14);
        return {theTop, theLeft, static_cast<short>(theTop + 18), theRight};
    }

    ControlRef AddText(short theLeft, short theRight, SInt16 theSide, OSType theSignature,
                       CFStringRef theText = nullptr) const
    {
        const Rect thePlace = PlaceFrom(theLeft, theRight);
        const ControlFontStyleRec theStyle = {kControlUseJustMask, 0, 0, 0, 0, theSide, {}, {}};
        ControlRef theControl = nullptr;
        CreateStaticTextControl(mWindow, &thePlace, theText, &theStyle, &theControl);
        HIViewSetID(theControl, {theSignature, mRow});
        return theControl;
    }
    void BeginRow(CFStringRef theLabel)
    {
        ++mRow;
        AddText(20, 100, teFlushRight, 'Labl', theLabel);
    }

    LmTextFieldBinding* AddField(CFStringRef theLabel, const char* theKey,
                                 const LmSharedFormatter& theFormatter, unsigned theOptions = 0)
    {
        BeginRow(theLabel);
        const Rect thePlace = PlaceFrom(110, 250);
        ControlRef theControl = nullptr;
        CreateEditUnicodeTextControl(mWindow, &thePlace, nullptr, false, nullptr, &theControl);
        HIViewSetID(theControl, {'Ordr', mRow});
        LmTextFieldBinding* theField = new LmTextFieldBinding(theControl, theFormatter, theOptions);
        LmNameObject(*theField, theKey);
        // Without a value it is not valid. An observation tells each change once, so it is enough to count.
        mInvalidFields += 1;
        mObservations.emplace_back(theField, "valid", [this](const LmChange& theChange) {
            mInvalidFields += theChange.theNewValue.GetBoolean() ? -1 : 1;
            mState.SetKeyPathValue("complete", LmValue(mInvalidFields == 0));
        });
        theField->Bind("value", mModel.GetBindings(), theKey, nullptr, nullptr);
        Follow(new LmControlBinding(AddText(262, 500, teFlushLeft, 'Note')), "value", theField, "problem");
        return theField;
    }

    void AddAmount(CFStringRef theLabel, const char* theKey)
    {
        BeginRow(theLabel);
        ControlRef theText = AddText(110, 250, teFlushRight, 'Ordr');
        mAmounts.push_back(new LmTextFieldBinding(theText, NewAmountFormatter()));
        Follow(mAmounts.back(), "value", mModel.GetBindings(), theKey);
    }

    LmSharedFormatter NewAmountFormatter()
    {
        const LmValue theCurrency = mModel.Get("currency");
        return std::make_shared<LmCurrencyFormatter>(theCurrency.GetString(), 1, OrderModel::kHighestPrice);
    }

    void AddCurrencies(CFStringRef theLabel)
    {
        BeginRow(theLabel);
        const Rect thePlace = PlaceFrom(107, 253);
        MenuRef theMenu = nullptr;
        CreateNewMenu(0, 0, &theMenu);
        for (CFStringRef theCode : {CFSTR("EUR"), CFSTR("USD"), CFSTR("JPY")}) {
            AppendMenuItemTextWithCFString(theMenu, theCode, 0, 0, nullptr);
        }
        ControlRef theButton = nullptr;
        CreatePopupButtonControl(mWindow, &thePlace, nullptr, -12345, false, 0, 0, normal, &theButton);
        SetControlData(theButton, 0, kControlPopupButtonOwnedMenuRefTag, sizeof theMenu, &theMenu);
        HIViewSetID(theButton, {'Ordr', mRow});
        mCurrency.SetControl(theButton);
        mCurrency.Bind("title", mModel.GetBindings(), "currency", nullptr, nullptr);
        mObservations.emplace_back(mModel.GetBindings(), "currency", [this](const LmChange&) {
            for (LmTextFieldBinding* theAmount : mAmounts) {
                theAmount->SetFormatter(NewAmountFormatter());
            }
        });
    }

    void AddStatusAndButton()
    {
        ++mRow;
        const Rect thePlace = PlaceFrom(420, 500);
        ControlRef theButton = nullptr;
        CreatePushButtonControl(mWindow, &thePlace, CFSTR("Order"), &theButton);
        HIViewSetID(theButton, {'Ordr', mRow});
        SetControlCommandID(theButton, kPlaceOrder);
        SetWindowDefaultButton(mWindow, theButton);
        Follow(new LmControlBinding(theButton), "enabled", &mState, "complete");
        Follow(new LmMenuBinding(kPlaceOrder), "enabled", &mState, "complete");
        Follow(new LmControlBinding(AddText(20, 410, teFlushLeft, 'Note')), "value", mModel.GetBindings(),
               "status");
    }

    void Follow(LmKeyValueStore* theObject, const char* theKey, LmKeyValueStore* theSource,
                const char* theSourceKey)
    {
        mBindings.push_back(LmScopedBinding::OneWay(theObject, theKey, theSource, theSourceKey));
    }

    static OSStatus HandleEvent(EventHandlerCallRef, EventRef theEvent, void* theObject)
    {
        OrderWindow& theWindow = *static_cast<OrderWindow*>(theObject);
        HICommand theCommand = {};
        GetEventParameter(theEvent, kEventParamDirectObject, typeHICommand, nullptr, sizeof theCommand,
                          nullptr, &theCommand);
        if (GetEventClass(theEvent) == kEventClassWindow) {
            QuitApplicationEventLoop();
        } else if (theCommand.commandID != kPlaceOrder) {
            return eventNotHandledErr;
        } else if (theWindow.mInvalidFields == 0) { // the last text may have been refused just now
            theWindow.mModel.PlaceOrder();
        }
        return noErr;
    }

    OrderModel& mModel;
    WindowRef mWindow = nullptr;
    SInt32 mRow = 0;
    int mInvalidFields = 0;
    LmKeyValueBinding mState; // "complete": whether all fields are valid
    LmChoiceBinding mCurrency;
    std::vector<LmTextFieldBinding*> mAmounts; // not owned: a binding goes with its control
    std::vector<LmScopedBinding> mBindings;
    std::vector<LmObservation> mObservations;
};

#endif
