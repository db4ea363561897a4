// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef RandomPrograms_h
#define RandomPrograms_h

#include "StandardErrorCapture.h"

#include <cstddef>
#include <functional>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

// Random programs, played with the library and with a model that knows nothing but the rules. Either tells in
// lines what the state is after each step.
template <typename Step>
struct RandomPrograms
{
    using Program = std::vector<Step>;

    std::function<Step(std::mt19937&)> theMaker;
    std::function<Lines(const Program&)> theLibrary;
    std::function<Lines(const Program&)> theModel;
    std::function<std::string(const Step&)> theDescription;

    // Plays the programs of the seeds from 1 on. The first one that shows a difference is shrunk, step by
    // step, as long as it still shows one, and fails the test.
    void Play(unsigned theCount, std::size_t theLength) const
    {
        for (unsigned theSeed = 1; theSeed <= theCount; ++theSeed) {
            std::mt19937 theChance(theSeed);
            Program theProgram;
            while (theProgram.size() < theLength) {
                theProgram.push_back(theMaker(theChance));
            }
            if (IsDifferent(theProgram)) {
                FAIL() << "seed " << theSeed << '\n' << Explain(Shrink(theProgram));
            }
        }
    }

private:
    bool IsDifferent(const Program& theProgram) const
    {
        return theLibrary(theProgram) != theModel(theProgram);
    }

    Program Shrink(Program theProgram) const
    {
        for (std::size_t theIndex = theProgram.size(); theIndex-- > 0;) {
            Program theShorter = theProgram;
            theShorter.erase(theShorter.begin() + static_cast<std::ptrdiff_t>(theIndex));
            if (IsDifferent(theShorter)) {
                theProgram = theShorter;
            }
        }
        return theProgram;
    }

    // Step by step, what the library says, and what the model says where that is something else.
    std::string Explain(const Program& theProgram) const
    {
        const Lines theReal = theLibrary(theProgram);
        const Lines theExpected = theModel(theProgram);
        std::string theText;
        for (std::size_t theIndex = 0; theIndex < theProgram.size(); ++theIndex) {
            theText.append(theDescription(theProgram[theIndex])).append("\n    library: ");
            theText.append(theReal[theIndex]).append("\n");
            if (theReal[theIndex] != theExpected[theIndex]) {
                theText.append("    model:   ").append(theExpected[theIndex]).append("\n");
            }
        }
        return theText;
    }
};

#endif
