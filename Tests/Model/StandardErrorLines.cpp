// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "StandardErrorLines.h"

#include <sstream>
#include <unistd.h>

namespace Model {

StandardErrorLines::~StandardErrorLines()
{
    if (mFile != nullptr) {
        std::fflush(stderr);
        dup2(mStream, STDERR_FILENO);
        close(mStream);
        std::fclose(mFile);
    }
}

void StandardErrorLines::Start()
{
    if (mFile == nullptr) {
        std::fflush(stderr);
        mFile = std::tmpfile();
        mStream = dup(STDERR_FILENO);
        dup2(fileno(mFile), STDERR_FILENO);
    }
}

std::vector<std::string> StandardErrorLines::Take()
{
    std::vector<std::string> theLines;
    if (mFile == nullptr) {
        return theLines;
    }
    std::fflush(stderr);
    std::string theText;
    char theBytes[4096];
    ssize_t theCount = 0;
    // The position of the file belongs to the stream.
    while ((theCount = pread(fileno(mFile), theBytes, sizeof theBytes, mRead)) > 0) {
        theText.append(theBytes, static_cast<std::size_t>(theCount));
        mRead += static_cast<long>(theCount);
    }
    std::istringstream theStream(theText);
    for (std::string theLine; std::getline(theStream, theLine);) {
        theLines.push_back(theLine);
    }
    return theLines;
}

} // namespace Model
