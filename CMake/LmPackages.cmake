# Debian packages, made by `cpack -G DEB` from a build of the preset `debian`. Tests/Package/CheckDebianPackages.sh
# makes them, reads them with lintian, and uses them on a bare system.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME lmbindings)
set(CPACK_PACKAGE_VENDOR "The LmBindings authors")
set(CPACK_PACKAGE_CONTACT "The LmBindings authors <lmbindings@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "key-value observing and bindings for Carbon applications")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES TRUE)
set(CPACK_COMPONENTS_ALL Libraries Development Documentation)
if(TARGET LmCarbonDesktop)
  list(APPEND CPACK_COMPONENTS_ALL Desktop DesktopDevelopment)
endif()

set(CPACK_DEB_COMPONENT_INSTALL ON)
# Below the first that Debian itself would make.
set(CPACK_DEBIAN_PACKAGE_RELEASE 0upstream1)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(LM_DEBIAN_VERSION "${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}")
set(LM_DEBIAN_DIR "${PROJECT_BINARY_DIR}/Debian")
find_program(LM_GZIP gzip)
find_program(LM_GENSYMBOLS dpkg-gensymbols)
find_package(Git QUIET)

# The day of the last change, as a package's list of changes has it; of today where there is no telling.
set(LM_DEBIAN_DATE "")
if(GIT_FOUND)
  execute_process(COMMAND "${GIT_EXECUTABLE}" log -1 --format=%cD
    WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}"
    OUTPUT_VARIABLE LM_DEBIAN_DATE OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
endif()
if(NOT LM_DEBIAN_DATE)
  string(TIMESTAMP LM_DEBIAN_DATE "%a, %d %b %Y %H:%M:%S +0000" UTC)
endif()
file(READ "${PROJECT_SOURCE_DIR}/LICENSE" LM_LICENCE)
string(FIND "${LM_LICENCE}" "Permission is" theBeginning)
string(SUBSTRING "${LM_LICENCE}" ${theBeginning} -1 LM_DEBIAN_LICENCE)
string(REGEX REPLACE "\n+$" "" LM_DEBIAN_LICENCE "${LM_DEBIAN_LICENCE}")
string(REPLACE "\n\n" "\n.\n" LM_DEBIAN_LICENCE "${LM_DEBIAN_LICENCE}")
string(REPLACE "\n" "\n " LM_DEBIAN_LICENCE "${LM_DEBIAN_LICENCE}")
configure_file("${CMAKE_CURRENT_LIST_DIR}/Debian/copyright.in" "${LM_DEBIAN_DIR}/copyright" @ONLY)

# lm_debian_packed_file(<name> <package> <component> <content>): a file of the package's own folder, packed.
function(lm_debian_packed_file theName thePackage theComponent theContent)
  set(theFolder "${LM_DEBIAN_DIR}/${thePackage}")
  file(WRITE "${theFolder}/${theName}" "${theContent}")
  if(LM_GZIP)
    execute_process(COMMAND "${LM_GZIP}" -9nf "${theFolder}/${theName}")
    install(FILES "${theFolder}/${theName}.gz" DESTINATION share/doc/${thePackage} COMPONENT ${theComponent}
      EXCLUDE_FROM_ALL)
  endif()
endfunction()

# lm_debian_package(<component> <package> <section> <description> [<depends>...])
function(lm_debian_package theComponent thePackage theSection theDescription)
  string(TOUPPER ${theComponent} theKey)
  list(JOIN ARGN ", " theDepends)
  set(CPACK_DEBIAN_${theKey}_PACKAGE_NAME ${thePackage} PARENT_SCOPE)
  set(CPACK_DEBIAN_${theKey}_PACKAGE_SECTION ${theSection} PARENT_SCOPE)
  set(CPACK_DEBIAN_${theKey}_PACKAGE_DEPENDS "${theDepends}" PARENT_SCOPE)
  set(CPACK_DEBIAN_${theKey}_DESCRIPTION "${theDescription}" PARENT_SCOPE)
  install(FILES "${LM_DEBIAN_DIR}/copyright" DESTINATION share/doc/${thePackage} COMPONENT ${theComponent}
    EXCLUDE_FROM_ALL)
  set(theOverrides "${PROJECT_SOURCE_DIR}/CMake/Debian/${thePackage}.overrides")
  if(EXISTS "${theOverrides}")
    install(FILES "${theOverrides}" DESTINATION share/lintian/overrides RENAME ${thePackage}
      COMPONENT ${theComponent} EXCLUDE_FROM_ALL)
  endif()
  lm_debian_packed_file(changelog.Debian ${thePackage} ${theComponent}
    "lmbindings (${LM_DEBIAN_VERSION}) unstable; urgency=medium\n\n  * The version ${PROJECT_VERSION}; see CHANGELOG.md for what is in it.\n\n -- ${CPACK_PACKAGE_CONTACT}  ${LM_DEBIAN_DATE}\n")
endfunction()

# lm_debian_libraries(<component> <package> <development package> <target>...): what other packages have to know of
# the libraries in it.
function(lm_debian_libraries theComponent thePackage theDevelopment)
  string(TOUPPER ${theComponent} theKey)
  set(CPACK_DEBIAN_${theKey}_PACKAGE_SHLIBDEPS ON PARENT_SCOPE)
  set(theLibraries "")
  foreach(theTarget IN LISTS ARGN)
    list(APPEND theLibraries "-e$<TARGET_FILE:${theTarget}>")
  endforeach()
  set(theFolder "${LM_DEBIAN_DIR}/${thePackage}")
  file(WRITE "${theFolder}/triggers" "activate-noawait ldconfig\n")
  set(theShlibs "")
  set(theSymbols "")
  foreach(theTarget IN LISTS ARGN)
    string(APPEND theShlibs
      "lib${theTarget} ${PROJECT_VERSION_MAJOR} ${thePackage} (>= ${PROJECT_VERSION})\n")
    string(APPEND theSymbols
      "lib${theTarget}.so.${PROJECT_VERSION_MAJOR} ${thePackage} #MINVER#\n"
      "* Build-Depends-Package: ${theDevelopment}\n")
  endforeach()
  file(WRITE "${theFolder}/shlibs" "${theShlibs}")
  set(theControl "${theFolder}/triggers;${theFolder}/shlibs")
  if(LM_GENSYMBOLS)
    # It asks for the file that packages are described in where they are not made by CPack.
    file(WRITE "${theFolder}/debian/control"
      "Source: lmbindings\nMaintainer: ${CPACK_PACKAGE_CONTACT}\n\nPackage: ${thePackage}\nArchitecture: any\n")
    file(WRITE "${theFolder}/symbols.in" "${theSymbols}")
    add_custom_command(OUTPUT "${theFolder}/symbols"
      COMMAND "${LM_GENSYMBOLS}" -c0 -P${thePackage} -v${PROJECT_VERSION} ${theLibraries}
        "-I${theFolder}/symbols.in" "-O${theFolder}/symbols" -q
      DEPENDS ${ARGN}
      WORKING_DIRECTORY "${theFolder}"
      COMMENT "Listing the symbols of ${thePackage}")
    add_custom_target(${thePackage}-symbols DEPENDS "${theFolder}/symbols")
    add_dependencies(debian ${thePackage}-symbols)
    list(APPEND theControl "${theFolder}/symbols")
  endif()
  set(CPACK_DEBIAN_${theKey}_PACKAGE_CONTROL_EXTRA "${theControl}" PARENT_SCOPE)
endfunction()

# What is built only to be packed. CPack itself would leave out what the packages depend on, and say so in a warning.
add_custom_target(debian)
find_program(LM_SHLIBDEPS dpkg-shlibdeps)
find_program(LM_FILE file)
if(NOT LM_GZIP OR NOT LM_GENSYMBOLS OR NOT LM_SHLIBDEPS OR NOT LM_FILE)
  add_custom_target(debian-tools
    COMMAND "${CMAKE_COMMAND}" -E echo "To make Debian packages, install dpkg-dev, file and gzip, and configure again."
    COMMAND "${CMAKE_COMMAND}" -E false
    VERBATIM)
  add_dependencies(debian debian-tools)
endif()
set(theCommon "LmBindings gives applications written for Carbon key-value coding, key-value
observing and bindings: controls and models that follow each other without
a line of copying code between them. A host for the library on Linux, the part
of the interfaces CoreFoundation and Carbon that is used, belongs to it.
\n")
lm_debian_package(Libraries liblmbindings1 libs
  "${theCommon}This package contains the shared libraries.")
lm_debian_libraries(Libraries liblmbindings1 liblmbindings-dev
  LmBindings LmCarbon LmControllers LmCoreFoundation LmInspection LmInspector)
lm_debian_package(Development liblmbindings-dev libdevel
  "${theCommon}This package contains the headers, the CMake package and the pkg-config file."
  "liblmbindings1 (= ${LM_DEBIAN_VERSION})")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS liblmbindings-doc)
lm_debian_package(Documentation liblmbindings-doc doc
  "${theCommon}This package contains the documentation and the examples.")
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_ARCHITECTURE all)
file(READ "${PROJECT_SOURCE_DIR}/CHANGELOG.md" theChanges)
lm_debian_packed_file(changelog liblmbindings-doc Documentation "${theChanges}")
if(TARGET LmCarbonDesktop)
  lm_debian_package(Desktop liblmbindings-desktop1 libs
    "${theCommon}This package contains the library that shows the windows of a program on\nthe screen, with the widgets of Qt 6."
    "liblmbindings1 (= ${LM_DEBIAN_VERSION})")
  lm_debian_libraries(Desktop liblmbindings-desktop1 liblmbindings-desktop-dev LmCarbonDesktop LmInspectorWindow)
  lm_debian_package(DesktopDevelopment liblmbindings-desktop-dev libdevel
    "${theCommon}This package contains what a program is linked with to be shown on the screen."
    "liblmbindings-dev (= ${LM_DEBIAN_VERSION})" "liblmbindings-desktop1 (= ${LM_DEBIAN_VERSION})")
  # The other libraries are found where they were built, and depended on by name.
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
    "${PROJECT_BINARY_DIR}/Source" "${PROJECT_BINARY_DIR}/Source/Controllers" "${PROJECT_BINARY_DIR}/Source/Inspector"
    "${PROJECT_BINARY_DIR}/Platform/Carbon" "${PROJECT_BINARY_DIR}/Platform/CoreFoundation")
endif()
include(CPack)
