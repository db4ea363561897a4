// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// InstructionProbe <scenario> <steps> [<size> [<observers>]]: runs one scenario that many times; with
// "traced-" in front of its name while the trace log is on.
//
// CountInstructions.sh runs this under callgrind twice, with different numbers of steps: the difference is
// what the steps cost, without the program's start and the scenario's preparation.

#include "BindingScenarios.h"
#include "ControllerScenarios.h"
#include "LmDebugObject.h"
#include "Scenarios.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

template <typename Scenario>
int Run(Scenario&& theScenario, long theSteps)
{
    for (long theStep = 0; theStep < theSteps; ++theStep) {
        theScenario.Step();
    }
    return theScenario.IsRight() ? EXIT_SUCCESS : EXIT_FAILURE;
}

std::size_t NumberArgument(int theCount, char** theArguments, int theIndex)
{
    return theIndex < theCount ? std::strtoul(theArguments[theIndex], nullptr, 10) : 0;
}

} // namespace

int main(int theCount, char** theArguments)
{
    if (theCount < 3) {
        std::fprintf(stderr, "usage: InstructionProbe set|one-way|two-way|chain|fan-out-one-way|"
                             "fan-out-two-way|bound-keys|pairs|followers|control|window|menu|model|"
                             "preference-read|preference-write|transform|observation|scoped-one-way|scoped-"
                             "two-way|scoped-pair|group|post <steps> [<size> "
                             "[<observers or kind>]]\n");
        return EXIT_FAILURE;
    }
    const char* theName = theArguments[1];
    constexpr char kTraced[] = "traced-";
    if (std::strncmp(theName, kTraced, sizeof kTraced - 1) == 0) {
        theName += sizeof kTraced - 1;
        LmDebugObject::SetLogging(true);
    }
    const long theSteps = std::strtol(theArguments[2], nullptr, 10);
    const std::size_t theSize = NumberArgument(theCount, theArguments, 3);
    if (std::strcmp(theName, "set") == 0) {
        return Run(SetKeyScenario(theSize, NumberArgument(theCount, theArguments, 4)), theSteps);
    }
    if (std::strcmp(theName, "one-way") == 0 || std::strcmp(theName, "two-way") == 0) {
        return Run(HopScenario(std::strcmp(theName, "two-way") == 0), theSteps);
    }
    if (std::strcmp(theName, "chain") == 0) {
        return Run(ChainScenario(theSize), theSteps);
    }
    if (std::strncmp(theName, "fan-out-", 8) == 0) {
        return Run(FanOutScenario(theSize, std::strcmp(theName, "fan-out-two-way") == 0), theSteps);
    }
    if (std::strcmp(theName, "bound-keys") == 0) {
        return Run(BoundKeysScenario(theSize), theSteps);
    }
    if (std::strcmp(theName, "pairs") == 0) {
        return Run(PairsScenario(theSize), theSteps);
    }
    if (std::strcmp(theName, "followers") == 0) {
        return Run(FollowersScenario(theSize), theSteps);
    }
    if (std::strcmp(theName, "control") == 0) {
        return Run(ControlEventScenario(), theSteps);
    }
    if (std::strcmp(theName, "window") == 0) {
        return Run(WindowEventScenario(), theSteps);
    }
    if (std::strcmp(theName, "menu") == 0) {
        return Run(MenuEventScenario(), theSteps);
    }
    if (std::strcmp(theName, "model") == 0) {
        return Run(ModelEventScenario(), theSteps);
    }
    if (std::strncmp(theName, "preference-", 11) == 0) {
        return Run(PreferenceScenario(std::strcmp(theName, "preference-write") == 0), theSteps);
    }
    if (std::strcmp(theName, "observation") == 0) {
        return Run(ObservationScenario(), theSteps);
    }
    if (std::strcmp(theName, "scoped-one-way") == 0 || std::strcmp(theName, "scoped-two-way") == 0) {
        return Run(ScopedHopScenario(std::strcmp(theName, "scoped-two-way") == 0), theSteps);
    }
    if (std::strcmp(theName, "scoped-pair") == 0) {
        return Run(ScopedPairScenario(), theSteps);
    }
    if (std::strcmp(theName, "group") == 0) {
        return Run(GroupScenario(), theSteps);
    }
    if (std::strcmp(theName, "post") == 0) {
        return Run(PostScenario(), theSteps);
    }
    if (std::strcmp(theName, "transform") == 0) {
        return Run(TransformScenario(theSize, NumberArgument(theCount, theArguments, 4)), theSteps);
    }
    std::fprintf(stderr, "There is no scenario %s\n", theName);
    return EXIT_FAILURE;
}
