// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Events_EventManager_h
#define Events_EventManager_h

#include "EventManagerParameters.h"

#include <array>
#include <atomic>
#include <Carbon/Carbon.h>
#include <cstddef>
#include <memory>
#include <memory_resource>
#include <utility>
#include <vector>

namespace Host {

class Event;
using SharedEvent = std::shared_ptr<Event>;

// What stands behind an event's reference. It counts its references itself; at zero it leaves the table of
// events and dies with the last call that still works on it.
//
// The host's own code finds an event once and goes on with this; each function of the C interface finds it
// anew.
class Event
{
public:
    Event(const EventTypeSpec& theType, EventTime theTime, EventAttributes theAttributes);

    // A new event with one count, in the table of events. Throws std::bad_alloc.
    static SharedEvent Make(const EventTypeSpec& theType, EventTime theTime, EventAttributes theAttributes);

    // The event that a reference stands for; null for none.
    static SharedEvent Find(EventRef theReference);

    // A new event like this one, but for its type, with one count. Throws std::bad_alloc.
    SharedEvent CopyAs(const EventTypeSpec& theType) const;

    EventRef Reference() const { return mReference; }
    const EventTypeSpec& Type() const { return mType; }
    EventTime Time() const { return mTime; }
    void SetTime(EventTime theTime) { mTime = theTime; }
    EventAttributes Attributes() const { return mAttributes; }

    ItemCount Count() const { return mCount.load(); }
    void Retain() { ++mCount; }
    void Release();

    // Null when there is none.
    const ParameterData* Parameter(EventParamName theName) const;

    // Takes the place of an earlier one. The data must fit, see ParameterData. Throws std::bad_alloc, and
    // then the event is as it was.
    void SetParameter(EventParamName theName, EventParamType theType, ByteCount theSize,
                      const void* theBytes);

    // False when there was none.
    bool RemoveParameter(EventParamName theName);

private:
    struct NamedParameter
    {
        NamedParameter(EventParamName theParameterName, EventParamType theType, ByteCount theSize,
                       const void* theBytes)
            : theName(theParameterName),
              theData(theType, theSize, theBytes)
        {
        }

        EventParamName theName;
        ParameterData theData;
    };

    static SharedEvent Enter(SharedEvent theEvent);

    // Where the parameter is in a list, or the end of the list.
    template <class Parameters>
    static auto Find(Parameters& theParameters, EventParamName theName);

    EventTypeSpec mType;
    EventTime mTime;
    EventAttributes mAttributes;
    // Parameters are few, so that a search beats a map, and usually there is room for them in the event.
    static constexpr size_t kUsualParameters = 8;
    alignas(NamedParameter) std::array<std::byte, kUsualParameters * sizeof(NamedParameter)> mRoom;
    std::pmr::monotonic_buffer_resource mMemory{mRoom.data(), mRoom.size(), std::pmr::new_delete_resource()};
    std::pmr::vector<NamedParameter> mParameters{&mMemory};
    std::atomic<ItemCount> mCount{1};
    EventRef mReference = nullptr;
};

// Sets a parameter as SetEventParameter does, in an event that has been found.
OSStatus WriteEventParameter(Event& theEvent, EventParamName theName, EventParamType theType,
                             ByteCount theSize, const void* theBytes);

// Reads a parameter as GetEventParameter does, from an event that has been found.
OSStatus ReadEventParameter(const Event& theEvent, EventParamName theName, EventParamType theDesiredType,
                            EventParamType* theActualType, ByteCount theBufferSize, ByteCount* theActualSize,
                            void* theBuffer);

// Holds a count on an event while something that might release it is called: its handlers.
//
// These ask about their event again and again, so the one held last on a thread is found without the table.
class [[nodiscard]] EventHolder
{
public:
    explicit EventHolder(SharedEvent theEvent);
    ~EventHolder();
    EventHolder(const EventHolder&) = delete;
    EventHolder& operator=(const EventHolder&) = delete;

    // The event that a reference stands for, if it is the one held last on this thread; else null.
    static const SharedEvent* Find(EventRef theReference);

private:
    SharedEvent mEvent;
    const EventHolder* mOuter;
};

} // namespace Host

#endif
