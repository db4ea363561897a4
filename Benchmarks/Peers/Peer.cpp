// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Peer.h"

#include <map>

namespace {

std::map<int, const Peer*>& Registered()
{
    static std::map<int, const Peer*> kPeers;
    return kPeers;
}

} // namespace

PeerRegistration::PeerRegistration(int thePlace, const Peer& thePeer)
{
    Registered()[thePlace] = &thePeer;
}

std::vector<const Peer*> AllPeers()
{
    std::vector<const Peer*> thePeers;
    for (const auto& theEntry : Registered()) {
        thePeers.push_back(theEntry.second);
    }
    return thePeers;
}
