// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Windows_Icons_h
#define Windows_Icons_h

#include <Carbon/Carbon.h>
#include <Presentation/PresenterTypes.h>

namespace Host {

// What a presenter draws for an icon; kNone for what is none.
HOST_PUBLIC PictureShape PictureOf(IconRef theIcon);

} // namespace Host

#endif
