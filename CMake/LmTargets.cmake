# What every target of the project is compiled with.

include(CheckCXXCompilerFlag)

# Files name themselves by their place in the project (Source/Core/LmString.cpp), not by the machine's
# folder: diagnostics print that name.
add_library(LmCompileOptions INTERFACE)
target_compile_features(LmCompileOptions INTERFACE cxx_std_17)
# The last compilers for 32-bit Macs know neither of the flags.
foreach(theFlag fmacro-prefix-map ffile-prefix-map)
  string(MAKE_C_IDENTIFIER "LM_KNOWS_${theFlag}" theAnswer)
  check_cxx_compiler_flag("-${theFlag}=${CMAKE_CURRENT_SOURCE_DIR}/=" ${theAnswer})
  if(${theAnswer})
    target_compile_options(LmCompileOptions INTERFACE "-${theFlag}=${CMAKE_CURRENT_SOURCE_DIR}/=")
  endif()
endforeach()
target_compile_options(LmCompileOptions INTERFACE
  -fvisibility=hidden
  $<$<COMPILE_LANGUAGE:CXX>:-fvisibility-inlines-hidden>
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow
  # The platform's four-character codes ('cntl') are multi-character constants.
  -Wno-multichar
  # GCC 10 and later mention on PowerPC and i686 that an old ABI detail changed; nothing to act on.
  $<$<CXX_COMPILER_ID:GNU>:-Wno-psabi>)
if(APPLE)
  # Carbon as a whole is deprecated there, and some of its calls were already in 10.5.
  target_compile_options(LmCompileOptions INTERFACE -Wno-deprecated-declarations)
endif()
if(LM_WARNINGS_AS_ERRORS)
  target_compile_options(LmCompileOptions INTERFACE -Werror)
endif()
if(LM_SANITIZE)
  target_compile_options(LmCompileOptions INTERFACE
    -fsanitize=${LM_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(LmCompileOptions INTERFACE -fsanitize=${LM_SANITIZE})
endif()
if(LM_COVERAGE)
  target_compile_options(LmCompileOptions INTERFACE --coverage -fprofile-update=atomic)
  target_link_options(LmCompileOptions INTERFACE --coverage)
endif()

set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

# lm_configure_target(<target>): the project's own compile options, kept out of what users inherit.
function(lm_configure_target theTarget)
  target_compile_features(${theTarget} PUBLIC cxx_std_17)
  target_link_libraries(${theTarget} PRIVATE $<BUILD_INTERFACE:LmCompileOptions>)
  set_target_properties(${theTarget} PROPERTIES CXX_EXTENSIONS OFF)
endfunction()

# Compiled together, files are headers to GCC, which warns of those whose names have no linkage; and a name of one may
# hide one of another.
add_library(LmTogetherOptions INTERFACE)
target_compile_options(LmTogetherOptions INTERFACE $<$<COMPILE_LANG_AND_ID:CXX,GNU>:-Wno-subobject-linkage> -Wno-shadow)

# lm_compile_together(<target>): where LM_COMPILE_TOGETHER asks for it, those files of the target that can be compiled as
# one are compiled so, several at a time. Much of what a file costs is made once then for all: the headers, and what
# becomes of their templates. Which files these are is found out when the build is configured. A file that has flags of
# its own stays alone, and so does one with the property SKIP_UNITY_BUILD_INCLUSION. To be called when the target has all
# of its files and options.
function(lm_compile_together theTarget)
  if(NOT LM_COMPILE_TOGETHER)
    return()
  endif()
  find_package(Python3 REQUIRED COMPONENTS Interpreter)
  get_target_property(theSources ${theTarget} SOURCES)
  list(FILTER theSources INCLUDE REGEX "\\.cpp$")
  # What the build makes is not there yet.
  list(FILTER theSources EXCLUDE REGEX "^${CMAKE_BINARY_DIR}/")
  if(NOT theSources)
    return()
  endif()
  execute_process(
    COMMAND "${Python3_EXECUTABLE}" "${LmBindings_SOURCE_DIR}/Scripts/GroupFiles.py" 12 ${theSources}
    WORKING_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}"
    OUTPUT_VARIABLE theGroups OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  foreach(theSource theGroup IN ZIP_LISTS theSources theGroups)
    set_source_files_properties("${theSource}" PROPERTIES UNITY_GROUP "${theGroup}")
  endforeach()
  set_target_properties(${theTarget} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
  target_link_libraries(${theTarget} PRIVATE $<BUILD_INTERFACE:LmTogetherOptions>)
endfunction()

# lm_configure_library(<target>): an installed shared library with a versioned soname.
function(lm_configure_library theTarget)
  lm_configure_target(${theTarget})
  set_target_properties(${theTarget} PROPERTIES
    VERSION ${LmBindings_VERSION}
    SOVERSION ${LmBindings_VERSION_MAJOR})
  if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
    set(theMap "${LmBindings_SOURCE_DIR}/CMake/HideStandardLibrary.map")
    target_link_options(${theTarget} PRIVATE "-Wl,--version-script=${theMap}")
    set_property(TARGET ${theTarget} APPEND PROPERTY LINK_DEPENDS "${theMap}")
  endif()
endfunction()

# lm_set_interface(<target> <umbrella header> [<header>...]): the interface of a library is what its umbrella header
# includes, and the headers named here; its other headers are its own affair. The interfaces of all libraries lie in one
# folder when they are installed, because they include one another by bare name. In the build such a folder stands for
# them, from which no path leads to the others: what compiles as a part of an application's build compiles with the
# installed library too.
function(lm_set_interface theTarget theUmbrella)
  set(theHeaders "${CMAKE_CURRENT_SOURCE_DIR}/${theUmbrella}")
  foreach(theHeader IN LISTS ARGN)
    list(APPEND theHeaders "${CMAKE_CURRENT_SOURCE_DIR}/${theHeader}")
  endforeach()
  file(STRINGS ${theUmbrella} theIncludes REGEX "^#include \"")
  foreach(theInclude IN LISTS theIncludes)
    string(REGEX REPLACE "^#include \"(.*)\"$" "\\1" theName "${theInclude}")
    file(GLOB theHeader "${CMAKE_CURRENT_SOURCE_DIR}/${theName}" "${CMAKE_CURRENT_SOURCE_DIR}/*/${theName}")
    list(APPEND theHeaders "${theHeader}")
  endforeach()
  set(theInterface "${CMAKE_CURRENT_BINARY_DIR}/Interface")
  foreach(theHeader IN LISTS theHeaders)
    get_filename_component(theName "${theHeader}" NAME)
    file(CONFIGURE OUTPUT "${theInterface}/${theName}" CONTENT "#include \"${theHeader}\"\n" @ONLY)
  endforeach()
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${theUmbrella})
  set_target_properties(${theTarget} PROPERTIES PUBLIC_HEADER "${theHeaders}")
  target_include_directories(${theTarget} INTERFACE
    $<BUILD_INTERFACE:${theInterface}>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/LmBindings>)
endfunction()
