// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Glance_h
#define Glance_h

#include "HeadlessSnapshot.h"

#include <Presentation/PresenterRegistry.h>
#include <Simulation/UserSimulator.h>

namespace Host {

// The screen as it is now.
class Glance : public HeadlessSnapshot
{
public:
    Glance() { PresenterRegistry::ReplayLooks(*this); }
};

// A refusal with the screen as it is now.
inline UserResult Refuse(const std::string& theReason)
{
    return UserResult::Refused(theReason, Glance().DescribeScreen());
}

} // namespace Host

#endif
