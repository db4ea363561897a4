// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Nibs are read with libxml2, leniently: what is damaged is read as far as it goes. Nothing is fetched, and
// there are no entities but the five of XML: a file with a document type is refused.

#include "Nibs/NibReader.h"

#include <libxml/parser.h>
#include <libxml/parserInternals.h>

#include <memory>
#include <new>
#include <utility>

namespace Host {

namespace {

const size_t kLargestFile = size_t{16} << 20;
const size_t kMostElements = 500000;
const size_t kDeepestElement = 200;

// Control characters stand raw in nibs, above all the one that names the application menu, and XML has none.
// They are handed through as characters that mean nothing in Unicode, U+FDD0 and those that follow.
const unsigned kFirstStandIn = 0xFDD0;

bool IsForbidden(unsigned char theByte)
{
    return theByte < 0x20 && theByte != '\t' && theByte != '\n' && theByte != '\r';
}

std::string WithStandIns(const std::string& theBytes)
{
    std::string theResult;
    theResult.reserve(theBytes.size());
    for (const char theByte : theBytes) {
        const auto theCode = static_cast<unsigned char>(theByte);
        if (IsForbidden(theCode)) {
            const unsigned theStandIn = kFirstStandIn + theCode;
            theResult += static_cast<char>(0xE0 | theStandIn >> 12);
            theResult += static_cast<char>(0x80 | (theStandIn >> 6 & 0x3F));
            theResult += static_cast<char>(0x80 | (theStandIn & 0x3F));
        } else {
            theResult += theByte;
        }
    }
    return theResult;
}

// The character that a stand-in at a place of the text stands for, or -1.
int StoodFor(const std::string& theText, size_t thePlace)
{
    if (theText.size() - thePlace < 3 || theText[thePlace] != '\xEF' || theText[thePlace + 1] != '\xB7') {
        return -1;
    }
    const int theCode = static_cast<unsigned char>(theText[thePlace + 2]) - 0x90;
    return theCode >= 0 && theCode < 0x20 ? theCode : -1;
}

std::string WithoutStandIns(const std::string& theText)
{
    std::string theResult;
    for (size_t thePlace = 0; thePlace < theText.size(); ++thePlace) {
        const int theCode = StoodFor(theText, thePlace);
        if (theCode < 0) {
            theResult += theText[thePlace];
            continue;
        }
        thePlace += 2;
        if (theCode > 0) {
            theResult += static_cast<char>(theCode);
        }
    }
    return theResult;
}

// What the parser reports, made into nodes. No exception leaves it: there is C in between.
class Builder
{
public:
    explicit Builder(xmlParserCtxtPtr theParser)
        : mParser(theParser)
    {
    }

    bool IsGood() const { return !mIsRefused && mOpen.empty() && !mRoot.theElement.empty(); }
    NibNode TakeRoot() { return std::move(mRoot); }

    void Refuse()
    {
        mIsRefused = true;
        xmlStopParser(mParser);
    }

    // What a truncated file leaves open ends with it.
    void EndAll()
    {
        while (!mOpen.empty()) {
            End();
        }
    }

    void Start(const xmlChar* theName, int theCount, const xmlChar** theAttributes)
    {
        Guard([&] {
            if (++mCount > kMostElements || mOpen.size() >= kDeepestElement) {
                Refuse();
                return;
            }
            NibNode theNode;
            theNode.theElement = reinterpret_cast<const char*>(theName);
            for (int theIndex = 0; theIndex < theCount; ++theIndex) {
                ReadAttribute(&theNode, theAttributes + ptrdiff_t{theIndex} * 5);
            }
            mOpen.push_back(std::move(theNode));
        });
    }

    void End()
    {
        Guard([&] {
            if (mOpen.empty()) {
                return;
            }
            NibNode theNode = std::move(mOpen.back());
            mOpen.pop_back();
            theNode.theText = theNode.theChildren.empty() ? WithoutStandIns(theNode.theText) : std::string();
            if (!mOpen.empty()) {
                mOpen.back().theChildren.push_back(std::move(theNode));
            } else if (mRoot.theElement.empty()) {
                mRoot = std::move(theNode);
            }
        });
    }

