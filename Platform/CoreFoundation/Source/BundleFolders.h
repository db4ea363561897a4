// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef BundleFolders_h
#define BundleFolders_h

// Where things are in a bundle. Paths are absolute; those of folders have no slash at the end.

#include <optional>
#include <string>
#include <vector>

namespace Host {

// The bundle of the program: the folder that LM_BUNDLE names; the one around Contents/MacOS where the program
// lies in such; Name.app beside a program Name; else the program's folder.
std::string MainBundleFolder();

// The parts of the bundle in a folder: of an application (Contents), a framework (Versions) or the oldest
// form, which has everything in the folder itself.
struct BundleFolders
{
    explicit BundleFolders(const std::string& theFolder);

    std::string theRoot;
    std::string theSupport;   // where Info.plist is
    std::string theResources; // the support folder again when there are none
};

// The code of a bundle; empty when it has none.
std::string ExecutableIn(const BundleFolders& theFolders, const std::string& theName);

// How a resource is looked for.
struct ResourceQuery
{
    std::string theName; // with the extension
    std::string theSubfolder;
    std::vector<std::string> theLanguages; // names of .lproj folders, the best first
};

// The resource that stands outside of the languages' folders, or else that of the best language; empty when
// there is none. A name is found whatever its case when there is none in the case that is asked for.
std::string FindResource(const BundleFolders& theFolders, const ResourceQuery& theQuery);

// Every resource with an extension, without those of the same name in worse languages.
std::vector<std::string> FindResources(const BundleFolders& theFolders, const std::string& theExtension,
                                       const ResourceQuery& theQuery);

// The languages that the bundle has folders of, by their names without .lproj.
std::vector<std::string> LanguagesIn(const BundleFolders& theFolders);

} // namespace Host

#endif
