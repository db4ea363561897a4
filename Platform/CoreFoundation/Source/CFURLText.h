// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFURLText_h
#define CFURLText_h

// The text of URLs, as RFC 3986 has it. Throws std::bad_alloc.

#include <optional>
#include <string>
#include <string_view>

namespace Host {

// What a URL consists of. Parts that are not there differ from empty ones.
struct URLParts
{
    std::optional<std::string> theScheme;
    std::optional<std::string> theAuthority;
    std::string thePath;
    std::optional<std::string> theQuery;
    std::optional<std::string> theFragment;
};

// Whether a text has only characters that a URL may have, and whole escapes.
bool IsURLText(std::string_view theText);

URLParts SplitURL(std::string_view theText);
std::string JoinURL(const URLParts& theParts);

// Where a relative URL leads from a base.
URLParts ResolveURL(const URLParts& theBase, const URLParts& theRelative);

// Escapes what cannot stand in the path of a URL; slashes stay.
std::string EscapePath(std::string_view thePath);

// The text with each %XX replaced by its byte; none when a byte is zero.
std::optional<std::string> Unescape(std::string_view theText);

// Whether both digits of an escape are there.
bool IsEscape(std::string_view theText);

// The byte of an escape.
char ByteOfEscape(std::string_view theEscape);

// Writes a byte as an escape.
void AppendEscape(char theByte, std::string& theText);

// Paths. A folder's ends with a slash.
std::string WithoutSlash(std::string thePath); // "/" stays
std::string LastComponent(std::string_view thePath);
std::string WithoutLastComponent(std::string_view thePath); // as a folder
size_t ExtensionLength(std::string_view theComponent);      // with the dot; 0 when there is none

} // namespace Host

#endif
