# Read by ctest, before it runs anything: makes a test of each suite of a test program, so that the program is
# started once for each and not once for each case.

# lm_discover_suites(<name of the tests> <program> <emulator> <script that runs a suite> <folder of the results>)
#
# The suites of one name that gtest makes from a table of values or types are one test. The names of the tests
# are left in LM_SUITE_TESTS.
function(lm_discover_suites theName theProgram theEmulator theRunner theResults)
  set(LM_SUITE_TESTS "" PARENT_SCOPE)
  if(NOT EXISTS "${theProgram}")
    add_test(${theName}_NOT_BUILT ${theName}_NOT_BUILT)
    return()
  endif()
  execute_process(COMMAND ${theEmulator} "${theProgram}" --gtest_list_tests
    OUTPUT_VARIABLE theList RESULT_VARIABLE theStatus TIMEOUT 60)
  if(NOT theStatus EQUAL 0)
    message(FATAL_ERROR "${theProgram} lists no tests: ${theStatus}\n${theList}")
  endif()
  string(REGEX MATCHALL "[^\n]+" theLines "${theList}")
  set(theSuites "")
  foreach(theLine IN LISTS theLines)
    # "Suite.", "Suite/0.  # TypeParam = ...", "Rows/Suite." or "Rows/Suite/0."
    if(theLine MATCHES "^([A-Za-z0-9_]+/)?([A-Za-z][A-Za-z0-9_]*)(/[0-9]+)?\\.")
      list(APPEND theSuites "${CMAKE_MATCH_2}")
    endif()
  endforeach()
  list(REMOVE_DUPLICATES theSuites)
  set(theTests "")
  foreach(theSuite IN LISTS theSuites)
    set(theTest ${theName}.${theSuite})
    add_test(${theTest} "${theRunner}" "${theResults}/${theTest}.xml"
      "${theSuite}.*:${theSuite}/*:*/${theSuite}.*:*/${theSuite}/*" ${theEmulator} "${theProgram}")
    list(APPEND theTests ${theTest})
  endforeach()
  set(LM_SUITE_TESTS "${theTests}" PARENT_SCOPE)
endfunction()
