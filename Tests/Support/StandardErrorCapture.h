// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef StandardErrorCapture_h
#define StandardErrorCapture_h

#include <string>
#include <vector>

// Collects what the program writes to its standard error stream.
//
// Diagnostics are part of the library's interface, so silence is checked too: the test program's main
// (TestMain.cpp) captures every test, and a line that the test has not taken with TakeText or TakeLines
// by its end fails it. A test therefore names each line that it provokes:
//
//     LmValue theValue;
//     theValue.GetString();
//     EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(),
//               Lines{"Source/Core/LmValue.cpp, line #: IsString()"});
//
// Works on the file descriptor, so text written by C code and by other libraries is seen as well.
class StandardErrorCapture
{
public:
    using Lines = std::vector<std::string>;

    // Starts and ends capturing; called around each test. End returns what nobody has taken.
    static void Begin();
    static std::string End();

    // What was written since the last call (or the test's start), and forgets it.
    static std::string TakeText();

    // The same, split at line ends; the last line need not have one.
    static Lines TakeLines();

    // The same, with the number in "file.cpp, line 123: " replaced by "#", so that tests do not depend on
    // where in its file a check stands: "Source/Core/LmValue.cpp, line #: Unknown type: 12".
    static Lines TakeDiagnostics();

    StandardErrorCapture() = delete;
};

using Lines = StandardErrorCapture::Lines;

#endif
