// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmLifeWatch.h"

LmLifeWatch* LmLifeWatch::sInnermost = nullptr;

LmLifeWatch::LmLifeWatch(const LmKeyValueStore* theStore)
    : mStore(theStore)
{
}

LmLifeWatch::~LmLifeWatch() = default;

void LmLifeWatch::StoreIsGone(const LmKeyValueStore* theStore)
{
    VisitAll([theStore](LmLifeWatch& theWatch) {
        if (theWatch.mStore == theStore) {
            theWatch.mStore = nullptr;
        }
    });
}
