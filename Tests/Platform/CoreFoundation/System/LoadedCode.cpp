// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What LibrariesPosixTests.cpp loads.

extern "C" __attribute__((visibility("default"))) int AnswerOfLoadedCode();

int AnswerOfLoadedCode()
{
    return 42;
}
