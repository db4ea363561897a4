// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ManagerTestSupport.h"

// Only compiled: the tests of the managers make hundreds of these, and what they use is linked to them.
[[maybe_unused]] static void WatchASlider(ControlRef theSlider, Log& theLog)
{
    // @code 1
}
