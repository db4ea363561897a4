// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// GNUstep: setValue:forKey: with key-value observers that are told before and after. The keys of a store are
// kept in a dictionary, for which a class answers to names that were never declared; the objects that follow
// each other have a declared one.

#include "Peer.h"

#import <Foundation/Foundation.h>

// A store of any names.
@interface PeerKeys : NSObject {
    NSMutableDictionary* mValues;
}
@end

@implementation PeerKeys
- (id)init
{
    self = [super init];
    mValues = [NSMutableDictionary new];
    return self;
}
- (void)dealloc
{
    [mValues release];
    [super dealloc];
}
- (id)valueForUndefinedKey:(NSString*)theKey
{
    return [mValues objectForKey:theKey];
}
- (void)setValue:(id)theValue forUndefinedKey:(NSString*)theKey
{
    if ([[mValues objectForKey:theKey] isEqual:theValue]) {
        return;
    }
    [self willChangeValueForKey:theKey];
    [mValues setObject:theValue forKey:theKey];
    [self didChangeValueForKey:theKey];
}
@end

// An object with a declared key.
@interface PeerNumber : NSObject {
    NSNumber* mNumber;
}
@end

@implementation PeerNumber
- (void)dealloc
{
    [mNumber release];
    [super dealloc];
}
- (NSNumber*)number
{
    return mNumber;
}
- (void)setNumber:(NSNumber*)theNumber
{
    [theNumber retain];
    [mNumber release];
    mNumber = theNumber;
}
@end

// Counts what it is told.
@interface PeerCounter : NSObject {
@public
    size_t mCalls;
}
@end

@implementation PeerCounter
- (void)observeValueForKeyPath:(NSString*)theKey
                      ofObject:(id)theObject
                        change:(NSDictionary*)theChange
                       context:(void*)theContext
{
    ++mCalls;
}
@end

// Copies the key of one object into another's whenever it changes to something new.
@interface PeerFollower : NSObject {
@public
    id mTarget;
    double mFactor;
}
@end

@implementation PeerFollower
- (void)observeValueForKeyPath:(NSString*)theKey
                      ofObject:(id)theObject
                        change:(NSDictionary*)theChange
                       context:(void*)theContext
{
    if ([theChange objectForKey:NSKeyValueChangeNotificationIsPriorKey] != nil) {
        return;
    }
    NSNumber* theNumber = [theObject valueForKey:theKey];
    if (mFactor != 1) {
        theNumber = [NSNumber numberWithDouble:[theNumber doubleValue] * mFactor];
    }
    if (![[mTarget valueForKey:theKey] isEqual:theNumber]) {
        [mTarget setValue:theNumber forKey:theKey];
    }
}
@end

namespace {

NSString* const kKey = @"number";

// What is autoreleased while it lives goes with it.
class Pool
{
public:
    Pool()
        : mPool([NSAutoreleasePool new])
    {
    }
    ~Pool() { [mPool drain]; }
    Pool(const Pool&) = delete;
    Pool& operator=(const Pool&) = delete;

private:
    NSAutoreleasePool* mPool;
};

class GNUstepStore final : public PeerStore
{
public:
    explicit GNUstepStore(const StoreShape& theShape)
        : mPayload(theShape.thePayload),
          mObject([PeerKeys new]),
          mKey([[NSString alloc] initWithUTF8String:PeerKey(theShape.theKeys / 2).c_str()]),
          mTexts{[[NSString alloc] initWithUTF8String:kPeerTexts[0]],
                 [[NSString alloc] initWithUTF8String:kPeerTexts[1]]}
    {
        const Pool thePool;
        for (std::size_t theIndex = 0; theIndex < theShape.theKeys; ++theIndex) {
            [mObject setValue:MakeValue(0) forKey:[NSString stringWithUTF8String:PeerKey(theIndex).c_str()]];
        }
        for (std::size_t theIndex = 0; theIndex < theShape.theObservers; ++theIndex) {
            mObservers.push_back([PeerCounter new]);
            [mObject addObserver:mObservers.back()
                      forKeyPath:mKey
                         options:NSKeyValueObservingOptionPrior
                         context:nullptr];
        }
    }
    ~GNUstepStore() override
    {
        const Pool thePool;
        for (PeerCounter* theObserver : mObservers) {
            [mObject removeObserver:theObserver forKeyPath:mKey];
            [theObserver release];
        }
        [mObject release];
        [mKey release];
        [mTexts[0] release];
        [mTexts[1] release];
    }

