// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef PresenterKinds_h
#define PresenterKinds_h

#include <vector>

#include <Presentation/PresenterRegistry.h>

// A presenter that the tests which every presenter owes are run with.
struct PresenterKind
{
    const char* theName;
    Host::PresenterFactory theFactory;
};

// Those of this test program.
std::vector<PresenterKind> PresenterKinds();

#endif
