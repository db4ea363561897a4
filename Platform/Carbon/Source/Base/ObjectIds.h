// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Base_ObjectIds_h
#define Base_ObjectIds_h

#include <Presentation/PresenterTypes.h>

namespace Host {

// The next number that no window, control or menu has had. Numbers start at 1; kNoObject stands for "none".
ObjectId NewObjectId();

} // namespace Host

#endif
