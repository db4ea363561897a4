// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Endian_h
#define Endian_h

// The order of bytes: B is big-endian (the first byte is the most significant), L little-endian, N the
// machine's own. EndianU32_BtoN(x) reads a number that came big-endian, EndianU32_NtoB(x) makes one. Of
// constants they are constants.

#include <MacTypes.h>

#define CoreServicesSwapped16(inType, inValue) ((inType)__builtin_bswap16((UInt16)(inValue)))
#define CoreServicesSwapped32(inType, inValue) ((inType)__builtin_bswap32((UInt32)(inValue)))
#define CoreServicesSwapped64(inType, inValue) ((inType)__builtin_bswap64((UInt64)(inValue)))

#if TARGET_RT_BIG_ENDIAN
#define EndianS16_BtoN(inValue) ((SInt16)(inValue))
#define EndianS16_NtoB(inValue) ((SInt16)(inValue))
#define EndianS16_LtoN(inValue) CoreServicesSwapped16(SInt16, inValue)
#define EndianS16_NtoL(inValue) CoreServicesSwapped16(SInt16, inValue)
#define EndianU16_BtoN(inValue) ((UInt16)(inValue))
#define EndianU16_NtoB(inValue) ((UInt16)(inValue))
#define EndianU16_LtoN(inValue) CoreServicesSwapped16(UInt16, inValue)
#define EndianU16_NtoL(inValue) CoreServicesSwapped16(UInt16, inValue)
#define EndianS32_BtoN(inValue) ((SInt32)(inValue))
#define EndianS32_NtoB(inValue) ((SInt32)(inValue))
#define EndianS32_LtoN(inValue) CoreServicesSwapped32(SInt32, inValue)
#define EndianS32_NtoL(inValue) CoreServicesSwapped32(SInt32, inValue)
#define EndianU32_BtoN(inValue) ((UInt32)(inValue))
#define EndianU32_NtoB(inValue) ((UInt32)(inValue))
#define EndianU32_LtoN(inValue) CoreServicesSwapped32(UInt32, inValue)
#define EndianU32_NtoL(inValue) CoreServicesSwapped32(UInt32, inValue)
#define EndianS64_BtoN(inValue) ((SInt64)(inValue))
#define EndianS64_NtoB(inValue) ((SInt64)(inValue))
#define EndianS64_LtoN(inValue) CoreServicesSwapped64(SInt64, inValue)
#define EndianS64_NtoL(inValue) CoreServicesSwapped64(SInt64, inValue)
#define EndianU64_BtoN(inValue) ((UInt64)(inValue))
#define EndianU64_NtoB(inValue) ((UInt64)(inValue))
#define EndianU64_LtoN(inValue) CoreServicesSwapped64(UInt64, inValue)
#define EndianU64_NtoL(inValue) CoreServicesSwapped64(UInt64, inValue)
#else
#define EndianS16_BtoN(inValue) CoreServicesSwapped16(SInt16, inValue)
#define EndianS16_NtoB(inValue) CoreServicesSwapped16(SInt16, inValue)
#define EndianS16_LtoN(inValue) ((SInt16)(inValue))
#define EndianS16_NtoL(inValue) ((SInt16)(inValue))
#define EndianU16_BtoN(inValue) CoreServicesSwapped16(UInt16, inValue)
#define EndianU16_NtoB(inValue) CoreServicesSwapped16(UInt16, inValue)
#define EndianU16_LtoN(inValue) ((UInt16)(inValue))
#define EndianU16_NtoL(inValue) ((UInt16)(inValue))
#define EndianS32_BtoN(inValue) CoreServicesSwapped32(SInt32, inValue)
#define EndianS32_NtoB(inValue) CoreServicesSwapped32(SInt32, inValue)
#define EndianS32_LtoN(inValue) ((SInt32)(inValue))
#define EndianS32_NtoL(inValue) ((SInt32)(inValue))
#define EndianU32_BtoN(inValue) CoreServicesSwapped32(UInt32, inValue)
#define EndianU32_NtoB(inValue) CoreServicesSwapped32(UInt32, inValue)
#define EndianU32_LtoN(inValue) ((UInt32)(inValue))
#define EndianU32_NtoL(inValue) ((UInt32)(inValue))
#define EndianS64_BtoN(inValue) CoreServicesSwapped64(SInt64, inValue)
#define EndianS64_NtoB(inValue) CoreServicesSwapped64(SInt64, inValue)
#define EndianS64_LtoN(inValue) ((SInt64)(inValue))
#define EndianS64_NtoL(inValue) ((SInt64)(inValue))
#define EndianU64_BtoN(inValue) CoreServicesSwapped64(UInt64, inValue)
#define EndianU64_NtoB(inValue) CoreServicesSwapped64(UInt64, inValue)
#define EndianU64_LtoN(inValue) ((UInt64)(inValue))
#define EndianU64_NtoL(inValue) ((UInt64)(inValue))
#endif
#define EndianS16_BtoL(inValue) CoreServicesSwapped16(SInt16, inValue)
#define EndianS16_LtoB(inValue) CoreServicesSwapped16(SInt16, inValue)
#define EndianU16_BtoL(inValue) CoreServicesSwapped16(UInt16, inValue)
#define EndianU16_LtoB(inValue) CoreServicesSwapped16(UInt16, inValue)
#define EndianS32_BtoL(inValue) CoreServicesSwapped32(SInt32, inValue)
#define EndianS32_LtoB(inValue) CoreServicesSwapped32(SInt32, inValue)
#define EndianU32_BtoL(inValue) CoreServicesSwapped32(UInt32, inValue)
#define EndianU32_LtoB(inValue) CoreServicesSwapped32(UInt32, inValue)
#define EndianS64_BtoL(inValue) CoreServicesSwapped64(SInt64, inValue)
#define EndianS64_LtoB(inValue) CoreServicesSwapped64(SInt64, inValue)
#define EndianU64_BtoL(inValue) CoreServicesSwapped64(UInt64, inValue)
#define EndianU64_LtoB(inValue) CoreServicesSwapped64(UInt64, inValue)

#endif
