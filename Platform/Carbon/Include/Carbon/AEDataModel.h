// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Descriptors: data with a type, lists and records of them. Apple events are made of them, and dialogs for
// files answer with them.
//
// A descriptor is a structure of the program's own that says where its data is. Whatever a call fills it with
// is given back by AEDisposeDesc. Calls copy what they are given and what they answer. A call that fails
// leaves a null descriptor as its result.
//
// Statuses: paramErr for NULL where something is needed and for negative sizes; errAENotAEDesc for a
// descriptor whose data is gone or never was; errAECoercionFail for data that cannot be had as the type that
// was asked for; memFullErr without memory, and for lists within lists beyond 100 levels.

#ifndef AEDataModel_h
#define AEDataModel_h

#include <Carbon/CarbonBase.h>
#include <CoreServices/Files.h>
#include <CoreServices/MacErrors.h>

typedef FourCharCode DescType;
typedef FourCharCode AEKeyword;
typedef struct OpaqueAEDataStorageType* AEDataStorageType;
typedef AEDataStorageType* AEDataStorage;

#pragma pack(push, 2)

// The type may be read, and changed to another of the same size. The rest is nobody's business.
typedef struct AEDesc
{
    DescType descriptorType;
    AEDataStorage dataHandle;
} AEDesc;
typedef AEDesc* AEDescPtr;

// A descriptor and the keyword that it has in a record.
typedef struct AEKeyDesc
{
    AEKeyword descKey;
    AEDesc descContent;
} AEKeyDesc;

#pragma pack(pop)

typedef AEDesc AEAddressDesc;
typedef AEDesc AEDescList;
typedef AEDescList AERecord;
typedef AERecord AppleEvent;

// Types, with the data that each stands for.
enum
{
    typeWildCard = '****',               // any
    typeBoolean = 'bool',                // Boolean
    typeSInt16 = 'shor',                 // SInt16 (= typeShortInteger)
    typeUInt16 = 'ushr',                 // UInt16
    typeSInt32 = 'long',                 // SInt32 (= typeLongInteger)
    typeUInt32 = 'magn',                 // UInt32
    typeSInt64 = 'comp',                 // SInt64
    typeUInt64 = 'ucom',                 // UInt64
    typeIEEE32BitFloatingPoint = 'sing', // float
    typeIEEE64BitFloatingPoint = 'doub', // double (= typeFloat)
    typeChar = 'TEXT',                   // 8-bit characters (= typeText)
    typeUnicodeText = 'utxt',            // UniChar array
    typeUTF8Text = 'utf8',               // UTF-8 bytes
    typeType = 'type',                   // OSType
    typeEnumerated = 'enum',             // OSType (= typeEnumeration)
    typeKeyword = 'keyw',                // OSType
    typeProperty = 'prop',               // OSType
    typeApplSignature = 'sign',          // OSType
    typeUTF16ExternalText = 'ut16',      // UTF-16, big-endian without a mark
    typeCString = 'cstr',                // 8-bit characters with a zero
    typePString = 'pstr',                // a Pascal string
    typeTrue = 'true',                   // nothing
    typeFalse = 'fals',                  // nothing
    typeNull = 'null',                   // nothing
    typeAEList = 'list',                 // a list
    typeAERecord = 'reco',               // a record
    typeAppleEvent = 'aevt',             // an Apple event
    typeFSRef = 'fsrf',                  // FSRef
    typeFSS = 'fss ',                    // FSSpec
    typeAlias = 'alis',                  // what an AliasHandle holds
    typeFileURL = 'furl',                // the UTF-8 text of a URL
    typeObjectSpecifier = 'obj ',        // a record
    typeProcessSerialNumber = 'psn ',    // ProcessSerialNumber
    typeKernelProcessID = 'kpid',        // pid_t
    typeApplicationBundleID = 'bund',    // UTF-8 bytes
    typeEnumeration = typeEnumerated,
    typeShortInteger = typeSInt16,
    typeLongInteger = typeSInt32,
    typeFloat = typeIEEE64BitFloatingPoint,
    typeText = typeChar
};

// --- Descriptors --------------------------------------------------------------------------------------

// A null descriptor, whatever was there: nothing is given back. So is one that is initialised with
// { typeNull, NULL }.
CARBON_EXPORT void AEInitializeDesc(AEDesc* desc);

// Data of any type but lists. dataPtr may be NULL when the size is 0.
CARBON_EXPORT OSErr AECreateDesc(DescType typeCode, const void* dataPtr, Size dataSize, AEDesc* result);

// Gives the data back and makes the descriptor null. noErr for a null one; one whose data is gone becomes
// null too, with errAENotAEDesc.
CARBON_EXPORT OSErr AEDisposeDesc(AEDesc* theAEDesc);

// A copy that shares nothing with the original; of lists, records and Apple events as well.
CARBON_EXPORT OSErr AEDuplicateDesc(const AEDesc* theAEDesc, AEDesc* result);

