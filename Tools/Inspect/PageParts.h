// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef PageParts_h
#define PageParts_h

// What every page has in common: the files of the folder Page, which the build makes a source file of
// (EmbedPage.cmake).

#include <string_view>
#include <vector>

namespace Inspect {

// With @POLICY@, @STYLE@, @DATA@ and @SCRIPT@ in it, in this order.
std::string_view GetPageFrame();
std::string_view GetPageStyle();
// One behind the other they are the script.
std::vector<std::string_view> GetPageScripts();
// SHA-256, as a page's policy has it.
std::string_view GetPageStyleHash();
std::string_view GetPageScriptHash();

} // namespace Inspect

#endif
