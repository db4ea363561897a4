// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef MacMemory_h
#define MacMemory_h

// Blocks of memory, fixed ones (Ptr) and ones that can grow (Handle).
//
// A Handle is a pointer to the pointer to its block. The block may move when its size is set, and then only;
// locking and purging have no effect. Memory comes from malloc.
//
// MemError tells how the last call of this thread ended: noErr; memFullErr without memory for it;
// nilHandleErr for NULL where a handle belongs; memWZErr for a pointer or handle that is none, or not any
// more; paramErr for a size below 0. A call that fails changes nothing else. Main thread or one thread at a
// time for each block.

#include <CoreFoundation/CFBase.h>
#include <CoreServices/MacErrors.h>

CF_EXPORT OSErr MemError(void);

// NULL on failure. A block of 0 bytes is a block. The ...Clear ones fill it with zeros.
CF_EXPORT Ptr NewPtr(Size byteCount);
CF_EXPORT Ptr NewPtrClear(Size byteCount);
CF_EXPORT Size GetPtrSize(Ptr p); // 0 on failure
CF_EXPORT void DisposePtr(Ptr p); // NULL does nothing

CF_EXPORT Handle NewHandle(Size byteCount);
CF_EXPORT Handle NewHandleClear(Size byteCount);
CF_EXPORT Size GetHandleSize(Handle h);               // 0 on failure
CF_EXPORT void SetHandleSize(Handle h, Size newSize); // keeps what is in both sizes
CF_EXPORT void DisposeHandle(Handle h);               // NULL does nothing

CF_EXPORT void HLock(Handle h);
CF_EXPORT void HUnlock(Handle h);
CF_EXPORT void HNoPurge(Handle h);
// A number that is kept with the handle; 0 at first and on failure.
CF_EXPORT SInt8 HGetState(Handle h);
CF_EXPORT void HSetState(Handle h, SInt8 flags);

// Copies byteCount bytes; the two places may overlap. Less than 1 does nothing.
CF_EXPORT void BlockMove(const void* srcPtr, void* destPtr, Size byteCount);
CF_EXPORT void BlockMoveData(const void* srcPtr, void* destPtr, Size byteCount);

// Makes a handle of size bytes copied from srcPtr.
CF_EXPORT OSErr PtrToHand(const void* srcPtr, Handle* dstHndl, long size);
// Appends size bytes from ptr1, which may lie in the handle, to a handle.
CF_EXPORT OSErr PtrAndHand(const void* ptr1, Handle hand2, long size);
// Appends the block of the first handle to the second; both may be the same.
CF_EXPORT OSErr HandAndHand(Handle hand1, Handle hand2);
// Puts a copy of a handle in its place. The first one stays, and is whosever it was.
CF_EXPORT OSErr HandToHand(Handle* theHndl);

#endif
