// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// GLib: objects with declared properties, set by name; "notify" signals; GBinding. It notifies once, after
// the change, and only of real changes, which G_PARAM_EXPLICIT_NOTIFY leaves to the class to find out.

#include "Peer.h"

#include <cstring>
#include <glib-object.h>
#include <map>

namespace {

union Slot
{
    int theInteger;
    double theDouble;
    char* theText;
};

struct KeysObject
{
    GObject theParent;
    Slot* theSlots;
};

struct KeysClass
{
    GObjectClass theParent;
    StoreShape theShape;
};

KeysClass* ClassOf(gpointer theObject)
{
    return reinterpret_cast<KeysClass*>(G_OBJECT_GET_CLASS(theObject));
}

void SetProperty(GObject* theObject, guint theNumber, const GValue* theValue, GParamSpec* theProperty)
{
    Slot& theSlot = reinterpret_cast<KeysObject*>(theObject)->theSlots[theNumber - 1];
    switch (ClassOf(theObject)->theShape.thePayload) {
    case Payload::kInteger:
        if (theSlot.theInteger == g_value_get_int(theValue)) {
            return;
        }
        theSlot.theInteger = g_value_get_int(theValue);
        break;
    case Payload::kDouble:
        if (theSlot.theDouble == g_value_get_double(theValue)) {
            return;
        }
        theSlot.theDouble = g_value_get_double(theValue);
        break;
    case Payload::kText:
        if (g_strcmp0(theSlot.theText, g_value_get_string(theValue)) == 0) {
            return;
        }
        g_free(theSlot.theText);
        theSlot.theText = g_value_dup_string(theValue);
        break;
    }
    g_object_notify_by_pspec(theObject, theProperty);
}

void GetProperty(GObject* theObject, guint theNumber, GValue* theValue, GParamSpec* /*theProperty*/)
{
    const Slot& theSlot = reinterpret_cast<KeysObject*>(theObject)->theSlots[theNumber - 1];
    switch (ClassOf(theObject)->theShape.thePayload) {
    case Payload::kInteger:
        g_value_set_int(theValue, theSlot.theInteger);
        break;
    case Payload::kDouble:
        g_value_set_double(theValue, theSlot.theDouble);
        break;
    case Payload::kText:
        g_value_set_string(theValue, theSlot.theText);
        break;
    }
}

void Finalize(GObject* theObject)
{
    const StoreShape& theShape = ClassOf(theObject)->theShape;
    Slot* const theSlots = reinterpret_cast<KeysObject*>(theObject)->theSlots;
    for (std::size_t theIndex = 0; theShape.thePayload == Payload::kText && theIndex < theShape.theKeys;
         ++theIndex) {
        g_free(theSlots[theIndex].theText);
    }
    g_free(theSlots);
    static_cast<GObjectClass*>(g_type_class_peek(G_TYPE_OBJECT))->finalize(theObject);
}

GParamSpec* MakeProperty(Payload thePayload, const char* theName)
{
    const auto kFlags = static_cast<GParamFlags>(G_PARAM_READWRITE | G_PARAM_EXPLICIT_NOTIFY);
    switch (thePayload) {
    case Payload::kInteger:
        return g_param_spec_int(theName, nullptr, nullptr, G_MININT, G_MAXINT, 0, kFlags);
    case Payload::kDouble:
        return g_param_spec_double(theName, nullptr, nullptr, -G_MAXDOUBLE, G_MAXDOUBLE, 0, kFlags);
    default:
        return g_param_spec_string(theName, nullptr, nullptr, nullptr, kFlags);
    }
}

void InitialiseClass(gpointer theClassPointer, gpointer theData)
{
    auto* const theClass = static_cast<KeysClass*>(theClassPointer);
    theClass->theShape = *static_cast<const StoreShape*>(theData);
    theClass->theParent.set_property = SetProperty;
    theClass->theParent.get_property = GetProperty;
    theClass->theParent.finalize = Finalize;
    for (std::size_t theIndex = 0; theIndex < theClass->theShape.theKeys; ++theIndex) {
        g_object_class_install_property(
            &theClass->theParent, static_cast<guint>(theIndex + 1),
            MakeProperty(theClass->theShape.thePayload, PeerKey(theIndex).c_str()));
    }
}

void InitialiseObject(GTypeInstance* theInstance, gpointer /*theClass*/)
{
    reinterpret_cast<KeysObject*>(theInstance)->theSlots =
        g_new0(Slot, ClassOf(theInstance)->theShape.theKeys);
}

// The class with that many properties, made when it is asked for first.
GType KeysType(Payload thePayload, std::size_t theKeys)
{
    static std::map<std::pair<Payload, std::size_t>, GType> kTypes;
    GType& theType = kTypes[{thePayload, theKeys}];
    if (theType == 0) {
        GTypeInfo theInfo = {};
        theInfo.class_size = sizeof(KeysClass);
        theInfo.class_init = InitialiseClass;
        theInfo.class_data = new StoreShape{thePayload, theKeys, 0}; // lives as long as the class
        theInfo.instance_size = sizeof(KeysObject);
        theInfo.instance_init = InitialiseObject;
        theType = g_type_register_static(G_TYPE_OBJECT, ("Keys" + std::to_string(kTypes.size())).c_str(),
                                         &theInfo, G_TYPE_FLAG_NONE);
    }
    return theType;
}

GObject* NewKeys(Payload thePayload, std::size_t theKeys)
{
    return static_cast<GObject*>(g_object_new(KeysType(thePayload, theKeys), nullptr));
}

void SetKey(GObject* theObject, const char* theKey, Payload thePayload, long theNumber)
{
    GValue theValue = G_VALUE_INIT;
    switch (thePayload) {
    case Payload::kInteger:
        g_value_init(&theValue, G_TYPE_INT);
        g_value_set_int(&theValue, static_cast<int>(theNumber));
        break;
    case Payload::kDouble:
        g_value_init(&theValue, G_TYPE_DOUBLE);
        g_value_set_double(&theValue, static_cast<double>(theNumber));
        break;
    case Payload::kText:
        g_value_init(&theValue, G_TYPE_STRING);
        g_value_set_static_string(&theValue, kPeerTexts[theNumber & 1]);
        break;
    }
    g_object_set_property(theObject, theKey, &theValue);
    g_value_unset(&theValue);
}

void CountCall(GObject* /*theObject*/, GParamSpec* /*theProperty*/, gpointer theCalls)
{
    ++*static_cast<std::size_t*>(theCalls);
}

class GLibStore final : public PeerStore
{
public:
    explicit GLibStore(const StoreShape& theShape)
        : mObject(NewKeys(theShape.thePayload, theShape.theKeys)),
          mPayload(theShape.thePayload),
          mKey(PeerKey(theShape.theKeys / 2))
    {
        const std::string theSignal = "notify::" + mKey;
        for (std::size_t theIndex = 0; theIndex < theShape.theObservers; ++theIndex) {
            g_signal_connect(mObject, theSignal.c_str(), G_CALLBACK(CountCall), &mCalls);
        }
    }
    ~GLibStore() override { g_object_unref(mObject); }

