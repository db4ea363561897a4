// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmScopedBinding_h
#define LmScopedBinding_h

#include "LmExport.h"
#include "LmSharedTransform.h"
#include "LmString.h"

#include <vector>

// A scoped binding is a binding as an object: two keys follow each other as long as it lives.
//
//     LmScopedBinding theVolume(theSlider, "value", &theModel, "volume");
//     LmScopedBinding theText =
//         LmScopedBinding::OneWay(theLabel, "value", &theModel, "volume", new LmToStringTransform);
//
// Changes travel as between objects that are bound with LmKeyValueBinding::Bind and BindTo: the first value
// comes from the source; where the reverse transform undoes the other, setting an equal value ends the round;
// transforms that do not undo each other keep the values moving. What is different:
//
// - Nothing dangles. The two objects and the scoped binding may be destroyed in any order, one-way bindings
//   included, also while a change is on its way. When one side is gone, the binding does nothing any more.
// - Nothing is printed for its end.
// - Each one follows. Two keys of an object, or two objects, may follow the same source, and a key may be
//   bound more than once.
// - Transforms are shared, not handed over: see LmSharedTransform.
// - Stores can be bound that are no binding objects. Where an object is one, it is asked whether the key is
//   bindable.
// - An object does not know that it is bound: neither its Unbind nor UnbindAll ends it. RemoveObservers does.
//
// A transform may do anything while it works; when that has ended the binding, or destroyed one side, its
// result is not set any more. Main thread only.

class LmKeyValueStore;

// The binding, which an application keeps where it keeps one of the two objects.
class LM_EXPORT LmScopedBinding
{
public:
    // ---- Life

    // Binds nothing.
    LmScopedBinding() noexcept = default;

    // Binds theKey of theObject and theSourceKey of theSource both ways.
    //
    // theTransform converts values that come from the source, theReverse those that go there. When the
    // source's value (converted) is valid, it is copied at once, and observers are told. Nothing is bound,
    // and nothing changed, when one of the objects is null, when a key is empty or not bindable, and when
    // both are the same key of the same store; IsBound tells.
    //
    // When memory runs out, nothing is bound; the first value may have been copied.
    //
    // Cost: that of two observations; for each change, what
    // reading one key and setting the other take.
    [[nodiscard]] LmScopedBinding(LmKeyValueStore* theObject, const LmString& theKey,
                                  LmKeyValueStore* theSource, const LmString& theSourceKey,
                                  const LmSharedTransform& theTransform = {},
                                  const LmSharedTransform& theReverse = {});

    // Binds one way: theKey of theObject follows theSourceKey of theSource. Otherwise as above; theKey need
    // not be bindable, and is not observed.
    [[nodiscard]] static LmScopedBinding OneWay(LmKeyValueStore* theObject, const LmString& theKey,
                                                LmKeyValueStore* theSource, const LmString& theSourceKey,
                                                const LmSharedTransform& theTransform = {});

    // Binds several keys of theObject one way: each of them follows, and they are set in this order. The
    // value is converted once for all.
    [[nodiscard]] static LmScopedBinding Several(LmKeyValueStore* theObject,
                                                 const std::vector<LmString>& theKeys,
                                                 LmKeyValueStore* theSource, const LmString& theSourceKey,
                                                 const LmSharedTransform& theTransform = {});

    // Goes over to another object; the one that it was undoes its own first, and this one binds nothing.
    LmScopedBinding(LmScopedBinding&& theOther) noexcept;
    LmScopedBinding& operator=(LmScopedBinding&& theOther) noexcept;

    // Undoes it.
    ~LmScopedBinding();

    LmScopedBinding(const LmScopedBinding&) = delete;
    LmScopedBinding& operator=(const LmScopedBinding&) = delete;

    // ---- What becomes of it

    // Undoes the binding, and gives back the transforms, unless one of them is working. The values stay as
    // they are. Nobody is told, and nothing is printed. Without a binding nothing happens. Needs no memory
    // while tracing is off.
    void End() noexcept;

    // True while values are copied: both objects live, and End was not called.
    [[nodiscard]] bool IsBound() const;

private:
    class LM_HIDDEN Link;

    // Binds what mLink names, or forgets it where it cannot be bound.
    LM_HIDDEN void Begin();

    Link* mLink =
        nullptr; // what observes both sides; on the heap, so that this object can move. Held until End
};

#endif
