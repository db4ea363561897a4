// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Json_h
#define Json_h

// Writes JSON that can stand inside of a page: nothing in it ends the element that it stands in, and nothing
// is a line break to a script.

#include <cstdint>
#include <iosfwd>
#include <string_view>

namespace Inspect {

class Json
{
public:
    explicit Json(std::ostream& theOutput)
        : mOutput(theOutput)
    {
    }

    void BeginList() { Begin('['); }
    void EndList() { End(']'); }
    void BeginObject() { Begin('{'); }
    void EndObject() { End('}'); }
    // What is written next is the member called so.
    void Name(std::string_view theName);

    // Bytes that are no UTF-8 become U+FFFD.
    void Text(std::string_view theText);
    void Number(std::int64_t theNumber);
    // To a tenth.
    void Decimal(double theNumber);
    void Boolean(bool theValue);

private:
    void Begin(char theBracket);
    void End(char theBracket);
    void Separate();
    void Quote(std::string_view theText);

    std::ostream& mOutput;
    bool mIsFirst = true; // nothing stands in the list or object yet, or a name has just been written
};

} // namespace Inspect

#endif