    void AddText(const xmlChar* theText, int theLength)
    {
        Guard([&] {
            if (!mOpen.empty()) {
                mOpen.back().theText.append(reinterpret_cast<const char*>(theText),
                                            static_cast<size_t>(theLength));
            }
        });
    }

private:
    template <class Body>
    void Guard(const Body& theBody)
    {
        try {
            theBody();
        } catch (const std::bad_alloc&) {
            mOpen.clear();
            Refuse();
        }
    }

    // Local name, prefix, namespace, and where the value begins and ends.
    static void ReadAttribute(NibNode* theNode, const xmlChar** theParts)
    {
        const std::string theName = reinterpret_cast<const char*>(theParts[0]);
        const std::string theValue(reinterpret_cast<const char*>(theParts[3]),
                                   reinterpret_cast<const char*>(theParts[4]));
        if (theName == "class") {
            theNode->theClass = theValue;
        } else if (theName == "name") {
            theNode->theName = theValue;
        } else if (theName == "id") {
            theNode->theID = theValue;
        } else if (theName == "idRef") {
            theNode->theReference = theValue;
        }
    }

    xmlParserCtxtPtr mParser;
    std::vector<NibNode> mOpen; // from the outermost element to the innermost
    NibNode mRoot;
    size_t mCount = 0;
    bool mIsRefused = false;
};

xmlSAXHandler Handler()
{
    xmlSAXHandler theHandler = {};
    theHandler.initialized = XML_SAX2_MAGIC;
    theHandler.internalSubset = [](void* theBuilder, const xmlChar*, const xmlChar*, const xmlChar*) {
        static_cast<Builder*>(theBuilder)->Refuse();
    };
    theHandler.startElementNs = [](void* theBuilder, const xmlChar* theName, const xmlChar*, const xmlChar*,
                                   int, const xmlChar**, int theCount, int, const xmlChar** theAttributes) {
        static_cast<Builder*>(theBuilder)->Start(theName, theCount, theAttributes);
    };
    theHandler.endElementNs = [](void* theBuilder, const xmlChar*, const xmlChar*, const xmlChar*) {
        static_cast<Builder*>(theBuilder)->End();
    };
    theHandler.characters = [](void* theBuilder, const xmlChar* theText, int theLength) {
        static_cast<Builder*>(theBuilder)->AddText(theText, theLength);
    };
    theHandler.cdataBlock = theHandler.characters;
    return theHandler;
}

struct FreeParser
{
    void operator()(xmlParserCtxtPtr theParser) const { xmlFreeParserCtxt(theParser); }
};

} // namespace

bool CanReadNibs()
{
    return true;
}

bool ReadNib(const std::string& theBytes, NibNode* theRoot)
{
    if (theBytes.empty() || theBytes.size() > kLargestFile) {
        return false;
    }
    const std::string theText = WithStandIns(theBytes);
    const std::unique_ptr<xmlParserCtxt, FreeParser> theParser(
        xmlCreateMemoryParserCtxt(theText.data(), static_cast<int>(theText.size())));
    if (theParser == nullptr) {
        throw std::bad_alloc();
    }
    Builder theBuilder(theParser.get());
    *theParser->sax = Handler();
    theParser->userData = &theBuilder;
    xmlCtxtUseOptions(theParser.get(), XML_PARSE_RECOVER | XML_PARSE_NONET | XML_PARSE_NOERROR |
                                           XML_PARSE_NOWARNING | XML_PARSE_IGNORE_ENC);
    xmlParseDocument(theParser.get());
    theBuilder.EndAll();
    if (!theBuilder.IsGood()) {
        return false;
    }
    *theRoot = theBuilder.TakeRoot();
    return true;
}

} // namespace Host
