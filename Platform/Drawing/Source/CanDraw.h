// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CanDraw_h
#define CanDraw_h

namespace Host {

// Whether there is something that draws.
bool CanDraw();

} // namespace Host

#endif
