// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Code that a bundle loads: LoadedCode.cpp, which CMake makes a library of.

#include "BundleTestSupport.h"

TEST(LibrariesPosix, AFunctionOfABundleIsCalled)
{
    const TemporaryFolder theFolder;
    theFolder.MakeFolder("Plug.bundle/Contents/MacOS");
    std::filesystem::copy_file(LM_LOADED_CODE, theFolder.Path("Plug.bundle/Contents/MacOS/Plug"));
    const Owned theBundle(CFBundleCreate(nullptr, theFolder.URL("Plug.bundle")));
    EXPECT_TRUE(CFBundleLoadExecutable(theBundle));
    void* const theFunction = CFBundleGetFunctionPointerForName(theBundle, CFSTR("AnswerOfLoadedCode"));
    ASSERT_NE(theFunction, nullptr);
    EXPECT_EQ(reinterpret_cast<int (*)()>(theFunction)(), 42);
    EXPECT_EQ(CFBundleGetFunctionPointerForName(theBundle, CFSTR("NoSuchFunction")), nullptr);
}
