// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmPreferenceBinding.h"

#include "LmDiagnostics.h"
#include "LmJournal.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace {

// A reference that a Create or Copy call has given, or null; released at the end of the scope.
class [[nodiscard]] OwnedObject
{
public:
    explicit OwnedObject(CFTypeRef theObject)
        : mObject(theObject)
    {
    }
    ~OwnedObject()
    {
        if (mObject != nullptr) {
            CFRelease(mObject);
        }
    }

    OwnedObject(const OwnedObject&) = delete;
    OwnedObject& operator=(const OwnedObject&) = delete;

    bool Exists() const { return mObject != nullptr; }
    CFTypeRef Get() const { return mObject; }
    CFStringRef GetString() const { return static_cast<CFStringRef>(mObject); }

private:
    CFTypeRef mObject;
};

// How points, sizes and rectangles lie in the preferences: in memory order, so in the machine's.
struct GeometryData
{
    UInt8 theTag[4];
    Float32 theNumbers[4];
};
static_assert(sizeof(GeometryData) == 20);

const UInt8 kPointTag[] = {'p', 'o', 'i', 'n'};
const UInt8 kSizeTag[] = {'s', 'i', 'z', 'e'};
const UInt8 kRectTag[] = {'r', 'e', 'c', 't'};

bool HasTag(const GeometryData& theData, const UInt8 (&theTag)[4])
{
    return std::equal(theTag, theTag + 4, theData.theTag);
}

CFTypeRef CreateKey(const LmString& theKey)
{
    return CFStringCreateWithCString(nullptr, theKey.GetUTF8(), kCFStringEncodingUTF8);
}

// ---- Reading

template <typename Number>
LmValue ReadNumberAs(CFNumberRef theNumber, CFNumberType theType)
{
    Number theResult = 0;
    return CFNumberGetValue(theNumber, theType, &theResult) ? LmValue(theResult) : LmValue();
}

LmValue ReadShortNumber(CFNumberRef theNumber)
{
    SInt32 theResult = 0;
    const bool isExact = CFNumberGetValue(theNumber, kCFNumberSInt32Type, &theResult) != 0;
    return isExact ? LmValue(static_cast<long>(theResult)) : LmValue();
}

// On purpose: the types of C numbers are refused, although they could be converted.
LmValue ReadNumber(CFNumberRef theNumber)
{
    const CFNumberType theType = CFNumberGetType(theNumber);
    switch (theType) {
    case kCFNumberSInt8Type:
    case kCFNumberSInt16Type:
    case kCFNumberSInt32Type:
    case kCFNumberCFIndexType:
        return ReadShortNumber(theNumber);
    case kCFNumberSInt64Type:
        return ReadNumberAs<long long>(theNumber, kCFNumberSInt64Type);
    case kCFNumberFloat32Type:
    case kCFNumberFloat64Type:
        return ReadNumberAs<double>(theNumber, kCFNumberFloat64Type);
    default:
        LM_ERROR("Unknown CFNumber type: %d", static_cast<int>(theType));
        return LmValue();
    }
}

// The first bytes of theData, with zeros for what is missing.
GeometryData CopyBytes(CFDataRef theData)
{
    UInt8 theBytes[sizeof(GeometryData)] = {};
    const CFIndex theLength = std::min(CFDataGetLength(theData), static_cast<CFIndex>(sizeof theBytes));
    CFDataGetBytes(theData, CFRangeMake(0, theLength), theBytes);
    GeometryData theResult;
    std::memcpy(&theResult, theBytes, sizeof theResult);
    return theResult;
}

LmValue RefuseData(const GeometryData& theData, CFIndex theLength)
{
    // The tag as the machine's own number, signed as on 32-bit systems.
    SInt32 theTag = 0;
    if (theLength >= static_cast<CFIndex>(sizeof theTag)) {
        std::memcpy(&theTag, theData.theTag, sizeof theTag);
    }
    LM_ERROR("Unknown LmData type: %ld", static_cast<long>(theTag));
    return LmValue();
}

