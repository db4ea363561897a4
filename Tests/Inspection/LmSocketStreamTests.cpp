// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmSocketStream.h"

#include <array>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <sys/socket.h>
#include <unistd.h>

namespace {

// A stream, and the other end of its connection.
class Ends
{
public:
    Ends()
    {
        EXPECT_EQ(::socketpair(AF_UNIX, SOCK_STREAM, 0, mEnds.data()), 0);
        mStream = std::make_unique<LmSocketStream>(std::make_unique<LmConnection>(mEnds[0]));
    }
    ~Ends() { Leave(); }
    Ends(const Ends&) = delete;
    Ends& operator=(const Ends&) = delete;

    LmSocketStream& Stream() { return *mStream; }
    void End() { mStream.reset(); }
    void Leave()
    {
        if (mEnds[1] >= 0) {
            ::close(mEnds[1]);
            mEnds[1] = -1;
        }
    }
    std::string Read() const
    {
        std::string theText;
        std::array<char, 65536> theBytes = {};
        ssize_t theCount = 0;
        while ((theCount = ::recv(mEnds[1], theBytes.data(), theBytes.size(), MSG_DONTWAIT)) > 0) {
            theText.append(theBytes.data(), static_cast<std::size_t>(theCount));
        }
        return theText;
    }

private:
    std::array<int, 2> mEnds = {-1, -1};
    std::unique_ptr<LmSocketStream> mStream;
};

bool Write(Ends& theEnds, std::string theLine)
{
    return theEnds.Stream().Write(theLine);
}

// Lines until one is lost; how many were taken.
std::size_t Fill(Ends& theEnds, const std::string& theLine)
{
    std::size_t theCount = 0;
    while (Write(theEnds, theLine)) {
        ++theCount;
    }
    return theCount;
}

} // namespace

TEST(LmSocketStream, HandsOnEachLineAtOnce)
{
    Ends theEnds;
    EXPECT_TRUE(Write(theEnds, "first"));
    EXPECT_EQ(theEnds.Read(), "first\n");
    EXPECT_TRUE(Write(theEnds, "second"));
    EXPECT_EQ(theEnds.Read(), "second\n");
    EXPECT_TRUE(theEnds.Stream().Tend());
}

TEST(LmSocketStream, KeepsWhatIsNotReadUpToALimitAndLosesWholeLines)
{
    Ends theEnds;
    const std::string theLine(1000, 'x');
    const std::size_t theTaken = Fill(theEnds, theLine);
    EXPECT_GT(theTaken * (theLine.size() + 1), LmSocketStream::kMostPending - 2 * theLine.size());
    std::string theText;
    for (std::string thePart = theEnds.Read(); !thePart.empty(); thePart = theEnds.Read()) {
        theText += thePart;
        EXPECT_TRUE(theEnds.Stream().Tend());
    }
    EXPECT_EQ(theText.size(), theTaken * (theLine.size() + 1));
    EXPECT_EQ(theText.back(), '\n');
    EXPECT_TRUE(Write(theEnds, "after"));
    EXPECT_EQ(theEnds.Read(), "after\n");
}

TEST(LmSocketStream, TakesALineThatIsLongerThanWhatIsKept)
{
    Ends theEnds;
    const std::string theLine(2 * LmSocketStream::kMostPending, 'x');
    EXPECT_TRUE(Write(theEnds, theLine));
    EXPECT_FALSE(Write(theEnds, "next"));
    std::string theText;
    for (std::string thePart = theEnds.Read(); !thePart.empty(); thePart = theEnds.Read()) {
        theText += thePart;
        theEnds.Stream().Tend();
    }
    EXPECT_EQ(theText, theLine + "\n");
}

TEST(LmSocketStream, FindsOutThatTheReaderHasGone)
{
    Ends theEnds;
    EXPECT_TRUE(theEnds.Stream().Tend());
    theEnds.Leave();
    EXPECT_FALSE(Write(theEnds, "line"));
    EXPECT_FALSE(theEnds.Stream().Tend());
    Ends theIdle;
    theIdle.Leave();
    EXPECT_FALSE(theIdle.Stream().Tend()) << "without a line";
}

TEST(LmSocketStream, HasNothingToBeginAnew)
{
    Ends theEnds;
    EXPECT_TRUE(Write(theEnds, "one"));
    EXPECT_FALSE(theEnds.Stream().IsFullFor(1U << 30U));
    theEnds.Stream().Renew();
    EXPECT_TRUE(Write(theEnds, "two"));
    EXPECT_EQ(theEnds.Read(), "one\ntwo\n");
}
