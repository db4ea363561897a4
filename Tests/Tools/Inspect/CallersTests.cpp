// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Callers.h"

#include <gtest/gtest.h>
#include <link.h>
#include <unistd.h>

using Inspect::Callers;
using Inspect::Entry;
using Inspect::What;

namespace {

// Where this program was loaded.
std::uint64_t OwnBase()
{
    std::uint64_t theBase = 0;
    dl_iterate_phdr(
        [](dl_phdr_info* theInfo, std::size_t, void* theResult) {
            *static_cast<std::uint64_t*>(theResult) = theInfo->dlpi_addr;
            return 1;
        },
        &theBase);
    return theBase;
}

std::string OwnPath()
{
    std::string thePath(4096, '\0');
    const ssize_t theLength = ::readlink("/proc/self/exe", thePath.data(), thePath.size());
    thePath.resize(theLength < 0 ? 0 : static_cast<std::size_t>(theLength));
    return thePath;
}

Entry ModuleEntry(const std::string& thePath, std::uint64_t theBase)
{
    Entry theEntry;
    theEntry.theWhat = What::Module;
    theEntry.theModule.thePath = thePath;
    theEntry.theModule.theBase = theBase;
    theEntry.theModule.theEnd = theBase + 0x40000000;
    return theEntry;
}

[[gnu::noinline]] std::uint64_t WhoCalls()
{
    return reinterpret_cast<std::uint64_t>(__builtin_return_address(0));
}

} // namespace

namespace CallersTest {

class Model
{
public:
    [[gnu::noinline]] static std::uint64_t Reset(int& theLine)
    {
        theLine = __LINE__ + 1;
        const std::uint64_t theAddress = WhoCalls();
        return theAddress + (theAddress == 0 ? 1U : 0U);
    }
};

} // namespace CallersTest

TEST(Callers, AreFunctionsAndLines)
{
    int theLine = 0;
    const std::uint64_t theAddress = CallersTest::Model::Reset(theLine);
    Callers theCallers;
    theCallers.Take(ModuleEntry(OwnPath(), OwnBase() == 0 ? 0 : OwnBase()));
    const Callers::Place& thePlace = theCallers.Find(theAddress);
    EXPECT_EQ(thePlace.theFunction, "CallersTest::Model::Reset");
    EXPECT_EQ(thePlace.theFile, "CallersTests.cpp");
    EXPECT_EQ(thePlace.theLine, theLine);
    EXPECT_EQ(theCallers.Show(theAddress),
              "CallersTest::Model::Reset, CallersTests.cpp:" + std::to_string(theLine));
    Entry theEntry;
    EXPECT_EQ(theCallers.ShowInnermost(theEntry), "");
    theEntry.theCallers = {theAddress, 5};
    EXPECT_EQ(theCallers.ShowInnermost(theEntry), theCallers.Show(theAddress));
}

TEST(Callers, AreAddressesWhereNothingIsKnown)
{
    Callers theCallers;
    EXPECT_EQ(theCallers.Show(0x1234), "0x1234");
    theCallers.Take(ModuleEntry("/nowhere/libThing.so", 0x10000));
    EXPECT_EQ(theCallers.Show(0x12345), "0x12345 in libThing.so");
    EXPECT_EQ(theCallers.Show(0x10000), "0x10000") << "nothing can return to the first byte";
    // A folder and a device are not opened.
    theCallers.Take(ModuleEntry("/dev/zero", 0x100000000));
    EXPECT_EQ(theCallers.Show(0x100000001), "0x100000001 in zero");
}

TEST(Callers, AreNotLookedUpInAnotherBuild)
{
    Callers theCallers;
    Entry theEntry = ModuleEntry(OwnPath(), OwnBase());
    theEntry.theModule.theBuild = "0123";
    theCallers.Take(theEntry);
    int theLine = 0;
    const std::uint64_t theAddress = CallersTest::Model::Reset(theLine);
    EXPECT_EQ(theCallers.Show(theAddress),
              Callers().Show(theAddress) + " in inspectTests, which was built again since");
}

TEST(Callers, BeginWithTheFirstThatIsNotOfTheHost)
{
    Callers theCallers;
    theCallers.Take(ModuleEntry("/usr/lib/libLmControllers.so.1", 0x10000));
    theCallers.Take(ModuleEntry("/usr/bin/radio", 0x100000000));
    Entry theEntry;
    theEntry.theCallers = {0x10010, 0x10020, 0x100000030, 0x10040};
    EXPECT_EQ(theCallers.ShowInnermost(theEntry), "0x100000030 in radio");
    theEntry.theCallers = {0x10010, 0x10020};
    EXPECT_EQ(theCallers.ShowInnermost(theEntry), "0x10010 in libLmControllers.so.1");
}
