// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef DescriptorTestSupport_h
#define DescriptorTestSupport_h

#include <Carbon/Carbon.h>
#include <cstring>
#include <gtest/gtest.h>
#include <string>

// A descriptor that is disposed of at the end.
class TestDescriptor
{
public:
    TestDescriptor() = default;
    TestDescriptor(DescType theType, const std::string& theBytes)
    {
        EXPECT_EQ(AECreateDesc(theType, theBytes.data(), static_cast<Size>(theBytes.size()), &mDescriptor),
                  noErr);
    }
    ~TestDescriptor() { AEDisposeDesc(&mDescriptor); }
    TestDescriptor(const TestDescriptor&) = delete;
    TestDescriptor& operator=(const TestDescriptor&) = delete;

    operator AEDesc*() { return &mDescriptor; }
    DescType Type() const { return mDescriptor.descriptorType; }

    // The bytes, or the status that there are none.
    std::string Bytes() const
    {
        std::string theBytes(static_cast<size_t>(AEGetDescDataSize(&mDescriptor)), '\0');
        const OSErr theStatus =
            AEGetDescData(&mDescriptor, theBytes.data(), static_cast<Size>(theBytes.size()));
        return theStatus == noErr ? theBytes : std::to_string(theStatus);
    }

private:
    AEDesc mDescriptor = {typeNull, nullptr};
};

// A list or record.
class TestList : public TestDescriptor
{
public:
    explicit TestList(bool theIsRecord = false)
    {
        EXPECT_EQ(AECreateList(nullptr, 0, theIsRecord, *this), noErr);
    }

    long Count()
    {
        long theCount = -1;
        EXPECT_EQ(AECountItems(*this, &theCount), noErr);
        return theCount;
    }

    // An item's bytes, as they are.
    std::string At(long theIndex)
    {
        TestDescriptor theItem;
        const OSErr theStatus = AEGetNthDesc(*this, theIndex, typeWildCard, nullptr, theItem);
        return theStatus == noErr ? theItem.Bytes() : std::to_string(theStatus);
    }
};

// The bytes of a value.
template <class Value>
std::string BytesOfValue(Value theValue)
{
    std::string theBytes(sizeof theValue, '\0');
    std::memcpy(theBytes.data(), &theValue, sizeof theValue);
    return theBytes;
}

inline OSErr Put(AEDesc* theList, long theIndex, const std::string& theText)
{
    return AEPutPtr(theList, theIndex, typeChar, theText.data(), static_cast<Size>(theText.size()));
}

inline OSErr PutParameter(AEDesc* theRecord, AEKeyword theKeyword, const std::string& theText)
{
    return AEPutParamPtr(theRecord, theKeyword, typeChar, theText.data(), static_cast<Size>(theText.size()));
}

#endif
