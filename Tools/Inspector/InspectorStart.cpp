// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "InspectorKeys.h"
#include "LmExport.h"

#include <QGuiApplication>

// The two functions that the library of the desktop calls by their names.

namespace {

InspectorKeys* gKeys = nullptr; // not deleted at the end of the program, when Qt cannot be used any more

// Runs as soon as there is an application of Qt's.
void WatchKeys()
{
    if (gKeys == nullptr) {
        gKeys = new InspectorKeys;
        qGuiApp->installEventFilter(gKeys);
    }
}

} // namespace

extern "C" {
LM_EXPORT void LmPrepareInspectorWindow();
LM_EXPORT void LmRemoveInspectorWindow();
}

void LmPrepareInspectorWindow()
{
    qAddPreRoutine(WatchKeys);
}

void LmRemoveInspectorWindow()
{
    delete gKeys;
    gKeys = nullptr;
}
