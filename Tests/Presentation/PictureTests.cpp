// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <gtest/gtest.h>
#include <Presentation/Picture.h>

namespace {

using namespace Host;

std::uint32_t NumberAt(const std::string& theBytes, size_t thePlace)
{
    std::uint32_t theNumber = 0;
    for (size_t theIndex = thePlace; theIndex < thePlace + 4; ++theIndex) {
        theNumber = theNumber << 8 | static_cast<unsigned char>(theBytes.at(theIndex));
    }
    return theNumber;
}

} // namespace

// Compared with what other programs make of the same pixels: the checks are those of zlib.
TEST(Picture, IsAPngFileWithUnmultipliedColours)
{
    const Picture thePicture{2, 1, 1, {0xFFFF0000, 0x80400020}};
    const std::string theFile = PngOf(thePicture);
    EXPECT_EQ(theFile.substr(0, 16), std::string("\x89PNG\r\n\x1a\n\0\0\0\x0dIHDR", 16));
    EXPECT_EQ(NumberAt(theFile, 16), 2u);
    EXPECT_EQ(NumberAt(theFile, 20), 1u);
    EXPECT_EQ(theFile.substr(24, 5), std::string("\x08\x06\0\0\0", 5));
    EXPECT_EQ(NumberAt(theFile, 29), 0xF4227F8Au);
    EXPECT_EQ(NumberAt(theFile, 33), 20u);
    const std::string theData = theFile.substr(41, 20);
    EXPECT_EQ(theData.substr(0, 7), std::string("\x78\x01\x01\x09\x00\xf6\xff", 7));
    EXPECT_EQ(theData.substr(7, 9), std::string("\0\xff\0\0\xff\x80\0\x40\x80", 9));
    EXPECT_EQ(NumberAt(theData, 16), 0x0FFC033Fu);
    EXPECT_EQ(NumberAt(theFile, 61), 0x16AA4242u);
    EXPECT_EQ(theFile.substr(65), std::string("\0\0\0\0IEND\xae\x42\x60\x82", 12));
}

TEST(Picture, OneOfMoreThanABlockIsInSeveral)
{
    const Picture thePicture{200, 100, 1, std::vector<std::uint32_t>(20000)};
    const std::string theFile = PngOf(thePicture);
    // 801 bytes in a row: 65,535 in the first block and 14,565 in the second.
    EXPECT_EQ(NumberAt(theFile, 33), 2u + 2 * 5 + 80100 + 4);
    EXPECT_EQ(theFile.substr(43, 5), std::string("\0\xff\xff\0\0", 5));
    EXPECT_EQ(theFile.substr(48 + 65535, 5), std::string("\1\xe5\x38\x1a\xc7", 5));
}

TEST(Picture, CoversAnotherAsFarAsItIsOpaqueAndInside)
{
    Picture theGround{3, 2, 1, std::vector<std::uint32_t>(6, 0xFFFFFFFF)};
    DrawOver({2, 2, 1, {0xFF000000, 0x80000080, 0, 0xFF00FF00}}, {2, -1}, theGround);
    EXPECT_EQ(theGround.thePixels, (std::vector<std::uint32_t>{0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF,
                                                               0xFFFFFFFF, 0xFFFFFFFF}));
    DrawOver({2, 2, 1, {0xFF000000, 0x80000080, 0, 0xFF00FF00}}, {0, 0}, theGround);
    EXPECT_EQ(theGround.thePixels, (std::vector<std::uint32_t>{0xFF000000, 0xFF7F7FFF, 0xFFFFFFFF, 0xFFFFFFFF,
                                                               0xFF00FF00, 0xFFFFFFFF}));
}

TEST(Picture, IsAsLargeInAFinerOneAsInItsOwn)
{
    Picture theGround{4, 2, 2, std::vector<std::uint32_t>(8)};
    DrawOver({2, 1, 1, {0xFF0000FF, 0xFF00FF00}}, {0, 0}, theGround);
    EXPECT_EQ(theGround.thePixels,
              (std::vector<std::uint32_t>{0xFF0000FF, 0xFF0000FF, 0xFF00FF00, 0xFF00FF00, 0xFF0000FF,
                                          0xFF0000FF, 0xFF00FF00, 0xFF00FF00}));
}
