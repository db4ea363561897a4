// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmCallers.h"

#include "JournalReader.h"

#include <cstdint>
#include <cstring>
#include <fstream>
#include <gtest/gtest.h>
#include <vector>

namespace {

// The parts of an executable file that are looked at, of the class and byte order of this process.
class ModuleFile
{
public:
    explicit ModuleFile(std::uint16_t theType)
        : mBytes(512, '\0')
    {
        std::memcpy(mBytes.data(),
                    "\x7F"
                    "ELF",
                    4);
        Put(16, theType);
        PutWord(kIs64 ? 32 : 28, kHeader);
        Put(kIs64 ? 54 : 42, static_cast<std::uint16_t>(kIs64 ? 56 : 32));
        Put(kIs64 ? 56 : 44, std::uint16_t{1});
        Put(kHeader, std::uint32_t{4});
        PutWord(kHeader + (kIs64 ? 8 : 4), kNote);
        PutWord(kHeader + (kIs64 ? 32 : 16), 20);
        Put(kNote, std::uint32_t{4});
        Put(kNote + 4, std::uint32_t{4});
        Put(kNote + 8, std::uint32_t{3});
        std::memcpy(mBytes.data() + kNote + 12, "GNU\0\x12\x34\xAB\xCD", 8);
    }

    template <typename Number>
    void Put(std::size_t thePlace, Number theNumber)
    {
        std::memcpy(mBytes.data() + thePlace, &theNumber, sizeof theNumber);
    }

    void PutWord(std::size_t thePlace, std::uintptr_t theNumber) { Put(thePlace, theNumber); }

    LmModule Read(const JournalFolder& theFolder, std::size_t theSize = 512) const
    {
        LmModule theModule;
        theModule.thePath = theFolder.GetPath("module");
        std::ofstream(theModule.thePath, std::ios::binary)
            .write(mBytes.data(), static_cast<std::streamsize>(theSize));
        LmReadModuleFile(theModule);
        return theModule;
    }

    static constexpr bool kIs64 = sizeof(void*) == 8;
    static constexpr std::size_t kHeader = 128;
    static constexpr std::size_t kNote = 256;

private:
    std::vector<char> mBytes;
};

} // namespace

TEST(LmCallers, ReadTheBuildIdOfAModule)
{
    const JournalFolder theFolder;
    const LmModule theModule = ModuleFile(3).Read(theFolder);
    EXPECT_EQ(theModule.theBuild, "1234abcd");
    EXPECT_FALSE(theModule.isFixed);
}

TEST(LmCallers, SayWhetherTheAddressesOfAModuleAreFixed)
{
    const JournalFolder theFolder;
    EXPECT_TRUE(ModuleFile(2).Read(theFolder).isFixed);
}

TEST(LmCallers, ReadNoBuildIdFromADamagedModule)
{
    const JournalFolder theFolder;
    const ModuleFile theWhole(3);
    for (std::size_t theSize = 0; theSize < ModuleFile::kNote + 20;
         theSize += theSize < ModuleFile::kNote ? 16 : 1) {
        EXPECT_EQ(theWhole.Read(theFolder, theSize).theBuild, "") << theSize;
    }
    ModuleFile theFile(3);
    theFile.Put(ModuleFile::kNote + 4, std::uint32_t{0xFFFFFFFF}); // longer than any
    EXPECT_EQ(theFile.Read(theFolder).theBuild, "");
    theFile.Put(0, 'x');
    EXPECT_EQ(theFile.Read(theFolder).theBuild, "");
}

TEST(LmCallers, FindTheModuleOfAnAddress)
{
    LmCallers theCallers;
    const auto theAddress = reinterpret_cast<std::uintptr_t>(&LmBeginJournal);
    LmModule* const theModule = theCallers.FindModule(theAddress);
    ASSERT_NE(theModule, nullptr);
    EXPECT_NE(theModule->thePath.find("libLmInspection"), std::string::npos);
    EXPECT_EQ(theCallers.FindModule(theAddress), theModule);
    EXPECT_EQ(theCallers.FindModule(1), nullptr);
}

TEST(LmCallers, AreAsManyAsWereAskedFor)
{
    LmCallers theCallers;
    theCallers.Collect(2);
    EXPECT_EQ(theCallers.Get().size(), 2U);
    theCallers.Collect(1);
    EXPECT_EQ(theCallers.Get().size(), 1U);
}
