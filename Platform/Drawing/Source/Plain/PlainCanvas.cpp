// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The canvas of builds without Cairo: there is none.

#include "Canvas.h"

namespace Host {

std::unique_ptr<Canvas> MakeCanvas(const PixelMemory&)
{
    return nullptr;
}

bool CanDraw()
{
    return false;
}

} // namespace Host
