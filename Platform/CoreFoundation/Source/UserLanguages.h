// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef UserLanguages_h
#define UserLanguages_h

#include <string>
#include <vector>

namespace Host {

// The languages that the person reads, the best first, as "de" or "de_AT": LANGUAGE in the environment, or
// what LC_ALL, LC_MESSAGES or LANG says. English where nobody says anything.
std::vector<std::string> UserLanguages();

// The names that a folder of a language may have, the best first: de_AT, de, German.
std::vector<std::string> NamesOfLanguage(const std::string& theLanguage);

} // namespace Host

#endif
