# cmake -DLM_FOLDER=<folder> -DLM_SCRIPTS=<a.js,b.js> -DLM_OUTPUT=<file> -P EmbedPage.cmake
#
# Makes a source file of what every page has in common, with the hashes by which the page's policy knows it.

# base64(<hexadecimal> <variable>)
function(base64 theHex theResult)
  set(theLetters "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/")
  string(LENGTH "${theHex}" theLength)
  set(theText "")
  set(thePlace 0)
  # Three bytes, six digits, are four letters.
  while(thePlace LESS theLength)
    string(SUBSTRING "${theHex}00000" ${thePlace} 6 theGroup)
    foreach(theShift 18 12 6 0)
      math(EXPR theIndex "(0x${theGroup} >> ${theShift}) & 63")
      string(SUBSTRING "${theLetters}" ${theIndex} 1 theLetter)
      string(APPEND theText "${theLetter}")
    endforeach()
    math(EXPR thePlace "${thePlace} + 6")
  endwhile()
  # SHA-256 has 32 bytes, so the last letter stands for none.
  string(REGEX REPLACE ".$" "=" theText "${theText}")
  set(${theResult} "${theText}" PARENT_SCOPE)
endfunction()

set(theStart "// Made by EmbedPage.cmake.\n\n#include \"PageParts.h\"\n\nnamespace Inspect {\n\n")
set(theScript "")
set(theScripts "")
string(REPLACE "," ";" theNames "${LM_SCRIPTS}")
foreach(theName IN LISTS theNames)
  file(READ "${LM_FOLDER}/${theName}" theText)
  string(APPEND theScript "${theText}")
  string(APPEND theScripts "            R\"PagePart(${theText})PagePart\",\n")
endforeach()
file(READ "${LM_FOLDER}/page.css" theStyle)
file(READ "${LM_FOLDER}/page.html" theFrame)
string(SHA256 theStyleHash "${theStyle}")
string(SHA256 theScriptHash "${theScript}")
base64("${theStyleHash}" theStyleHash)
base64("${theScriptHash}" theScriptHash)
file(WRITE "${LM_OUTPUT}" "${theStart}"
  "std::string_view GetPageFrame()\n{\n    return R\"PagePart(${theFrame})PagePart\";\n}\n\n"
  "std::string_view GetPageStyle()\n{\n    return R\"PagePart(${theStyle})PagePart\";\n}\n\n"
  "std::vector<std::string_view> GetPageScripts()\n{\n    return {\n${theScripts}    };\n}\n\n"
  "std::string_view GetPageStyleHash()\n{\n    return \"${theStyleHash}\";\n}\n\n"
  "std::string_view GetPageScriptHash()\n{\n    return \"${theScriptHash}\";\n}\n\n"
  "} // namespace Inspect\n")
