// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef StandardErrorLines_h
#define StandardErrorLines_h

#include <cstdio>
#include <string>
#include <vector>

namespace Model {

// Reads what is written on the standard error stream while it is written, line by line.
class StandardErrorLines
{
public:
    StandardErrorLines() = default;
    ~StandardErrorLines();

    StandardErrorLines(const StandardErrorLines&) = delete;
    StandardErrorLines& operator=(const StandardErrorLines&) = delete;

    // From now on, until the end of this object, the stream goes to a file without a name.
    void Start();

    // The lines that came since the last time; none before Start.
    std::vector<std::string> Take();

private:
    FILE* mFile = nullptr;
    int mStream = -1; // the standard error stream itself, meanwhile
    long mRead = 0;   // how much of the file was taken
};

} // namespace Model

#endif
