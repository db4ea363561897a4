// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmSocketStream_h
#define LmSocketStream_h

#include "LmJournalOutput.h"
#include "LmLocalSocket.h"

#include <memory>
#include <string>

// Hands the lines of a journal to a reader that has connected. The program never waits for it: what cannot be
// taken at once is kept, and when that has become too much, lines are lost, each of them whole. Not part of
// the interface.
class LmSocketStream final : public LmJournalOutput
{
public:
    // So many bytes are kept for a slow reader.
    static constexpr std::size_t kMostPending = std::size_t{1} << 20U;

    explicit LmSocketStream(std::unique_ptr<LmConnection> theConnection);
    ~LmSocketStream() override;
    LmSocketStream(const LmSocketStream&) = delete;
    LmSocketStream& operator=(const LmSocketStream&) = delete;

    bool Write(std::string& theLine) override;
    bool Tend() override;

private:
    void Flush();

    std::unique_ptr<LmConnection> mConnection;
    std::string mPending; // begins within a line
};

#endif