LmValue ReadGeometry(CFDataRef theProperty)
{
    const GeometryData theData = CopyBytes(theProperty);
    const Float32* theNumbers = theData.theNumbers;
    const CFIndex theLength = CFDataGetLength(theProperty);
    if (theLength < static_cast<CFIndex>(sizeof theData)) {
        return RefuseData(theData, theLength);
    }
    if (HasTag(theData, kRectTag)) {
        return LmValue(CGRect{{theNumbers[0], theNumbers[1]}, {theNumbers[2], theNumbers[3]}});
    }
    if (HasTag(theData, kSizeTag)) {
        return LmValue(CGSize{theNumbers[0], theNumbers[1]});
    }
    if (HasTag(theData, kPointTag)) {
        return LmValue(CGPoint{theNumbers[0], theNumbers[1]});
    }
    return RefuseData(theData, theLength);
}

LmValue ReadProperty(CFTypeRef theProperty)
{
    const CFTypeID theType = CFGetTypeID(theProperty);
    if (theType == CFBooleanGetTypeID()) {
        return LmValue(CFBooleanGetValue(static_cast<CFBooleanRef>(theProperty)) != 0);
    }
    if (theType == CFNumberGetTypeID()) {
        return ReadNumber(static_cast<CFNumberRef>(theProperty));
    }
    if (theType == CFStringGetTypeID()) {
        return LmValue(static_cast<CFStringRef>(theProperty), false);
    }
    if (theType == CFDataGetTypeID()) {
        return ReadGeometry(static_cast<CFDataRef>(theProperty));
    }
    LM_ERROR("Unsupported value type: %ld", static_cast<long>(theType));
    return LmValue();
}

// ---- Writing

CFTypeRef CreateNumber(const LmValue& theValue)
{
    switch (theValue.GetType()) {
    case kTypeUInt32:
    case kTypeSInt32: {
        const SInt32 theNumber = static_cast<SInt32>(theValue.GetSInt32());
        return CFNumberCreate(nullptr, kCFNumberSInt32Type, &theNumber);
    }
    case kTypeUInt64:
    case kTypeSInt64: {
        const long long theNumber = theValue.GetSInt64();
        return CFNumberCreate(nullptr, kCFNumberSInt64Type, &theNumber);
    }
    case kTypeDouble: {
        const double theNumber = theValue.GetDouble();
        return CFNumberCreate(nullptr, kCFNumberFloat64Type, &theNumber);
    }
    default: // GCOVR_EXCL_LINE: no number is of another kind
        LM_ERROR("Unknown number type: %d", static_cast<int>(theValue.GetType())); // GCOVR_EXCL_LINE
        return nullptr;                                                            // GCOVR_EXCL_LINE
    }
}

CFTypeRef CreateGeometry(const UInt8 (&theTag)[4], const Float32 (&theNumbers)[4])
{
    UInt8 theBytes[sizeof(GeometryData)];
    std::memcpy(theBytes, theTag, sizeof theTag);
    std::memcpy(theBytes + sizeof theTag, theNumbers, sizeof theNumbers);
    return CFDataCreate(nullptr, theBytes, sizeof theBytes);
}

CFTypeRef CreatePoint(const CGPoint& thePoint)
{
    return CreateGeometry(kPointTag, {thePoint.x, thePoint.y, 0, 0});
}

CFTypeRef CreateSize(const CGSize& theSize)
{
    return CreateGeometry(kSizeTag, {theSize.width, theSize.height, 0, 0});
}

CFTypeRef CreateRect(const CGRect& theRect)
{
    return CreateGeometry(kRectTag,
                          {theRect.origin.x, theRect.origin.y, theRect.size.width, theRect.size.height});
}