    void Set(long theNumber) override
    {
        const Pool thePool;
        [mObject setValue:MakeValue(theNumber) forKey:mKey];
    }

    std::size_t GetCalls() const override
    {
        std::size_t theCalls = 0;
        for (PeerCounter* theObserver : mObservers) {
            theCalls += theObserver->mCalls;
        }
        return theCalls;
    }

private:
    id MakeValue(long theNumber) const
    {
        switch (mPayload) {
        case Payload::kInteger:
            return [NSNumber numberWithInt:static_cast<int>(theNumber)];
        case Payload::kDouble:
            return [NSNumber numberWithDouble:static_cast<double>(theNumber)];
        default:
            return mTexts[theNumber & 1];
        }
    }

    Payload mPayload;
    PeerKeys* mObject;
    NSString* mKey;
    NSString* mTexts[2];
    std::vector<PeerCounter*> mObservers;
};

class GNUstepGraph final : public PeerGraph
{
public:
    GNUstepGraph(std::size_t theObjects, Hop theHop)
        : mFollowers(theObjects),
          mHop(theHop)
    {
        for (std::size_t theIndex = 0; theIndex < theObjects; ++theIndex) {
            mObjects.push_back([PeerNumber new]);
        }
    }
    ~GNUstepGraph() override
    {
        for (std::size_t theTarget = 0; theTarget < mObjects.size(); ++theTarget) {
            Unbind(mFollowers[theTarget].theSource, theTarget);
        }
        const Pool thePool;
        for (PeerNumber* theObject : mObjects) {
            [theObject release];
        }
    }

    void Bind(std::size_t theSource, std::size_t theTarget) override
    {
        const Pool thePool;
        Links& theLinks = mFollowers[theTarget];
        theLinks.theSource = theSource;
        theLinks.theForth = MakeFollower(theSource, theTarget, 2);
        if (mHop != Hop::kOneWay) {
            theLinks.theBack = MakeFollower(theTarget, theSource, 0.5);
        }
        [mObjects[theTarget] setValue:[mObjects[theSource] valueForKey:kKey] forKey:kKey];
    }

    void Unbind(std::size_t theSource, std::size_t theTarget) override
    {
        const Pool thePool;
        Links& theLinks = mFollowers[theTarget];
        Remove(theLinks.theForth, theSource);
        Remove(theLinks.theBack, theTarget);
        theLinks = {};
    }

    void Set(std::size_t theObject, long theNumber) override
    {
        const Pool thePool;
        [mObjects[theObject]
            setValue:mHop == Hop::kScaled ? [NSNumber numberWithDouble:static_cast<double>(theNumber)]
                                          : [NSNumber numberWithInt:static_cast<int>(theNumber)]
              forKey:kKey];
    }

    double Get(std::size_t theObject) const override { return [[mObjects[theObject] number] doubleValue]; }

private:
    struct Links
    {
        std::size_t theSource;
        PeerFollower* theForth;
        PeerFollower* theBack;
    };

    PeerFollower* MakeFollower(std::size_t theSource, std::size_t theTarget, double theFactor)
    {
        PeerFollower* theFollower = [PeerFollower new];
        theFollower->mTarget = mObjects[theTarget];
        theFollower->mFactor = mHop == Hop::kScaled ? theFactor : 1;
        [mObjects[theSource] addObserver:theFollower
                              forKeyPath:kKey
                                 options:NSKeyValueObservingOptionPrior
                                 context:nullptr];
        return theFollower;
    }

    void Remove(PeerFollower* theFollower, std::size_t theObserved)
    {
        if (theFollower != nil) {
            [mObjects[theObserved] removeObserver:theFollower forKeyPath:kKey];
            [theFollower release];
        }
    }

    std::vector<PeerNumber*> mObjects;
    std::vector<Links> mFollowers; // by target
    Hop mHop;
};

class GNUstepPeer final : public Peer
{
public:
    const char* GetName() const override { return "GNUstep"; }
    std::size_t GetCallsPerChange() const override { return 2; }
    std::unique_ptr<PeerStore> MakeStore(const StoreShape& theShape) const override
    {
        return std::make_unique<GNUstepStore>(theShape);
    }
    std::unique_ptr<PeerGraph> MakeGraph(std::size_t theObjects, Hop theHop) const override
    {
        return std::make_unique<GNUstepGraph>(theObjects, theHop);
    }
};

const GNUstepPeer kPeer;
const PeerRegistration kRegistration(3, kPeer);

} // namespace
