// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Base/Guarded.h"
#include "Common/NeverDestroyed.h"
#include "NibMenus.h"
#include "NibWindows.h"

#include <map>
#include <memory>
#include <utility>

namespace Host {

namespace {

using SharedNib = std::shared_ptr<const Nib>;

// A reference is a number, as all others are, and none comes again.
class NibTable
{
public:
    IBNibRef Add(SharedNib theNib)
    {
        ++mLast;
        mNibs.emplace(mLast, std::move(theNib));
        return reinterpret_cast<IBNibRef>(mLast);
    }
    SharedNib Find(IBNibRef theReference) const
    {
        const auto theFound = mNibs.find(reinterpret_cast<std::uintptr_t>(theReference));
        return theFound == mNibs.end() ? nullptr : theFound->second;
    }
    void Remove(IBNibRef theReference) { mNibs.erase(reinterpret_cast<std::uintptr_t>(theReference)); }

private:
    std::map<std::uintptr_t, SharedNib> mNibs;
    std::uintptr_t mLast = 0;
};

NibTable& Nibs()
{
    static NeverDestroyed<NibTable> sNibs;
    return sNibs.Get();
}

template <class Reference>
class Released
{
public:
    explicit Released(Reference theReference)
        : mReference(theReference)
    {
    }
    ~Released()
    {
        if (mReference != nullptr) {
            CFRelease(mReference);
        }
    }
    Released(const Released&) = delete;
    Released& operator=(const Released&) = delete;
    operator Reference() const { return mReference; }

private:
    Reference mReference; // owned; may be null
};

// The bytes of Name.nib/objects.xib; none when there is no such file.
std::string BytesOfNib(CFBundleRef theBundle, CFStringRef theName)
{
    const Released<CFURLRef> theFolder(CFBundleCopyResourceURL(theBundle, theName, CFSTR("nib"), nullptr));
    if (theFolder == nullptr) {
        return {};
    }
    const Released<CFURLRef> theFile(
        CFURLCreateCopyAppendingPathComponent(nullptr, theFolder, CFSTR("objects.xib"), false));
    CFDataRef theData = nullptr;
    if (theFile == nullptr ||
        !CFURLCreateDataAndPropertiesFromResource(nullptr, theFile, &theData, nullptr, nullptr, nullptr)) {
        return {};
    }
    const Released<CFDataRef> theHeld(theData);
    return {reinterpret_cast<const char*>(CFDataGetBytePtr(theData)),
            static_cast<size_t>(CFDataGetLength(theData))};
}

OSStatus Open(CFBundleRef theBundle, CFStringRef theName, IBNibRef* theNib)
{
    if (!CanReadNibs()) {
        return unimpErr;
    }
    NibNode theRoot;
    if (!ReadNib(BytesOfNib(theBundle, theName), &theRoot)) {
        return kIBCarbonRuntimeCantFindNibFile;
    }
    *theNib = Nibs().Add(std::make_shared<const Nib>(std::move(theRoot)));
    return noErr;
}

// Has theMaker make what has that name.
template <class Result, class Maker>
OSStatus MakeNamed(IBNibRef theReference, CFStringRef theName, const char* theClass, Result* theResult,
                   const Maker& theMaker)
{
    if (theResult == nullptr) {
        return paramErr;
    }
    *theResult = nullptr;
    const SharedNib theNib = Nibs().Find(theReference);
    if (theNib == nullptr || theName == nullptr) {
        return paramErr;
    }
    return Guarded([&] {
        const NibObject theObject = theNib->Named(TextOf(theName));
        if (!theObject) {
            return OSStatus{kIBCarbonRuntimeCantFindObject};
        }
        if (theObject.Class() != theClass) {
            return OSStatus{kIBCarbonRuntimeObjectNotOfRequestedType};
        }
        return theMaker(theObject);
    });
}

} // namespace

} // namespace Host

OSStatus CreateNibReference(CFStringRef inNibName, IBNibRef* outNibRef)
{
    return CreateNibReferenceWithCFBundle(CFBundleGetMainBundle(), inNibName, outNibRef);
}

OSStatus CreateNibReferenceWithCFBundle(CFBundleRef inBundle, CFStringRef inNibName, IBNibRef* outNibRef)
{
    if (outNibRef == nullptr) {
        return paramErr;
    }
    *outNibRef = nullptr;
    if (inBundle == nullptr || inNibName == nullptr) {
        return paramErr;
    }
    return Host::Guarded([&] { return Host::Open(inBundle, inNibName, outNibRef); });
}

void DisposeNibReference(IBNibRef inNibRef)
{
    Host::Nibs().Remove(inNibRef);
}

OSStatus CreateWindowFromNib(IBNibRef inNibRef, CFStringRef inName, WindowRef* outWindow)
{
    return Host::MakeNamed(
        inNibRef, inName, "IBCarbonWindow", outWindow,
        [&](const Host::NibObject& theObject) { return Host::MakeNibWindow(theObject, outWindow); });
}

OSStatus CreateMenuFromNib(IBNibRef inNibRef, CFStringRef inName, MenuRef* outMenuRef)
{
    return Host::MakeNamed(inNibRef, inName, "IBCarbonMenu", outMenuRef,
                           [&](const Host::NibObject& theObject) {
                               Host::NibLimit theLimit;
                               return Host::MakeNibMenu(theObject, theLimit, outMenuRef);
                           });
}

OSStatus CreateMenuBarFromNib(IBNibRef inNibRef, CFStringRef inName, Handle* outMenuBar)
{
    if (outMenuBar == nullptr) {
        return paramErr;
    }
    *outMenuBar = nullptr;
    MenuRef theMenu = nullptr;
    OSStatus theStatus = CreateMenuFromNib(inNibRef, inName, &theMenu);
    if (theStatus == noErr) {
        theStatus = PtrToHand(&theMenu, outMenuBar, sizeof theMenu);
    }
    if (theStatus != noErr && theMenu != nullptr) {
        ReleaseMenu(theMenu);
    }
    return theStatus;
}

OSStatus SetMenuBarFromNib(IBNibRef inNibRef, CFStringRef inName)
{
    MenuRef theMenu = nullptr;
    OSStatus theStatus = CreateMenuFromNib(inNibRef, inName, &theMenu);
    if (theStatus == noErr) {
        theStatus = SetRootMenu(theMenu);
        ReleaseMenu(theMenu); // the bar holds it now
        DrawMenuBar();
    }
    return theStatus;
}
