// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "AppleEventTestSupport.h"

#include <cmath>
#include <limits>

namespace {

// What becomes of data as another type: its bytes, or the status.
std::string Coerced(DescType theType, const std::string& theBytes, DescType theOther)
{
    TestDescriptor theResult;
    const OSErr theStatus =
        AECoercePtr(theType, theBytes.data(), static_cast<Size>(theBytes.size()), theOther, theResult);
    if (theStatus != noErr) {
        EXPECT_EQ(theResult.Type(), DescType{typeNull});
        return std::to_string(theStatus);
    }
    EXPECT_EQ(theResult.Type(), theOther);
    return theResult.Bytes();
}

template <class Value>
std::string FromValue(DescType theType, Value theValue, DescType theOther)
{
    return Coerced(theType, BytesOfValue(theValue), theOther);
}

const std::string kFails = std::to_string(errAECoercionFail);

std::string UnitBytes(const std::u16string& theText)
{
    return std::string(reinterpret_cast<const char*>(theText.data()), theText.size() * 2);
}

} // namespace

TEST(Coercions, TheSameTypeIsACopy)
{
    EXPECT_EQ(Coerced('what', "ever", 'what'), "ever");
    TestDescriptor theResult;
    EXPECT_EQ(AECoercePtr('what', "ever", 4, typeWildCard, theResult), noErr);
    EXPECT_EQ(theResult.Type(), DescType{'what'});
    EXPECT_EQ(Coerced('what', "ever", typeChar), kFails);
    EXPECT_EQ(Coerced(typeChar, "ever", 'what'), kFails);
}

TEST(Coercions, WholeNumbersBecomeOneAnotherWhereTheyFit)
{
    EXPECT_EQ(FromValue(typeSInt16, SInt16{-5}, typeSInt32), BytesOfValue(SInt32{-5}));
    EXPECT_EQ(FromValue(typeSInt32, SInt32{-5}, typeSInt64), BytesOfValue(SInt64{-5}));
    EXPECT_EQ(FromValue(typeSInt32, SInt32{32767}, typeSInt16), BytesOfValue(SInt16{32767}));
    EXPECT_EQ(FromValue(typeSInt32, SInt32{32768}, typeSInt16), kFails);
    EXPECT_EQ(FromValue(typeSInt32, SInt32{-32768}, typeSInt16), BytesOfValue(SInt16{-32768}));
    EXPECT_EQ(FromValue(typeSInt32, SInt32{-32769}, typeSInt16), kFails);
    EXPECT_EQ(FromValue(typeSInt32, SInt32{-1}, typeUInt32), kFails);
    EXPECT_EQ(FromValue(typeUInt32, static_cast<UInt32>(4000000000), typeSInt32), kFails);
    EXPECT_EQ(FromValue(typeUInt32, static_cast<UInt32>(4000000000), typeSInt64),
              BytesOfValue(SInt64{4000000000}));
    EXPECT_EQ(FromValue(typeUInt16, UInt16{65535}, typeUInt32), BytesOfValue(static_cast<UInt32>(65535)));
    const UInt64 theLargest = std::numeric_limits<UInt64>::max();
    EXPECT_EQ(FromValue(typeUInt64, theLargest, typeSInt64), kFails);
    EXPECT_EQ(FromValue(typeUInt64, theLargest, typeUInt16), kFails);
    EXPECT_EQ(FromValue(typeUInt64, UInt64{7}, typeSInt64), BytesOfValue(SInt64{7}));
    EXPECT_EQ(FromValue(typeUInt64, theLargest, typeChar), "18446744073709551615");
    EXPECT_EQ(FromValue(typeUInt64, theLargest, typeIEEE64BitFloatingPoint),
              BytesOfValue(18446744073709551616.0));
}

