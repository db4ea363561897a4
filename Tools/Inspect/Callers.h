// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Callers_h
#define Callers_h

// Who made a call: the functions and lines that a journal's addresses stand for, as the debug information of
// the programs and libraries on this machine has them.

#include "Entry.h"

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace Inspect {

class Callers
{
public:
    Callers();
    ~Callers();
    Callers(const Callers&) = delete;
    Callers& operator=(const Callers&) = delete;

    // What lies where, from entries of the kind "module".
    void Take(const Entry& theEntry);

    struct Place
    {
        std::string theFunction; // as ReadableName has it; empty when it is not known
        std::string theFile;     // without its folders; empty when it is not known
        int theLine = 0;
        std::string theModule; // the file that holds the code, without its folders; empty when there is none
        std::uint64_t theAddress = 0;
        bool isOtherBuild = false; // the file has been built again since
    };

    // theAddress is the one behind the call.
    const Place& Find(std::uint64_t theAddress);

    // "ThermostatModel::Reset, ThermostatModel.cpp:33"; where less is known, less.
    std::string Show(std::uint64_t theAddress);

    // The innermost caller that does not belong to the library or its host, or where there is none the
    // innermost one; empty when none was kept.
    std::string ShowInnermost(const Entry& theEntry);

private:
    struct Image;

    Place Resolve(std::uint64_t theAddress);

    std::vector<std::unique_ptr<Image>> mImages; // the newest last
    std::unordered_map<std::uint64_t, Place> mPlaces;
};

} // namespace Inspect

#endif
