# The test framework is built from its sources, so that every flavour of the build (sanitizers, 32-bit,
# big-endian) gets one of its own kind.
set(LM_GOOGLETEST_SOURCE_DIR "/usr/src/googletest" CACHE PATH "Where the sources of GoogleTest are")
if(NOT EXISTS "${LM_GOOGLETEST_SOURCE_DIR}/CMakeLists.txt")
  message(FATAL_ERROR
    "The sources of GoogleTest are not in ${LM_GOOGLETEST_SOURCE_DIR}. "
    "Install the package googletest, or set LM_GOOGLETEST_SOURCE_DIR.")
endif()
set(INSTALL_GTEST OFF)
set(BUILD_GMOCK OFF)
add_subdirectory("${LM_GOOGLETEST_SOURCE_DIR}" "${CMAKE_BINARY_DIR}/GoogleTest" EXCLUDE_FROM_ALL SYSTEM)
foreach(theLibrary gtest gtest_main)
  # It is compiled for every flavour anew, and what it does takes no time.
  target_compile_options(${theLibrary} PRIVATE $<$<CONFIG:Release>:-O1> $<$<CONFIG:Debug>:-O0>)
  if(LM_SANITIZE)
    target_compile_options(${theLibrary} PRIVATE -fsanitize=${LM_SANITIZE})
  endif()
endforeach()
include(GoogleTest)

# The tests' own accesses through pointers are not checked one by one, which takes a third of the time that they take to
# compile: AddressSanitizer sees those that go wrong, and what is tested is checked whole. The options come behind those
# that switch the checks on.
add_library(LmTestOptions INTERFACE)
if(LM_SANITIZE MATCHES "undefined")
  target_compile_options(LmTestOptions INTERFACE -fno-sanitize=null,alignment,vptr,object-size)
endif()

# lm_configure_test(<target>): what the files of every test program are compiled with.
function(lm_configure_test theTarget)
  lm_configure_target(${theTarget})
  target_link_libraries(${theTarget} PRIVATE LmTestOptions)
  # GCC 12 takes strings inside rows of test tables for uninitialised when it optimises.
  target_compile_options(${theTarget} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
  # What is tested is optimised as ever; the tests themselves compile in half of the time without. A release's
  # are optimised a little, so that the compiler warns of what it only sees then.
  target_compile_options(${theTarget} PRIVATE $<$<CONFIG:Release>:-O1> $<$<CONFIG:Debug>:-O0>)
endfunction()

# The environment that every test runs in is set here and nowhere else.
set(LM_TEST_ENVIRONMENT
  LM_PRESENTER=headless
  LM_PREFERENCES=memory
  LC_ALL=C.UTF-8
  ASAN_OPTIONS=detect_leaks=1:allocator_may_return_null=1
  UBSAN_OPTIONS=print_stacktrace=1)

# lm_discover_cases(<name> <target> <labels>): each case is a test of its own.
function(lm_discover_cases theName theTarget theLabels)
  gtest_discover_tests(${theTarget}
    TEST_PREFIX ${theName}.
    NO_PRETTY_VALUES
    DISCOVERY_MODE PRE_TEST
    DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT 300)
  # gtest_discover_tests takes lists apart, so what is a list is set in a file that ctest reads after the tests
  # are known.
  set(thePropertyFile "${CMAKE_CURRENT_BINARY_DIR}/${theTarget}_properties.cmake")
  file(WRITE "${thePropertyFile}"
    "if(${theTarget}_TESTS)\n"
    "  set_tests_properties(\${${theTarget}_TESTS} PROPERTIES\n"
    "    ENVIRONMENT \"${LM_TEST_ENVIRONMENT}\"\n"
    "    LABELS \"${theLabels}\")\n"
    "endif()\n")
  set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES "${thePropertyFile}")
endfunction()

# lm_discover_by_suite(<name> <target> <labels>): each suite is a test, and the results of its cases are in
# Results/<name>.<Suite>.xml.
function(lm_discover_by_suite theName theTarget theLabels)
  set(theFile "${CMAKE_CURRENT_BINARY_DIR}/${theTarget}_suites.cmake")
  file(GENERATE OUTPUT "${theFile}" CONTENT
"include(\"${LmBindings_SOURCE_DIR}/CMake/LmDiscoverSuites.cmake\")
lm_discover_suites(${theName} \"$<TARGET_FILE:${theTarget}>\" \"${CMAKE_CROSSCOMPILING_EMULATOR}\"
  \"${LmBindings_SOURCE_DIR}/Tests/Support/RunSuite.sh\" \"${CMAKE_BINARY_DIR}/Results\")
if(LM_SUITE_TESTS)
  set_tests_properties(\${LM_SUITE_TESTS} PROPERTIES
    ENVIRONMENT \"${LM_TEST_ENVIRONMENT}\"
    LABELS \"${theLabels}\"
    TIMEOUT 600)
endif()
")
  set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES "${theFile}")
endfunction()

# lm_add_test(<name> [OTHER_FLAGS] SOURCES <files> [WITHOUT_MEMORY <files>] [LIBRARIES <targets>] [LABELS <labels>])
#
# Makes the test program <name>Tests; each of its cases is a ctest test called <name>.<Suite>.<Case>, or, with
# LM_TESTS_BY_SUITE, each of its suites one called <name>.<Suite>. OTHER_FLAGS says that its libraries make it
# compile with flags of their own, for which the precompiled header is none. In the files of WITHOUT_MEMORY memory
# runs out; they are left out where the allocator cannot be replaced.
function(lm_add_test theName)
  cmake_parse_arguments(PARSE_ARGV 1 LM "OTHER_FLAGS" "" "SOURCES;WITHOUT_MEMORY;LIBRARIES;LABELS")
  set(theTarget ${theName}Tests)
  if(LM_WITHOUT_MEMORY AND TARGET LmAllocationFailures)
    list(APPEND LM_SOURCES ${LM_WITHOUT_MEMORY})
    list(APPEND LM_LIBRARIES LmAllocationFailures)
  endif()
  add_executable(${theTarget} ${LM_SOURCES})
  lm_configure_test(${theTarget})
  target_link_libraries(${theTarget} PRIVATE ${LM_LIBRARIES} LmTestSupport)
  if(NOT LM_OTHER_FLAGS)
    target_precompile_headers(${theTarget} REUSE_FROM LmTestSupport)
    lm_compile_together(${theTarget})
  endif()
  if(LM_TESTS_BY_SUITE)
    lm_discover_by_suite(${theName} ${theTarget} "${theName};${LM_LABELS}")
  else()
    lm_discover_cases(${theName} ${theTarget} "${theName};${LM_LABELS}")
  endif()
endfunction()