// The data as another type; typeWildCard as it is. Numbers, truth values and texts become one another: a
// number is rounded to a whole one, and is not made when it lies out of range; of texts only what is a number
// all over, or "true" and "false", is one. Four-character codes (typeType, typeEnumerated, …) become one
// another. A file can be had as typeFSRef, typeFileURL and typeAlias, as a reference only while it is there.
// As typeAEList, data becomes a list of one; a list of one can be had as what it holds. A record can be had
// as every type of record.
CARBON_EXPORT OSErr AECoerceDesc(const AEDesc* theAEDesc, DescType toType, AEDesc* result);
CARBON_EXPORT OSErr AECoercePtr(DescType typeCode, const void* dataPtr, Size dataSize, DescType toType,
                                AEDesc* result);

// The first maximumSize bytes. errAEWrongDataType for lists and records, whose size is 0.
CARBON_EXPORT OSErr AEGetDescData(const AEDesc* theAEDesc, void* dataPtr, Size maximumSize);
CARBON_EXPORT Size AEGetDescDataSize(const AEDesc* theAEDesc);

// Other data in place of what was there. What was there remains when this fails.
CARBON_EXPORT OSErr AEReplaceDescData(DescType typeCode, const void* dataPtr, Size dataSize,
                                      AEDesc* theAEDesc);

// --- Lists --------------------------------------------------------------------------------------------

// Indices count from 1; others are errAEIllegalIndex. errAEWrongDataType for what is no list. The items of a
// record can be counted, read and deleted by index too.

// An empty list or record. Factoring has no use here: what begins all items is stored with each of them.
CARBON_EXPORT OSErr AECreateList(const void* factoringPtr, Size factoredSize, Boolean isRecord,
                                 AEDescList* resultList);

// Records and Apple events.
CARBON_EXPORT Boolean AECheckIsRecord(const AEDesc* theDesc);

CARBON_EXPORT OSErr AECountItems(const AEDescList* theAEDescList, long* theCount);

// An item as a type. theAEKeyword (its keyword in a record, else typeWildCard), typeCode (the type of what is
// copied) and actualSize (all of it, also of what does not fit in maximumSize bytes) may be NULL.
CARBON_EXPORT OSErr AEGetNthPtr(const AEDescList* theAEDescList, long index, DescType desiredType,
                                AEKeyword* theAEKeyword, DescType* typeCode, void* dataPtr, Size maximumSize,
                                Size* actualSize);
CARBON_EXPORT OSErr AEGetNthDesc(const AEDescList* theAEDescList, long index, DescType desiredType,
                                 AEKeyword* theAEKeyword, AEDesc* result);
CARBON_EXPORT OSErr AESizeOfNthItem(const AEDescList* theAEDescList, long index, DescType* typeCode,
                                    Size* dataSize);

// In place of an item, or behind the last one: index 0, or one more than there are.
CARBON_EXPORT OSErr AEPutPtr(AEDescList* theAEDescList, long index, DescType typeCode, const void* dataPtr,
                             Size dataSize);
CARBON_EXPORT OSErr AEPutDesc(AEDescList* theAEDescList, long index, const AEDesc* theAEDesc);

// Those behind it move up.
CARBON_EXPORT OSErr AEDeleteItem(AEDescList* theAEDescList, long index);

// --- Records ------------------------------------------------------------------------------------------

// An item has a keyword; of an Apple event, these are its parameters. errAEDescNotFound for a keyword that
// there is not, errAEWrongDataType for what is no record. The rest is as it is with lists.

CARBON_EXPORT OSErr AEGetParamPtr(const AppleEvent* theAppleEvent, AEKeyword theAEKeyword,
                                  DescType desiredType, DescType* actualType, void* dataPtr, Size maximumSize,
                                  Size* actualSize);
CARBON_EXPORT OSErr AEGetParamDesc(const AppleEvent* theAppleEvent, AEKeyword theAEKeyword,
                                   DescType desiredType, AEDesc* result);
CARBON_EXPORT OSErr AESizeOfParam(const AppleEvent* theAppleEvent, AEKeyword theAEKeyword, DescType* typeCode,
                                  Size* dataSize);

// In place of the item of that keyword, or behind the last one.
CARBON_EXPORT OSErr AEPutParamPtr(AppleEvent* theAppleEvent, AEKeyword theAEKeyword, DescType typeCode,
                                  const void* dataPtr, Size dataSize);
CARBON_EXPORT OSErr AEPutParamDesc(AppleEvent* theAppleEvent, AEKeyword theAEKeyword,
                                   const AEDesc* theAEDesc);

CARBON_EXPORT OSErr AEDeleteParam(AppleEvent* theAppleEvent, AEKeyword theAEKeyword);

#define AEGetKeyPtr AEGetParamPtr
#define AEGetKeyDesc AEGetParamDesc
#define AESizeOfKeyDesc AESizeOfParam
#define AEPutKeyPtr AEPutParamPtr
#define AEPutKeyDesc AEPutParamDesc
#define AEDeleteKeyDesc AEDeleteParam

#endif