TEST(Coercions, RealNumbersAreRounded)
{
    EXPECT_EQ(FromValue(typeIEEE64BitFloatingPoint, 2.5, typeSInt32), BytesOfValue(SInt32{3}));
    EXPECT_EQ(FromValue(typeIEEE64BitFloatingPoint, -2.5, typeSInt32), BytesOfValue(SInt32{-3}));
    EXPECT_EQ(FromValue(typeIEEE32BitFloatingPoint, 1.25f, typeIEEE64BitFloatingPoint), BytesOfValue(1.25));
    EXPECT_EQ(FromValue(typeSInt32, SInt32{3}, typeIEEE32BitFloatingPoint), BytesOfValue(3.0f));
    EXPECT_EQ(FromValue(typeIEEE64BitFloatingPoint, 2147483647.4, typeSInt32),
              BytesOfValue(SInt32{2147483647}));
    EXPECT_EQ(FromValue(typeIEEE64BitFloatingPoint, 2147483647.5, typeSInt32), kFails);
    EXPECT_EQ(FromValue(typeIEEE64BitFloatingPoint, -1.0, typeUInt32), kFails);
    EXPECT_EQ(FromValue(typeIEEE64BitFloatingPoint, 9223372036854775808.0, typeSInt64), kFails);
    EXPECT_EQ(FromValue(typeIEEE64BitFloatingPoint, 1e300, typeIEEE32BitFloatingPoint), kFails);
    EXPECT_EQ(FromValue(typeIEEE64BitFloatingPoint, std::nan(""), typeSInt32), kFails);
    EXPECT_EQ(FromValue(typeIEEE64BitFloatingPoint, std::numeric_limits<double>::infinity(), typeSInt64),
              kFails);
}

TEST(Coercions, TruthValuesAreOneAndNothing)
{
    EXPECT_EQ(FromValue(typeBoolean, Boolean{1}, typeSInt32), BytesOfValue(SInt32{1}));
    EXPECT_EQ(Coerced(typeTrue, "", typeBoolean), std::string(1, '\1'));
    EXPECT_EQ(Coerced(typeFalse, "", typeBoolean), std::string(1, '\0'));
    EXPECT_EQ(FromValue(typeBoolean, Boolean{1}, typeTrue), "");
    EXPECT_EQ(FromValue(typeBoolean, Boolean{1}, typeFalse), kFails);
    EXPECT_EQ(FromValue(typeBoolean, Boolean{0}, typeFalse), "");
    EXPECT_EQ(FromValue(typeSInt32, SInt32{7}, typeBoolean), std::string(1, '\1'));
    EXPECT_EQ(Coerced(typeChar, "true", typeBoolean), std::string(1, '\1'));
    EXPECT_EQ(Coerced(typeChar, "false", typeBoolean), std::string(1, '\0'));
    EXPECT_EQ(Coerced(typeChar, "perhaps", typeBoolean), kFails);
    EXPECT_EQ(FromValue(typeBoolean, Boolean{0}, typeUTF8Text), "false");
}

TEST(Coercions, TextsAreReadAsNumbersWhenTheyAreNumbersAllOver)
{
    EXPECT_EQ(Coerced(typeChar, "-12", typeSInt32), BytesOfValue(SInt32{-12}));
    EXPECT_EQ(Coerced(typeChar, "2.25", typeIEEE64BitFloatingPoint), BytesOfValue(2.25));
    EXPECT_EQ(Coerced(typeUnicodeText, UnitBytes(u"1e3"), typeSInt32), BytesOfValue(SInt32{1000}));
    // The last begins with a blank that keeps lines together.
    for (const char* const theText : {"", "12 ", "x", "1x", "nan", "inf", "0x10", "\31212"}) {
        EXPECT_EQ(Coerced(typeChar, theText, typeSInt32), kFails) << theText;
    }
    EXPECT_EQ(FromValue(typeSInt32, SInt32{-12}, typeChar), "-12");
    EXPECT_EQ(FromValue(typeIEEE64BitFloatingPoint, 0.1, typeUTF8Text), "0.1");
}

