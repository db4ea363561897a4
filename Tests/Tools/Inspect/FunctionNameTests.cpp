// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "FunctionName.h"

#include <gtest/gtest.h>
#include <string>

using Inspect::ReadableName;

TEST(FunctionName, IsThatOfTheFunctionAlone)
{
    EXPECT_EQ(ReadableName("ThermostatModel::Reset()"), "ThermostatModel::Reset");
    EXPECT_EQ(ReadableName("(anonymous namespace)::Press(int)"), "(anonymous namespace)::Press");
    EXPECT_EQ(ReadableName("Map<int (*)(int)>::Find(int) const"), "Map<int (*)(int)>::Find");
    EXPECT_EQ(ReadableName("main"), "main");
    EXPECT_EQ(ReadableName(""), "");
}

TEST(FunctionName, HasNoTypeOfAResult)
{
    EXPECT_EQ(ReadableName("unsigned long Count<int>(int)"), "Count<int>");
    EXPECT_EQ(ReadableName("Map<int, char>& (anonymous namespace)::Left<Map<int, char> >(char const*)"),
              "(anonymous namespace)::Left<Map<int, char> >");
    EXPECT_EQ(ReadableName("decltype (Run()) Call<int>(int)"), "Call<int>");
}

TEST(FunctionName, NamesALambdaAfterTheFunctionThatItStandsIn)
{
    EXPECT_EQ(ReadableName("main::{lambda()#1}::operator()() const"), "lambda in main");
    EXPECT_EQ(ReadableName("Radio::Reset(int)::{lambda(int (*)(int))#2}::operator()(int (*)(int)) const"),
              "lambda in Radio::Reset");
    EXPECT_EQ(ReadableName("Radio::Reset() const::{lambda()#1}::_FUN()"), "lambda in Radio::Reset");
    EXPECT_EQ(ReadableName("Radio::Reset()::$_0::operator()() const"), "lambda in Radio::Reset");
    EXPECT_EQ(ReadableName(
                  "Radio::Reset()::{lambda()#1}::operator()() const::{lambda(int)#1}::operator()(int) const"),
              "lambda in Radio::Reset");
    EXPECT_EQ(ReadableName("(anonymous namespace)::{lambda()#1}::operator()() const"),
              "lambda in (anonymous namespace)");
    EXPECT_EQ(ReadableName("{lambda()#1}::operator()() const"), "lambda");
}

TEST(FunctionName, NamesWhatStandsInAFunctionWithIt)
{
    EXPECT_EQ(ReadableName("Radio::Reset()::Local::Run(int)"), "Radio::Reset::Local::Run");
}

TEST(FunctionName, KeepsTheSignsOfAnOperator)
{
    EXPECT_EQ(ReadableName("Thing::operator<(Thing const&)"), "Thing::operator<");
    EXPECT_EQ(ReadableName("Thing::operator()(int) const"), "Thing::operator()");
    EXPECT_EQ(ReadableName("Thing::operator->()"), "Thing::operator->");
    EXPECT_EQ(ReadableName("Thing::operator bool() const"), "Thing::operator bool");
    EXPECT_EQ(ReadableName("operator new(unsigned long)"), "operator new");
    EXPECT_EQ(ReadableName("Thing::operators(int)"), "Thing::operators");
}

TEST(FunctionName, LeavesOutWhatACompilerAdds)
{
    EXPECT_EQ(ReadableName("Radio::Reset() [clone .cold]"), "Radio::Reset");
    EXPECT_EQ(ReadableName("Radio::Reset() [clone .part.0] [clone .constprop.1]"), "Radio::Reset");
    EXPECT_EQ(ReadableName("main.cold"), "main");
    EXPECT_EQ(ReadableName("Run.constprop.0.isra.0"), "Run");
    EXPECT_EQ(ReadableName("non-virtual thunk to Radio::ValueChanged(int)"), "Radio::ValueChanged");
    EXPECT_EQ(ReadableName("virtual thunk to Radio::ValueChanged(int)"), "Radio::ValueChanged");
    EXPECT_EQ(ReadableName("Radio::Name[abi:cxx11]() const"), "Radio::Name");
    EXPECT_EQ(ReadableName("_GLOBAL__sub_I_main"), "what runs before main");
    EXPECT_EQ(ReadableName("__static_initialization_and_destruction_0(int, int)"), "what runs before main");
    EXPECT_EQ(ReadableName("std::_Function_handler<void (), Radio::Reset()::{lambda()#1}>::_M_invoke("
                           "std::_Any_data const&)"),
              "std::_Function_handler<...>::_M_invoke");
}

// Whatever stands in a file's table of symbols.
TEST(FunctionName, IsSomethingForAnyText)
{
    for (const char* theText :
         {"(", ")", "<", ">>", "{lambda(", "a::{lambda(", "operator", "operator(", "a b", "((((",
          "a()::", "a()::b(", " ", "decltype ", "decltype (", "::{lambda()#1}"}) {
        EXPECT_LE(ReadableName(theText).size(), 40U) << theText;
    }
    std::string theDeep;
    for (int theCount = 0; theCount < 5000; ++theCount) {
        theDeep += "a()::";
    }
    EXPECT_FALSE(ReadableName(theDeep).empty());
}
