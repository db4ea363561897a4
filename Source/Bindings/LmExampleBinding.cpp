// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmExampleBinding.h"

#include "LmUpdateScope.h"

#include <cstdio>

namespace {

const char kKeyOne[] = "one";
const char kKeyTwo[] = "two";
const char kKeyThree[] = "three";

enum ModelEvent : UInt32
{
    kOneChanged = 1,
    kTwoChanged = 2,
    kThreeChanged = 3
};

} // namespace

LmExampleBinding::LmExampleBinding()
    : mModel(nullptr),
      mUpdateModel(true)
{
}

LmExampleBinding::~LmExampleBinding() = default;

LmString LmExampleBinding::GetDebugInfo() const
{
    char theText[64];
    std::snprintf(theText, sizeof theText, "[Model 0x%lX]", reinterpret_cast<unsigned long>(mModel));
    return LmString(theText);
}

void LmExampleBinding::SetModel(void* theModel)
{
    mModel = theModel;
    mUpdateModel = true;
    if (theModel == nullptr) {
        return;
    }
    LmSyncKeys(this, mUpdateModel, {kKeyOne, kKeyTwo, kKeyThree});
}

void LmExampleBinding::SetKeyValue(const LmString& theKey, const LmValue& theValue)
{
    if (mModel != nullptr && mUpdateModel) {
        WriteModel(theKey, theValue);
    }
    LmKeyValueStore::SetKeyValue(theKey, theValue);
}

// A binding for a real model sets the property that belongs to the key, with a branch for each key. Where
// that may end the binding, SetKeyValue keeps an LmLifeWatch across this call. The example's properties are
// constants, so there is nothing to set.
void LmExampleBinding::WriteModel(const LmString&, const LmValue&) {}

void LmExampleBinding::SyncValue(const LmString& theKey)
{
    if (mModel == nullptr) {
        std::fprintf(stderr, "%s, line %d: mModel != NULL\n", __FILE__, __LINE__);
    }
    const LmValue theValue = ReadModel(theKey);
    if (theValue.IsValid()) {
        SetKeyPathValue(theKey, theValue);
    }
}

// A binding for a real model asks mModel for the property.
LmValue LmExampleBinding::ReadModel(const LmString& theKey) const
{
    LmValue theValue;
    if (theKey == kKeyOne) {
        theValue.SetBoolean(true);
    } else if (theKey == kKeyTwo) {
        theValue.SetUInt32(0);
    } else if (theKey == kKeyThree) {
        theValue.SetString(nullptr, false);
    }
    return theValue;
}

void LmExampleBinding::DoEventFromModel(UInt32 theEvent)
{
    const LmUpdateScope theScope(this, mUpdateModel);
    switch (theEvent) {
    case kOneChanged:
        SyncValue(kKeyOne);
        break;
    case kTwoChanged:
        SyncValue(kKeyTwo);
        break;
    case kThreeChanged:
        SyncValue(kKeyThree);
        break;
    default:
        break;
    }
}