TEST(Coercions, TextsBecomeOneAnother)
{
    EXPECT_EQ(Coerced(typeChar, "\x8A", typeUTF8Text), "\xC3\xA4");
    EXPECT_EQ(Coerced(typeUTF8Text, "\xC3\xA4", typeChar), "\x8A");
    EXPECT_EQ(Coerced(typeUTF8Text, "\xC3\xA4", typeUnicodeText), UnitBytes(u"\u00E4"));
    EXPECT_EQ(Coerced(typeUnicodeText, UnitBytes(u"\u00E4"), typeUTF8Text), "\xC3\xA4");
    EXPECT_EQ(Coerced(typeUTF8Text, "a", typeUTF16ExternalText), std::string("\0a", 2));
    EXPECT_EQ(Coerced(typeUTF16ExternalText, std::string("\0a", 2), typeUTF8Text), "a");
    EXPECT_EQ(Coerced(typeUTF16ExternalText, std::string("\xFE\xFF\0a", 4), typeUTF8Text), "a");
    EXPECT_EQ(Coerced(typeUTF16ExternalText,
                      std::string("\xFF\xFE"
                                  "a\0",
                                  4),
                      typeUTF8Text),
              "a");
    EXPECT_EQ(Coerced(typeUTF8Text, "ab", typeCString), std::string("ab\0", 3));
    EXPECT_EQ(Coerced(typeCString, std::string("ab\0cd", 5), typeChar), "ab");
    EXPECT_EQ(Coerced(typeUTF8Text, "ab", typePString), "\2ab");
    EXPECT_EQ(Coerced(typePString, "\2abc", typeChar), "ab");
    EXPECT_EQ(Coerced(typeUTF8Text, std::string(255, 'a'), typePString), '\xFF' + std::string(255, 'a'));
}

TEST(Coercions, TextsThatAreNoneFail)
{
    EXPECT_EQ(Coerced(typeUnicodeText, "abc", typeUTF8Text), kFails);
    EXPECT_EQ(Coerced(typeUTF16ExternalText, "abc", typeUTF8Text), kFails);
    EXPECT_EQ(Coerced(typePString, "\5ab", typeUTF8Text), kFails);
    EXPECT_EQ(Coerced(typePString, "", typeUTF8Text), kFails);
    EXPECT_EQ(Coerced(typeUTF8Text, std::string(256, 'a'), typePString), kFails);
}

TEST(Coercions, CodesBecomeOneAnotherAndNothingElse)
{
    for (const DescType theType : {typeType, typeEnumerated, typeKeyword, typeProperty, typeApplSignature}) {
        EXPECT_EQ(FromValue(typeType, OSType{'what'}, theType), BytesOfValue(OSType{'what'}));
    }
    EXPECT_EQ(FromValue(typeType, OSType{'what'}, typeSInt32), kFails);
    EXPECT_EQ(FromValue(typeSInt32, SInt32{1}, typeType), kFails);
    EXPECT_EQ(FromValue(typeType, OSType{'what'}, typeChar), kFails);
    EXPECT_EQ(FromValue(typeType, OSType{'what'}, typeBoolean), kFails);
}

TEST(Coercions, DataOfAnotherSizeIsNoNumber)
{
    for (const DescType theType :
         {typeSInt16, typeUInt16, typeSInt32, typeUInt32, typeSInt64, typeUInt64, typeIEEE32BitFloatingPoint,
          typeIEEE64BitFloatingPoint, typeBoolean, typeEnumerated, typeFSRef}) {
        EXPECT_EQ(Coerced(theType, "abc", typeChar), kFails);
        EXPECT_EQ(Coerced(theType, "", typeType), kFails);
        EXPECT_EQ(Coerced(theType, "", typeFileURL), kFails);
    }
}

TEST(Coercions, AFileIsAReferenceAURLAndAnAlias)
{
    const TestFile theFile;
    const std::string theReference = theFile.Reference();
    const std::string theURL = Coerced(typeFSRef, theReference, typeFileURL);
    EXPECT_EQ(theURL, "file://localhost" + theFile.URL());
    EXPECT_EQ(Coerced(typeFileURL, theURL, typeFSRef), theReference);
    EXPECT_EQ(Coerced(typeFileURL, "file://" + theFile.URL(), typeFSRef), theReference);
    const std::string theAlias = Coerced(typeFSRef, theReference, typeAlias);
    EXPECT_EQ(Coerced(typeAlias, theAlias, typeFSRef), theReference);
    EXPECT_EQ(Coerced(typeAlias, theAlias, typeFileURL), theURL);
    EXPECT_EQ(Coerced(typeFSRef, theReference, typeChar), kFails);
    EXPECT_EQ(Coerced(typeChar, theFile.Path(), typeFSRef), kFails);
}

