// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "QtScreenshot.h"

#include <cstdio>
#include <QPixmap>
#include <QString>
#include <QWidget>

namespace Host {

namespace {

constexpr char kVariable[] = "LM_SCREENSHOT";

bool gIsTaken = false;

} // namespace

bool IsScreenshotWanted()
{
    return !gIsTaken && !qEnvironmentVariableIsEmpty(kVariable);
}

void TakeScreenshotOf(QWidget& theWindow)
{
    gIsTaken = true;
    const QString theFile = qEnvironmentVariable(kVariable);
    if (!theWindow.grab().save(theFile)) {
        std::fprintf(stderr, "%s: the picture cannot be written to \"%s\"\n", kVariable,
                     theFile.toUtf8().constData());
    }
}

} // namespace Host
