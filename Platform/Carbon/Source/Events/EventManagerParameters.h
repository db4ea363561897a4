// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Events_EventManagerParameters_h
#define Events_EventManagerParameters_h

#include <Carbon/Carbon.h>
#include <string>

namespace Host {

// Typed data as an event holds it. Where the type stands for a reference that has to stay alive (to a
// CoreFoundation object, an event or a menu), each copy of the data holds one count of its own.
class ParameterData
{
public:
    // Whether data of this size can be held as theType: what has to be retained must be one reference.
    static bool Fits(EventParamType theType, ByteCount theSize);

    // theSize and theType fit; theBytes may be null when theSize is 0.
    ParameterData(EventParamType theType, ByteCount theSize, const void* theBytes);
    ~ParameterData();
    ParameterData(const ParameterData& theOther);
    ParameterData(ParameterData&& theOther) noexcept;
    ParameterData& operator=(ParameterData theOther) noexcept;

    EventParamType Type() const { return mType; }
    const std::string& Bytes() const { return mBytes; }

    // The data as another type, as plain bytes. False when no conversion leads there.
    bool Convert(EventParamType theType, std::string* theResult) const;

private:
    void Retain() const;
    void Release() const;

    EventParamType mType;
    // A string keeps what is small in itself, as most data of events is. Empty after it was moved from, so
    // that nothing is released twice.
    std::string mBytes;
};

} // namespace Host

#endif
