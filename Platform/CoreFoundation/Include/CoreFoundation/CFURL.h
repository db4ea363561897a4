// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFURL_h
#define CFURL_h

// Places: files and folders above all, as text of the form scheme://host/path?query#fragment.
//
// A URL is absolute, or relative to a base. Its text is ASCII; what cannot stand in it is written as %XX,
// bytes of UTF-8. The path of a folder ends with a slash. Nothing here looks at the disk, except for the
// current folder; what does is in CFURLAccess.h.
//
// Paths are POSIX paths: the other styles give NULL.

#include <CoreFoundation/CFBase.h>
#include <CoreFoundation/CFString.h>

typedef const struct __CFURL* CFURLRef;

typedef CFIndex CFURLPathStyle;
enum CF_OF_TYPE(CFIndex)
{
    kCFURLPOSIXPathStyle = 0,
    kCFURLHFSPathStyle = 1,
    kCFURLWindowsPathStyle = 2
};

CF_EXPORT CFTypeID CFURLGetTypeID(void);

// Making URLs; the caller releases them.

// Of a path. A relative one has the current folder as its base. inIsDirectory adds a slash where none is.
// NULL for an empty path, and for one with a zero character or half of a surrogate pair.
CF_EXPORT CFURLRef CFURLCreateWithFileSystemPath(CFAllocatorRef inAllocator, CFStringRef inFilePath,
                                                 CFURLPathStyle inPathStyle, Boolean inIsDirectory);
// The same of the bytes of a path, which need no end; NULL when they are no UTF-8.
CF_EXPORT CFURLRef CFURLCreateFromFileSystemRepresentation(CFAllocatorRef inAllocator, const UInt8* inBuffer,
                                                           CFIndex inLength, Boolean inIsDirectory);
// Of the text of a URL; NULL when it is none, with a space in it, say. The base may be NULL.
CF_EXPORT CFURLRef CFURLCreateWithString(CFAllocatorRef inAllocator, CFStringRef inText, CFURLRef inBase);
CF_EXPORT CFURLRef CFURLCreateWithBytes(CFAllocatorRef inAllocator, const UInt8* inBytes, CFIndex inLength,
                                        CFStringEncoding inEncoding, CFURLRef inBase);

// The same place without a base; the URL itself when it has none.
CF_EXPORT CFURLRef CFURLCopyAbsoluteURL(CFURLRef inURL);

// Copies with another path. What is added is escaped as needed. A path without components loses none, and one
// without an extension none. inIsDirectory adds a slash. A folder stays one.
CF_EXPORT CFURLRef CFURLCreateCopyAppendingPathComponent(CFAllocatorRef inAllocator, CFURLRef inURL,
                                                         CFStringRef inComponent, Boolean inIsDirectory);
CF_EXPORT CFURLRef CFURLCreateCopyDeletingLastPathComponent(CFAllocatorRef inAllocator, CFURLRef inURL);
CF_EXPORT CFURLRef CFURLCreateCopyAppendingPathExtension(CFAllocatorRef inAllocator, CFURLRef inURL,
                                                         CFStringRef inExtension);
CF_EXPORT CFURLRef CFURLCreateCopyDeletingPathExtension(CFAllocatorRef inAllocator, CFURLRef inURL);

// Reading

// The text without the base. The URL owns it.
CF_EXPORT CFStringRef CFURLGetString(CFURLRef inURL);
// The base, which the URL owns, or NULL.
CF_EXPORT CFURLRef CFURLGetBaseURL(CFURLRef inURL);

// The path of a file as it is on the disk, with a zero byte at its end; of a relative URL only what it says
// itself, unless inResolveAgainstBase. False when the buffer is too small, and for a URL of another scheme
// than file.
CF_EXPORT Boolean CFURLGetFileSystemRepresentation(CFURLRef inURL, Boolean inResolveAgainstBase,
                                                   UInt8* outBuffer, CFIndex inMaximum);

// Parts; the caller releases them. They are of the URL itself, but for scheme and host, which a relative one
// has from its base.

// The unescaped path without a slash at the end; NULL when it is no text.
CF_EXPORT CFStringRef CFURLCopyFileSystemPath(CFURLRef inURL, CFURLPathStyle inPathStyle);
// The escaped path.
CF_EXPORT CFStringRef CFURLCopyPath(CFURLRef inURL);
CF_EXPORT CFStringRef CFURLCopyScheme(CFURLRef inURL);   // NULL when there is none
CF_EXPORT CFStringRef CFURLCopyHostName(CFURLRef inURL); // NULL when there is none
// Unescaped; "/" for the root.
CF_EXPORT CFStringRef CFURLCopyLastPathComponent(CFURLRef inURL);
// Unescaped and without the dot; NULL when there is none.
CF_EXPORT CFStringRef CFURLCopyPathExtension(CFURLRef inURL);
// Whether the path ends with a slash.
CF_EXPORT Boolean CFURLHasDirectoryPath(CFURLRef inURL);

// Escapes; the caller releases the strings.

// Writes as %XX, in the bytes of the encoding, each character that cannot stand in a URL, but for those of
// inToLeave, and each of inToEscape. Either may be NULL. NULL when the encoding does not have a character.
CF_EXPORT CFStringRef CFURLCreateStringByAddingPercentEscapes(CFAllocatorRef inAllocator, CFStringRef inText,
                                                              CFStringRef inToLeave, CFStringRef inToEscape,
                                                              CFStringEncoding inEncoding);
// Puts characters in the place of their %XX in UTF-8, but for those of inToLeave; with NULL it leaves all.
// NULL when they are no UTF-8.
CF_EXPORT CFStringRef CFURLCreateStringByReplacingPercentEscapes(CFAllocatorRef inAllocator,
                                                                 CFStringRef inText, CFStringRef inToLeave);

#endif
