// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Peer_h
#define Peer_h

// What every library of the comparison does, each in a file of its own. A library leaves out what it has no
// means for, by making nothing.

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

enum class Payload
{
    kInteger,
    kDouble,
    kText
};

// The two texts of 20 characters that a key changes between; they differ at their ends.
constexpr const char* kPeerTexts[] = {"A text of 20 letters", "A text of 20 letterz"};

// A store, and which of its keys is set and observed: "k0", "k1"... up to theKeys, the one in the middle.
struct StoreShape
{
    Payload thePayload;
    std::size_t theKeys;
    std::size_t theObservers;
};

inline std::string PeerKey(std::size_t theIndex)
{
    return "k" + std::to_string(theIndex);
}

class PeerStore
{
public:
    virtual ~PeerStore() = default;

    // Sets the key to theNumber, or to the text for it: an even one, an odd one.
    virtual void Set(long theNumber) = 0;

    // How often observers were called so far, counted by themselves.
    virtual std::size_t GetCalls() const = 0;
};

// How one object follows another: one way, both ways, or both ways with twice the value.
enum class Hop
{
    kOneWay,
    kTwoWay,
    kScaled
};

// Objects of one key each, that follow each other.
class PeerGraph
{
public:
    virtual ~PeerGraph() = default;
    virtual void Bind(std::size_t theSource, std::size_t theTarget) = 0;
    virtual void Unbind(std::size_t theSource, std::size_t theTarget) = 0;

    // Sets an object's key to theNumber.
    virtual void Set(std::size_t theObject, long theNumber) = 0;
    virtual double Get(std::size_t theObject) const = 0;
};

class Peer
{
public:
    virtual ~Peer() = default;
    virtual const char* GetName() const = 0;

    // How often an observer is called for one change: before and after it, or only after it.
    virtual std::size_t GetCallsPerChange() const { return 1; }

    virtual std::unique_ptr<PeerStore> MakeStore(const StoreShape&) const { return nullptr; }
    virtual std::unique_ptr<PeerGraph> MakeGraph(std::size_t /*theObjects*/, Hop) const { return nullptr; }
};

// Adds a peer to the comparison; the places say in which order they are shown.
class PeerRegistration
{
public:
    PeerRegistration(int thePlace, const Peer& thePeer);
};

// All that were built, in their order.
std::vector<const Peer*> AllPeers();

#endif
