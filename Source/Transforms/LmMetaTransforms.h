// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmMetaTransforms_h
#define LmMetaTransforms_h

// Transforms made of other transforms.
//
// LmListTransform applies several transforms one after the other, as one:
//
//     LmListTransform* theList = new LmListTransform;
//     LmValueTransform* theScale = new LmScaleTransform(0.5);
//     theList->Add(theScale);
//     theScale->Release();                        // the list holds its own reference
//     theSlider.BindTo("value", theModel, "level", theList);

#include "LmExport.h"
#include "LmValueTransform.h"

#include <list>

class LM_EXPORT LmListTransform : public LmValueTransform
{
public:
    // An empty list, which changes nothing.
    LmListTransform();

    // Releases the parts in the order in which they were added.
    ~LmListTransform() override;

    // Appends a transform. The list takes a reference of its own (Retain), so the caller still owns and
    // releases the one that it has. The same transform may be added twice; a list must not contain itself.
    //
    // Null prints the assertion "theTransform != NULL" and adds nothing.
    void Add(LmValueTransform* theTransform);

    // Applies the first part to theValue, the second to the result, and so on, and returns the last result;
    // an unchanged copy when the list is empty. An invalid value on the way is handed on like any other.
    LmValue Apply(const LmValue& theValue) override;

private:
    std::list<LmValueTransform*> mTransforms; // in the order of adding; one reference to each is owned
};

#endif
