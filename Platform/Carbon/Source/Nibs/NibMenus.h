// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Nibs_NibMenus_h
#define Nibs_NibMenus_h

#include "Nib.h"

namespace Host {

// Makes a menu with its items and submenus. The result belongs to the caller; null when the call fails.
OSStatus MakeNibMenu(const NibObject& theObject, NibLimit& theLimit, MenuRef* theMenu);

} // namespace Host

#endif
