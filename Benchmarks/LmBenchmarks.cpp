// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The scenarios under Google Benchmark.

#include "BindingScenarios.h"
#include "ControllerScenarios.h"
#include "Scenarios.h"

#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>

namespace {

template <typename Scenario>
void Measure(benchmark::State& theState, Scenario& theScenario)
{
    for ([[maybe_unused]] auto theRound : theState) {
        theScenario.Step();
    }
    if (!theScenario.IsRight()) {
        std::fprintf(stderr, "The measured work was not done.\n");
        std::exit(1);
    }
}

std::size_t Argument(const benchmark::State& theState, std::size_t theIndex = 0)
{
    return static_cast<std::size_t>(theState.range(theIndex));
}

void SettingAKey(benchmark::State& theState)
{
    SetKeyScenario theScenario(Argument(theState, 0), Argument(theState, 1));
    Measure(theState, theScenario);
}
BENCHMARK(SettingAKey)->ArgNames({"keys", "observers"})->ArgsProduct({{10, 1000, 100000}, {0, 1, 10}});

void OneHopOneWay(benchmark::State& theState)
{
    HopScenario theScenario(false);
    Measure(theState, theScenario);
}
BENCHMARK(OneHopOneWay);

void OneHopTwoWay(benchmark::State& theState)
{
    HopScenario theScenario(true);
    Measure(theState, theScenario);
}
BENCHMARK(OneHopTwoWay);

void Chain(benchmark::State& theState)
{
    ChainScenario theScenario(Argument(theState));
    Measure(theState, theScenario);
}
BENCHMARK(Chain)->ArgName("length")->Arg(10)->Arg(100);

void FanOutOneWay(benchmark::State& theState)
{
    FanOutScenario theScenario(Argument(theState), false);
    Measure(theState, theScenario);
}
BENCHMARK(FanOutOneWay)->ArgName("width")->Arg(100)->Arg(1000);

void FanOutTwoWay(benchmark::State& theState)
{
    FanOutScenario theScenario(Argument(theState), true);
    Measure(theState, theScenario);
}
BENCHMARK(FanOutTwoWay)->ArgName("width")->Arg(100)->Arg(1000);

void ChangeAmongBoundKeys(benchmark::State& theState)
{
    BoundKeysScenario theScenario(Argument(theState));
    Measure(theState, theScenario);
}
BENCHMARK(ChangeAmongBoundKeys)->ArgName("keys")->Arg(10)->Arg(100)->Arg(1000)->Arg(10000);

void BindingAndUnbinding(benchmark::State& theState)
{
    PairsScenario theScenario(Argument(theState));
    Measure(theState, theScenario);
}
BENCHMARK(BindingAndUnbinding)->ArgName("pairs")->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

void BindingAndUnbindingFollowers(benchmark::State& theState)
{
    FollowersScenario theScenario(Argument(theState));
    Measure(theState, theScenario);
}
BENCHMARK(BindingAndUnbindingFollowers)
    ->ArgName("followers")
    ->Arg(1000)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond);

template <typename Scenario>
void EventThroughABinding(benchmark::State& theState)
{
    Scenario theScenario;
    Measure(theState, theScenario);
}
BENCHMARK(EventThroughABinding<ControlEventScenario>);
BENCHMARK(EventThroughABinding<WindowEventScenario>);
BENCHMARK(EventThroughABinding<MenuEventScenario>);
BENCHMARK(EventThroughABinding<ModelEventScenario>);

void ReadingAPreference(benchmark::State& theState)
{
    PreferenceScenario theScenario(false);
    Measure(theState, theScenario);
}
BENCHMARK(ReadingAPreference);

void WritingAPreference(benchmark::State& theState)
{
    PreferenceScenario theScenario(true);
    Measure(theState, theScenario);
}
BENCHMARK(WritingAPreference);

void Observation(benchmark::State& theState)
{
    ObservationScenario theScenario;
    Measure(theState, theScenario);
}
BENCHMARK(Observation);

void ScopedHop(benchmark::State& theState)
{
    ScopedHopScenario theScenario(Argument(theState) == 2);
    Measure(theState, theScenario);
}
BENCHMARK(ScopedHop)->ArgName("ways")->Arg(1)->Arg(2);

void MakingAScopedBinding(benchmark::State& theState)
{
    ScopedPairScenario theScenario;
    Measure(theState, theScenario);
}
BENCHMARK(MakingAScopedBinding);

void ChangeGroup(benchmark::State& theState)
{
    GroupScenario theScenario;
    Measure(theState, theScenario);
}
BENCHMARK(ChangeGroup);

void MainQueue(benchmark::State& theState)
{
    PostScenario theScenario;
    Measure(theState, theScenario);
}
BENCHMARK(MainQueue);

void ApplyingATransform(benchmark::State& theState)
{
    TransformScenario theScenario(Argument(theState, 0), Argument(theState, 1));
    Measure(theState, theScenario);
    theState.SetLabel(std::string(TransformScenario::TransformNames()[Argument(theState, 0)]) + " of " +
                      TransformScenario::KindNames()[Argument(theState, 1)]);
}

void EachTransformOnItsKinds(benchmark::internal::Benchmark* theBenchmark)
{
    for (std::size_t theTransform = 0; theTransform < TransformScenario::TransformNames().size();
         ++theTransform) {
        for (std::size_t theKind = 0; theKind < TransformScenario::KindNames().size(); ++theKind) {
            if (TransformScenario::IsMeantFor(theTransform, theKind)) {
                theBenchmark->Args({static_cast<long>(theTransform), static_cast<long>(theKind)});
            }
        }
    }
}
BENCHMARK(ApplyingATransform)->ArgNames({"transform", "kind"})->Apply(EachTransformOnItsKinds);

} // namespace

BENCHMARK_MAIN();
