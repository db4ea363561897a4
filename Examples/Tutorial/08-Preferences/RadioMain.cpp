// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "RadioApplication.h"

int main()
{
    const RadioApplication theApplication;
    RunApplicationEventLoop();
}
