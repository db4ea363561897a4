// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <Presentation/PresenterTypes.h>

#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <string>

// The window of an inspector is a library of its own, which nobody loads who does not want it. It lies beside
// this one. What it inspects is not known here.

namespace {

constexpr char kLibrary[] = "libLmInspectorWindow.so.1";

// Where this library lies, with a slash at the end; empty when that is not known.
std::string OwnFolder()
{
    Dl_info theInfo = {};
    if (dladdr(&kLibrary, &theInfo) == 0 || theInfo.dli_fname == nullptr) {
        return {};
    }
    const std::string theFile = theInfo.dli_fname;
    return theFile.substr(0, theFile.rfind('/') + 1);
}

// Calls a function of that library.
void Call(const char* theName)
{
    static void* const kLoaded = dlopen((OwnFolder() + kLibrary).c_str(), RTLD_NOW | RTLD_LOCAL);
    void* const theFunction = kLoaded != nullptr ? dlsym(kLoaded, theName) : nullptr;
    if (theFunction != nullptr) {
        reinterpret_cast<void (*)()>(theFunction)();
    }
}

bool gIsAllowed = false;

} // namespace

// What allows an inspector looks these up by their names.
extern "C" {
HOST_PUBLIC void HostAllowInspector();
HOST_PUBLIC void HostEndInspector();
}

void HostAllowInspector()
{
    // The library that is loaded here may come back with the same wish while it is.
    if (!gIsAllowed) {
        gIsAllowed = true;
        Call("LmPrepareInspectorWindow");
    }
}

void HostEndInspector()
{
    if (gIsAllowed) {
        gIsAllowed = false;
        Call("LmRemoveInspectorWindow");
    }
}

namespace {

struct FromEnvironment
{
    FromEnvironment()
    {
        const char* const theText = std::getenv("LM_INSPECTOR");
        if (theText != nullptr && std::strcmp(theText, "1") == 0) {
            HostAllowInspector();
        }
    }
};

const FromEnvironment kFromEnvironment;

} // namespace