TEST(Coercions, AFolderEndsInASlash)
{
    FSRef theFolder = {};
    EXPECT_EQ(FSPathMakeRef(reinterpret_cast<const UInt8*>("/tmp"), &theFolder, nullptr), noErr);
    EXPECT_EQ(FromValue(typeFSRef, theFolder, typeFileURL), "file://localhost/tmp/");
}

TEST(Coercions, WhatIsGoneHasAURLAndNoReference)
{
    std::string theReference;
    std::string theURL;
    {
        const TestFile theFile;
        theReference = theFile.Reference();
        theURL = "file://localhost" + theFile.URL();
    }
    EXPECT_EQ(Coerced(typeFSRef, theReference, typeFileURL), theURL);
    EXPECT_EQ(Coerced(typeFileURL, theURL, typeFSRef), kFails);
}

TEST(Coercions, WhatNamesNoFileFails)
{
    for (const char* const theURL : {"", "http://a/tmp", "tmp", "file:tmp", "a b", "file:///%00"}) {
        EXPECT_EQ(Coerced(typeFileURL, theURL, typeFSRef), kFails) << theURL;
        EXPECT_EQ(Coerced(typeFileURL, theURL, typeAlias), kFails) << theURL;
    }
    EXPECT_EQ(FromValue(typeFSRef, FSRef{}, typeFileURL), kFails);
    EXPECT_EQ(Coerced(typeAlias, "", typeFSRef), kFails);
    EXPECT_EQ(Coerced(typeAlias, std::string(6, '\0'), typeFSRef), kFails);
    EXPECT_EQ(Coerced(typeAlias, std::string(200, '/'), typeFSRef), kFails);
    const std::string theLong = "file:///" + std::string(70000, 'a');
    EXPECT_EQ(Coerced(typeFileURL, theLong, typeAlias), kFails);
}

TEST(Coercions, DataBecomesAListOfOneAndComesOutOfIt)
{
    TestDescriptor theText(typeChar, "17");
    TestList theList;
    AEDisposeDesc(theList);
    EXPECT_EQ(AECoerceDesc(theText, typeAEList, theList), noErr);
    EXPECT_EQ(theList.Count(), 1);
    EXPECT_EQ(theList.At(1), "17");
    TestDescriptor theNumber;
    EXPECT_EQ(AECoerceDesc(theList, typeSInt32, theNumber), noErr);
    EXPECT_EQ(theNumber.Bytes(), BytesOfValue(SInt32{17}));
    Put(theList, 0, "18");
    TestDescriptor theOther;
    EXPECT_EQ(AECoerceDesc(theList, typeSInt32, theOther), errAECoercionFail);
}

TEST(Coercions, ARecordBecomesOtherTypesOfRecords)
{
    TestList theRecord(true);
    PutParameter(theRecord, 'colr', "red");
    TestList theObject;
    AEDisposeDesc(theObject);
    EXPECT_EQ(AECoerceDesc(theRecord, typeObjectSpecifier, theObject), noErr);
    EXPECT_EQ(theObject.Type(), DescType{typeObjectSpecifier});
    EXPECT_TRUE(AECheckIsRecord(theObject));
    EXPECT_EQ(theObject.Count(), 1);
    TestDescriptor theBack;
    EXPECT_EQ(AECoerceDesc(theObject, typeAERecord, theBack), noErr);
    EXPECT_TRUE(AECheckIsRecord(theBack));
    for (const DescType theType : {typeChar, typeSInt32, typeAppleEvent, typeNull}) {
        TestDescriptor theOther;
        EXPECT_EQ(AECoerceDesc(theRecord, theType, theOther), errAECoercionFail);
    }
}

TEST(Coercions, BadArgumentsAreRefused)
{
    TestDescriptor theResult;
    EXPECT_EQ(AECoerceDesc(nullptr, typeChar, theResult), paramErr);
    EXPECT_EQ(AECoerceDesc(theResult, typeChar, nullptr), paramErr);
    EXPECT_EQ(AECoercePtr(typeChar, nullptr, 1, typeUTF8Text, theResult), paramErr);
    EXPECT_EQ(AECoercePtr(typeChar, "a", -1, typeUTF8Text, theResult), paramErr);
    EXPECT_EQ(AECoerceDesc(theResult, typeChar, theResult), errAECoercionFail) << "of nothing";
}
