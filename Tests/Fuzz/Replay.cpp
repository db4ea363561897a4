// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Replay <folder or file>...: hands each kept input to the target, once. Needs one at least.

#include "FuzzTarget.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

namespace {

std::vector<std::filesystem::path> FilesOf(const std::filesystem::path& thePath)
{
    if (!std::filesystem::is_directory(thePath)) {
        return {thePath};
    }
    std::vector<std::filesystem::path> theFiles;
    for (const auto& theEntry : std::filesystem::directory_iterator(thePath)) {
        theFiles.push_back(theEntry.path());
    }
    std::sort(theFiles.begin(), theFiles.end());
    return theFiles;
}

bool Replay(const std::filesystem::path& theFile)
{
    std::ifstream theStream(theFile, std::ios::binary);
    if (!theStream) {
        std::fprintf(stderr, "%s cannot be read\n", theFile.c_str());
        return false;
    }
    // Exactly as long as the input, so that a step past its end is seen.
    const std::vector<char> theBytes{std::istreambuf_iterator<char>(theStream),
                                     std::istreambuf_iterator<char>()};
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(theBytes.data()), theBytes.size());
    return true;
}

} // namespace

int main(int theCount, char** theArguments)
{
    int theInputs = 0;
    for (int theIndex = 1; theIndex < theCount; ++theIndex) {
        for (const auto& theFile : FilesOf(theArguments[theIndex])) {
            if (!Replay(theFile)) {
                return 1;
            }
            ++theInputs;
        }
    }
    std::printf("%d inputs\n", theInputs);
    return theInputs > 0 ? 0 : 1;
}
