// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Uses the pattern of a binding the way its header says: copied into this project, under a name of this
// project's. An observer may destroy a binding while the binding copies its model, and the scope that is
// open then must know.

#include "CopiedBinding.h"

#include <cstdio>
#include <LmBindings.h>

namespace {

// Destroys the binding as soon as it hears of a change.
class Destroyer : public LmKeyValueObserver
{
public:
    explicit Destroyer(CopiedBinding* theBinding)
        : mBinding(theBinding)
    {
    }

    void ValueChanged(const LmKeyValueStore*, const LmString& theKeyName) override
    {
        std::printf("the binding is destroyed when \"%s\" changes\n", theKeyName.GetUTF8());
        delete mBinding;
    }

private:
    CopiedBinding* mBinding;
};

} // namespace

void UseCopiedBinding()
{
    int theModel = 0;
    CopiedBinding* theBinding = new CopiedBinding;
    Destroyer theDestroyer(theBinding);
    theBinding->ObserveKeyPathValue("one", &theDestroyer);
    bool isUpdated = true;
    const LmUpdateScope theScope(theBinding, isUpdated);
    theBinding->SetModel(&theModel);
    std::printf("the scope %s\n", theScope.BindingIsGone() ? "has seen it" : "takes the binding for alive");
}
