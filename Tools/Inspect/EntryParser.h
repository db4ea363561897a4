// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef EntryParser_h
#define EntryParser_h

// Makes an entry of a line, or says why it is none.

#include "Entry.h"

#include <memory>
#include <string>
#include <string_view>

namespace Inspect {

class EntryParser
{
public:
    EntryParser();
    ~EntryParser();
    EntryParser(const EntryParser&) = delete;
    EntryParser& operator=(const EntryParser&) = delete;

    // LineReader::kPadding bytes behind theLine can be read. Returns what is wrong with the line, empty when
    // theEntry holds it. An entry of a kind that the format does not have yet is a What::Unknown.
    std::string Parse(std::string_view theLine, Entry& theEntry);

private:
    class Fields;

    struct Engine;
    std::unique_ptr<Engine> mEngine;
};

} // namespace Inspect

#endif
