// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <Presentation/Picture.h>

#include <algorithm>
#include <array>

namespace Host {

namespace {

constexpr std::uint32_t kOpaque = 0xFF;

// The most that one block of the file's data can have.
constexpr size_t kLargestBlock = 0xFFFF;

void AddNumber(std::string& theBytes, std::uint32_t theNumber)
{
    for (int theShift = 24; theShift >= 0; theShift -= 8) {
        theBytes += static_cast<char>((theNumber >> theShift) & 0xFFu);
    }
}

void AddSmallEndian(std::string& theBytes, std::uint32_t theNumber)
{
    theBytes += static_cast<char>(theNumber & 0xFFu);
    theBytes += static_cast<char>((theNumber >> 8) & 0xFFu);
}

std::array<std::uint32_t, 256> MakeChecks()
{
    std::array<std::uint32_t, 256> theChecks{};
    for (std::uint32_t theByte = 0; theByte < theChecks.size(); ++theByte) {
        std::uint32_t theCheck = theByte;
        for (int theBit = 0; theBit < 8; ++theBit) {
            theCheck = (theCheck >> 1) ^ ((theCheck & 1u) != 0 ? 0xEDB88320u : 0u);
        }
        theChecks[theByte] = theCheck;
    }
    return theChecks;
}

std::uint32_t CheckOf(const std::string& theBytes)
{
    static const std::array<std::uint32_t, 256> kChecks = MakeChecks();
    std::uint32_t theCheck = 0xFFFFFFFFu;
    for (const char theByte : theBytes) {
        theCheck = (theCheck >> 8) ^ kChecks[(theCheck ^ static_cast<unsigned char>(theByte)) & 0xFFu];
    }
    return ~theCheck;
}

std::uint32_t SumOf(const std::string& theBytes)
{
    constexpr std::uint32_t kModulus = 65521;
    std::uint32_t theFirst = 1;
    std::uint32_t theSecond = 0;
    for (const char theByte : theBytes) {
        theFirst = (theFirst + static_cast<unsigned char>(theByte)) % kModulus;
        theSecond = (theSecond + theFirst) % kModulus;
    }
    return (theSecond << 16) | theFirst;
}

void AddChunk(std::string& theFile, const std::string& theName, const std::string& theContent)
{
    AddNumber(theFile, static_cast<std::uint32_t>(theContent.size()));
    const std::string theChecked = theName + theContent;
    theFile += theChecked;
    AddNumber(theFile, CheckOf(theChecked));
}

std::string Stored(const std::string& theBytes)
{
    std::string theStream = "\x78\x01";
    size_t thePlace = 0;
    do {
        const size_t theSize = std::min(theBytes.size() - thePlace, kLargestBlock);
        const bool theIsLast = thePlace + theSize == theBytes.size();
        theStream += theIsLast ? '\1' : '\0';
        AddSmallEndian(theStream, static_cast<std::uint32_t>(theSize));
        AddSmallEndian(theStream, ~static_cast<std::uint32_t>(theSize));
        theStream.append(theBytes, thePlace, theSize);
        thePlace += theSize;
    } while (thePlace < theBytes.size());
    AddNumber(theStream, SumOf(theBytes));
    return theStream;
}

// A colour without the alpha that it was multiplied by.
char Divided(std::uint32_t thePixel, int theShift)
{
    const std::uint32_t theAlpha = thePixel >> 24;
    const std::uint32_t theColour = (thePixel >> theShift) & 0xFFu;
    const std::uint32_t theWhole =
        theAlpha == 0 ? 0 : std::min((theColour * kOpaque + theAlpha / 2) / theAlpha, kOpaque);
    return static_cast<char>(theWhole);
}

// The rows as the file has them, each behind a byte that says that nothing was done to it.
std::string RowsOf(const Picture& thePicture)
{
    std::string theRows;
    const auto theWidth = static_cast<size_t>(thePicture.theWidth);
    theRows.reserve((theWidth * 4 + 1) * static_cast<size_t>(thePicture.theHeight));
    for (size_t theIndex = 0; theIndex < thePicture.thePixels.size(); ++theIndex) {
        if (theIndex % theWidth == 0) {
            theRows += '\0';
        }
        const std::uint32_t thePixel = thePicture.thePixels[theIndex];
        for (const int theShift : {16, 8, 0}) {
            theRows += Divided(thePixel, theShift);
        }
        theRows += static_cast<char>(thePixel >> 24);
    }
    return theRows;
}

std::uint32_t Over(std::uint32_t thePixel, std::uint32_t theGround)
{
    const std::uint32_t theRest = kOpaque - (thePixel >> 24);
    std::uint32_t theResult = 0;
    for (int theShift = 0; theShift <= 24; theShift += 8) {
        const std::uint32_t theBelow = (((theGround >> theShift) & 0xFFu) * theRest + 127) / kOpaque;
        const std::uint32_t theSum = std::min(((thePixel >> theShift) & 0xFFu) + theBelow, kOpaque);
        theResult |= theSum << theShift;
    }
    return theResult;
}

} // namespace

std::string PngOf(const Picture& thePicture)
{
    std::string theHeader;
    AddNumber(theHeader, static_cast<std::uint32_t>(thePicture.theWidth));
    AddNumber(theHeader, static_cast<std::uint32_t>(thePicture.theHeight));
    theHeader += std::string("\x08\x06\0\0\0", 5); // bytes of red, green, blue and alpha
    std::string theFile = "\x89PNG\r\n\x1a\n";
    AddChunk(theFile, "IHDR", theHeader);
    AddChunk(theFile, "IDAT", Stored(RowsOf(thePicture)));
    AddChunk(theFile, "IEND", {});
    return theFile;
}

void DrawOver(const Picture& thePicture, PixelPoint thePlace, Picture& theGround)
{
    const auto theOwn = [&](int theOffset) { return theOffset * thePicture.theScale / theGround.theScale; };
    for (int theDown = std::max(thePlace.theY, 0); theDown < theGround.theHeight; ++theDown) {
        const int theRow = theOwn(theDown - thePlace.theY);
        if (theRow >= thePicture.theHeight) {
            return;
        }
        for (int theAcross = std::max(thePlace.theX, 0); theAcross < theGround.theWidth; ++theAcross) {
            const int theColumn = theOwn(theAcross - thePlace.theX);
            if (theColumn >= thePicture.theWidth) {
                break;
            }
            std::uint32_t& thePixel =
                theGround.thePixels[static_cast<size_t>(theDown) * static_cast<size_t>(theGround.theWidth) +
                                    static_cast<size_t>(theAcross)];
            thePixel = Over(
                thePicture.thePixels[static_cast<size_t>(theRow) * static_cast<size_t>(thePicture.theWidth) +
                                     static_cast<size_t>(theColumn)],
                thePixel);
        }
    }
}

} // namespace Host