    void Set(long theNumber) override { SetKey(mObject, mKey.c_str(), mPayload, theNumber); }
    std::size_t GetCalls() const override { return mCalls; }

private:
    GObject* mObject;
    Payload mPayload;
    std::string mKey;
    std::size_t mCalls = 0;
};

template <int kNumerator, int kDenominator>
gboolean Scale(GBinding* /*theBinding*/, const GValue* theFrom, GValue* theTo, gpointer /*theData*/)
{
    g_value_set_double(theTo, g_value_get_double(theFrom) * kNumerator / kDenominator);
    return TRUE;
}

class GLibGraph final : public PeerGraph
{
public:
    GLibGraph(std::size_t theObjects, Hop theHop)
        : mPayload(theHop == Hop::kScaled ? Payload::kDouble : Payload::kInteger),
          mBindings(theObjects),
          mHop(theHop)
    {
        for (std::size_t theIndex = 0; theIndex < theObjects; ++theIndex) {
            mObjects.push_back(NewKeys(mPayload, 1));
        }
    }
    ~GLibGraph() override
    {
        for (GObject* theObject : mObjects) {
            g_object_unref(theObject);
        }
    }

    void Bind(std::size_t theSource, std::size_t theTarget) override
    {
        const auto kTwoWay = static_cast<GBindingFlags>(G_BINDING_BIDIRECTIONAL | G_BINDING_SYNC_CREATE);
        GObject* const theFrom = mObjects[theSource];
        GObject* const theTo = mObjects[theTarget];
        GBinding*& theBinding = mBindings[theTarget];
        switch (mHop) {
        case Hop::kOneWay:
            theBinding = g_object_bind_property(theFrom, kKey, theTo, kKey, G_BINDING_SYNC_CREATE);
            break;
        case Hop::kTwoWay:
            theBinding = g_object_bind_property(theFrom, kKey, theTo, kKey, kTwoWay);
            break;
        case Hop::kScaled:
            theBinding = g_object_bind_property_full(theFrom, kKey, theTo, kKey, kTwoWay, Scale<2, 1>,
                                                     Scale<1, 2>, nullptr, nullptr);
            break;
        }
    }

    void Unbind(std::size_t /*theSource*/, std::size_t theTarget) override
    {
        g_binding_unbind(mBindings[theTarget]);
    }

    void Set(std::size_t theObject, long theNumber) override
    {
        SetKey(mObjects[theObject], kKey, mPayload, theNumber);
    }

    double Get(std::size_t theObject) const override
    {
        const Slot& theSlot = reinterpret_cast<KeysObject*>(mObjects[theObject])->theSlots[0];
        return mHop == Hop::kScaled ? theSlot.theDouble : theSlot.theInteger;
    }

private:
    static constexpr const char* kKey = "k0";

    Payload mPayload;
    std::vector<GObject*> mObjects;   // owned
    std::vector<GBinding*> mBindings; // by target; owned by the objects
    Hop mHop;
};

class GLibPeer final : public Peer
{
public:
    const char* GetName() const override { return "GLib"; }
    std::unique_ptr<PeerStore> MakeStore(const StoreShape& theShape) const override
    {
        return std::make_unique<GLibStore>(theShape);
    }
    std::unique_ptr<PeerGraph> MakeGraph(std::size_t theObjects, Hop theHop) const override
    {
        return std::make_unique<GLibGraph>(theObjects, theHop);
    }
};

const GLibPeer kPeer;
const PeerRegistration kRegistration(2, kPeer);

} // namespace
