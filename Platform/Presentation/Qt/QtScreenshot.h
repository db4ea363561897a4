// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef QtScreenshot_h
#define QtScreenshot_h

class QWidget;

namespace Host {

// Whether LM_SCREENSHOT asks for a picture that was not taken yet.
bool IsScreenshotWanted();

// Takes it. A file that cannot be written is said so in one line on the standard error stream.
void TakeScreenshotOf(QWidget& theWindow);

} // namespace Host

#endif