// The property that stands for theValue, with one reference for the caller; null when there is none.
CFTypeRef CreateProperty(const LmValue& theValue)
{
    if (theValue.IsBoolean()) {
        return CFRetain(theValue.GetBoolean() ? kCFBooleanTrue : kCFBooleanFalse);
    }
    if (theValue.IsNumber()) {
        return CreateNumber(theValue);
    }
    if (theValue.IsString()) {
        return theValue.GetString() != nullptr ? CFRetain(theValue.GetString()) : nullptr;
    }
    if (theValue.IsPoint()) {
        return CreatePoint(theValue.GetPoint());
    }
    if (theValue.IsSize()) {
        return CreateSize(theValue.GetSize());
    }
    if (theValue.IsRect()) {
        return CreateRect(theValue.GetRect());
    }
    LM_ERROR("Unsupported value type: %d", static_cast<int>(theValue.GetType()));
    return nullptr;
}

// Writes to the journal that a key was read or set. For those who know that something is on: out of the way
// of the others.
[[gnu::cold, gnu::noinline]] void NoteAccess(LmJournalKind theKind, const LmKeyValueStore& theBinding,
                                             const LmString& theKey, const LmValue& theValue)
{
    LmWriteNote(nullptr, [&] {
        LmJournalEntry theEntry{theKind};
        theEntry.theObject = &theBinding;
        theEntry.theKey = &theKey;
        theEntry.theValue = &theValue;
        return theEntry;
    });
}

// What the application's preferences hold under theName, which stands for theKey.
LmValue ReadPreference(const LmKeyValueStore& theBinding, const LmString& theKey, const OwnedObject& theName,
                       CFStringRef theApplicationID)
{
    const OwnedObject theProperty(CFPreferencesCopyAppValue(theName.GetString(), theApplicationID));
    LmValue theValue = theProperty.Exists() ? ReadProperty(theProperty.Get()) : LmValue();
    if (LmJournal::IsAnythingOn()) {
        NoteAccess(kJournalRead, theBinding, theKey, theValue);
    }
    return theValue;
}

} // namespace

LmPreferenceBinding::LmPreferenceBinding(CFStringRef theApplicationID)
    : mApplicationID(static_cast<CFStringRef>(CFRetain(theApplicationID)))
{
}

LmPreferenceBinding::~LmPreferenceBinding()
{
    // Nobody is left to be told that it failed.
    Flush();
    CFRelease(mApplicationID);
    mApplicationID = nullptr;
}

LmString LmPreferenceBinding::GetDebugInfo() const
{
    // A Pascal string: its length, then its bytes.
    UInt8 theName[256] = {};
    if (!CFStringGetPascalString(mApplicationID, theName, sizeof theName, kCFStringEncodingMacRoman)) {
        theName[0] = 0;
    }
    char theText[sizeof theName + sizeof "[Preferences ]"];
    std::snprintf(theText, sizeof theText, "[Preferences %.*s]", static_cast<int>(theName[0]),
                  reinterpret_cast<const char*>(theName + 1));
    return LmString(theText);
}

bool LmPreferenceBinding::Flush() const
{
    const bool isDone = CFPreferencesAppSynchronize(mApplicationID) != 0;
    if (LmJournal::IsAnythingOn()) {
        LmJournal::WriteAbout(kJournalFlush, static_cast<const LmKeyValueStore&>(*this), 0, isDone ? 1 : 0,
                              nullptr);
    }
    return isDone;
}

LmValue LmPreferenceBinding::GetKeyValue(const LmString& theKey) const
{
    const OwnedObject theName(CreateKey(theKey));
    return theName.Exists() ? ReadPreference(*this, theKey, theName, mApplicationID) : LmValue();
}

void LmPreferenceBinding::SetKeyValue(const LmString& theKey, const LmValue& theValue)
{
    const OwnedObject theName(CreateKey(theKey));
    const OwnedObject theProperty(CreateProperty(theValue));
    if (theName.Exists() && theProperty.Exists()) {
        CFPreferencesSetAppValue(theName.GetString(), theProperty.Get(), mApplicationID);
        if (LmJournal::IsAnythingOn()) {
            NoteAccess(kJournalWrite, *this, theKey, theValue);
        }
    }
}
