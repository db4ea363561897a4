// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Nibs_NibReader_h
#define Nibs_NibReader_h

#include <string>
#include <vector>

namespace Host {

// One element of a nib.
struct NibNode
{
    std::string theElement;   // "object", "reference", "string", "int", "array", …
    std::string theClass;     // of an object
    std::string theName;      // of an attribute
    std::string theID;        // of an object that others refer to
    std::string theReference; // the identifier that a reference refers to
    std::string theText;      // in UTF-8
    std::vector<NibNode> theChildren;
};

// Whether this host was built with something that reads nibs.
bool CanReadNibs();

// Reads objects.xib; of a damaged one what can be read. False when it has no root element, a document type,
// or more of anything than a nib may have.
bool ReadNib(const std::string& theBytes, NibNode* theRoot);

} // namespace Host

#endif
