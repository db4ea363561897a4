// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LineReader_h
#define LineReader_h

// Takes a file or a pipe apart into lines, a block at a time. A line that is too long is passed over without
// being kept, so the memory is bounded whatever the file holds.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string_view>
#include <vector>

namespace Inspect {

struct CloseFile
{
    void operator()(std::FILE* theFile) const { std::fclose(theFile); }
};
using FilePointer = std::unique_ptr<std::FILE, CloseFile>;

class LineReader
{
public:
    // A line may be as long as that, its line feed left out.
    static constexpr std::size_t kLongestLine = std::size_t{4} << 20U;
    // So many bytes behind a line may be read, which parsers of JSON do.
    static constexpr std::size_t kPadding = 64;

    enum class Result : std::uint8_t
    {
        Line,    // mLine is the next line
        TooLong, // the next line is too long
        End,     // nothing is left but perhaps a line without a line feed, which is incomplete
        Failure  // the system could not read on
    };

    explicit LineReader(FilePointer theFile);

    Result Next();
    // Good until Next is called. kPadding bytes behind it can be read, and are what they are.
    std::string_view GetLine() const { return mLine; }
    // The number of the line that Next has just come to, 1 for the first one.
    std::uint64_t GetNumber() const { return mNumber; }
    // Whether the file ended in the middle of a line.
    bool IsCutOff() const { return mIsCutOff; }
    std::FILE* GetFile() const { return mFile.get(); }
    // From the beginning again. Returns false for what cannot be read twice.
    bool Rewind();

private:
    bool Fill();
    Result SkipLine();

    FilePointer mFile;
    std::vector<char> mBuffer;
    std::size_t mBegin = 0; // of what is in mBuffer and was not handed out yet
    std::size_t mEnd = 0;
    std::string_view mLine;
    std::uint64_t mNumber = 0;
    bool mIsCutOff = false;
    bool mIsFailed = false;
};

} // namespace Inspect

#endif
