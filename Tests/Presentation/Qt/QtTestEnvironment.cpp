// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What the tests with Qt need to run the same on every machine: no screen, and nothing of the desktop.
// LM_TEST_SCALE says how many pixels of the screen there are to one of the program.

#include <cstdlib>

namespace {

struct QtTestEnvironment
{
    QtTestEnvironment()
    {
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
        setenv("QT_STYLE_OVERRIDE", "Fusion", 1);
        setenv("XDG_RUNTIME_DIR", "/tmp", 0);
        const char* const theScale = std::getenv("LM_TEST_SCALE");
        setenv("QT_SCALE_FACTOR", theScale == nullptr ? "1" : theScale, 1);
        unsetenv("LM_SCREENSHOT");
    }
};

const QtTestEnvironment kEnvironment;

} // namespace

// What the font library keeps until the program ends, and forgets when its cache is replaced.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig.so\n";
}
