// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Nibs_Nib_h
#define Nibs_Nib_h

#include "Base/Text.h"
#include "NibReader.h"

#include <Carbon/Carbon.h>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace Host {

class Nib;

// A string for a call, released at the end.
class NibString
{
public:
    explicit NibString(const Text& theText);
    ~NibString();
    NibString(const NibString&) = delete;
    NibString& operator=(const NibString&) = delete;
    operator CFStringRef() const { return mString; }

private:
    CFStringRef mString;
};

// An object of a nib, or another value in it; or none, which has no attributes. It lives as long as its nib.
//
// Values of another type than the one asked for are read as far as they make sense, and are what is missing
// otherwise.
class NibObject
{
public:
    NibObject() = default;
    NibObject(const Nib* theNib, const NibNode* theNode)
        : mNib(theNib),
          mNode(theNode)
    {
    }

    explicit operator bool() const { return mNode != nullptr; }
    const std::string& Class() const { return mNode->theClass; }

    // Attributes, with what they are when they are left out.
    bool Has(const char* theName) const { return Child(theName) != nullptr; }
    SInt32 Number(const char* theName, SInt32 theDefault = 0) const
    {
        return Attribute(theName).NumberValue(theDefault);
    }
    SInt16 Short(const char* theName, SInt16 theDefault = 0) const;
    double Fraction(const char* theName, double theDefault) const;
    bool Flag(const char* theName, bool theDefault = false) const;
    OSType Code(const char* theName) const { return Attribute(theName).CodeValue(); }
    Text String(const char* theName) const { return Attribute(theName).Value(); }
    std::vector<double> Numbers(const char* theName) const { return Attribute(theName).NumberValues(); }
    NibObject Object(const char* theName) const;
    std::vector<NibObject> List(const char* theName) const { return Attribute(theName).Elements(); }
    NibObject Attribute(const char* theName) const { return {mNib, Child(theName)}; }
    NibObject Entry(const char* theKey) const; // of a dictionary

    // Of a value.
    Text Value() const;
    SInt32 NumberValue(SInt32 theDefault = 0) const;
    OSType CodeValue() const;
    std::vector<double> NumberValues() const; // "0 0 100 300 ", "1, 2.5"
    std::vector<NibObject> Elements() const;

private:
    const NibNode* Child(const char* theName) const;

    const Nib* mNib = nullptr;
    const NibNode* mNode = nullptr;
};

// A nib that was read. What it refers to by identifiers is found, wherever it stands.
class Nib
{
public:
    explicit Nib(NibNode theRoot);
    Nib(const Nib&) = delete;
    Nib& operator=(const Nib&) = delete;

    // The object that the program knows by that name, or none.
    NibObject Named(const Text& theName) const;

    // The node itself, or what it refers to; null when that is nowhere.
    const NibNode* Resolve(const NibNode& theNode) const;

private:
    void Note(const NibNode& theNode);

    NibNode mRoot;
    std::unordered_map<std::string, const NibNode*> mObjects; // by their identifiers
};

// Counts what is made of one nib object and the levels in which it lies.
class NibLimit
{
public:
    // Takes one object and one level, as long as both last.
    class [[nodiscard]] Level
    {
    public:
        explicit Level(NibLimit& theLimit);
        ~Level();
        Level(const Level&) = delete;
        Level& operator=(const Level&) = delete;
        bool IsAllowed() const { return mLimit.mObjects >= 0 && mLimit.mLevels >= 0; }

    private:
        NibLimit& mLimit;
    };

private:
    int mObjects = 10000;
    int mLevels = 64;
};

const NibNode* ValueOfKey(const std::vector<NibNode>& theEntries, const std::string& theKey);

} // namespace Host

#endif
