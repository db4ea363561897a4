// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ConditionalMacros_h
#define ConditionalMacros_h

// What programs ask of the system and the compiler before they declare anything, and the words that they put
// into their declarations. A program may define any of the conditions itself before it includes this.

#include <AvailabilityMacros.h>
#include <stddef.h>

// Which interface, and which kind of program. On purpose: they say what the platform's headers say to a
// program for Mac OS X, because programs leave out what they need when one of them is 0.
#ifndef TARGET_API_MAC_CARBON
#define TARGET_API_MAC_CARBON 1
#endif
#ifndef TARGET_API_MAC_OSX
#define TARGET_API_MAC_OSX 1
#endif
#ifndef TARGET_API_MAC_OS8
#define TARGET_API_MAC_OS8 0
#endif
#ifndef TARGET_CARBON
#define TARGET_CARBON 1
#endif
#ifndef TARGET_OS_MAC
#define TARGET_OS_MAC 1
#endif
#ifndef TARGET_OS_WIN32
#define TARGET_OS_WIN32 0
#endif
#ifndef TARGET_RT_MAC_CFM
#define TARGET_RT_MAC_CFM 0
#endif
#ifndef TARGET_RT_MAC_MACHO
#define TARGET_RT_MAC_MACHO 1
#endif
#ifndef TARGET_RT_BIG_ENDIAN
#if __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
#define TARGET_RT_BIG_ENDIAN 1
#else
#define TARGET_RT_BIG_ENDIAN 0
#endif
#endif
#ifndef TARGET_RT_LITTLE_ENDIAN
#define TARGET_RT_LITTLE_ENDIAN (!TARGET_RT_BIG_ENDIAN)
#endif

// The managers' objects can only be reached through calls.
#ifndef OPAQUE_TOOLBOX_STRUCTS
#define OPAQUE_TOOLBOX_STRUCTS 1
#endif
#ifndef ACCESSOR_CALLS_ARE_FUNCTIONS
#define ACCESSOR_CALLS_ARE_FUNCTIONS 1
#endif
#ifndef CALL_NOT_IN_CARBON
#define CALL_NOT_IN_CARBON 0
#endif

// What the compiler understands: #pragma pack(push, 2), #pragma options align=mac68k, #pragma once.
#ifndef PRAGMA_STRUCT_ALIGN
#define PRAGMA_STRUCT_ALIGN 1
#endif
#ifndef PRAGMA_STRUCT_PACK
#define PRAGMA_STRUCT_PACK 1
#endif
#ifndef PRAGMA_STRUCT_PACKPUSH
#define PRAGMA_STRUCT_PACKPUSH 1
#endif
#ifndef PRAGMA_ONCE
#define PRAGMA_ONCE 1
#endif

// Functions are called as C calls them, whatever they were on earlier systems.
#define pascal
#define EXTERN_API(inType) extern inType
#define EXTERN_API_C(inType) extern inType
// NOLINTBEGIN(bugprone-macro-parentheses): the name of what is declared
#define CALLBACK_API(inType, inName) inType(*inName)
#define CALLBACK_API_C(inType, inName) inType(*inName)
// NOLINTEND(bugprone-macro-parentheses)
// A universal procedure pointer is the pointer to the function itself.
#define STACK_UPP_TYPE(inName) inName
#define REGISTER_UPP_TYPE(inName) inName

// 'abcd' has the first character in the most significant byte.
#define FOUR_CHAR_CODE(inCode) (inCode)

#ifndef nil
#define nil NULL
#endif

#endif
