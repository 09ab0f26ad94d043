# Lists the suites of a test program as tests of ctest; run after the program is linked:
#   cmake -D PROGRAM=FILE -D LAYER=NAME -D RESULTS=FOLDER -D OUT=FILE -P discover_suites.cmake
# One process per suite, because starting a program with Qt takes longer than most tests. Each writes the results of its
# tests to RESULTS/LAYER.SUITE.xml, which tests/results reads.
execute_process(
  COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen ${PROGRAM} --gtest_list_tests
  OUTPUT_VARIABLE list TIMEOUT 120 COMMAND_ERROR_IS_FATAL ANY)

set(entries "")
set(suite "")
set(count 0)
macro(finish_suite)
  if(suite)
    set(test "${LAYER}.${suite}")
    string(REPLACE "/" "_" file "${test}")
    string(APPEND entries
      "add_test([=[${test}]=] [=[${PROGRAM}]=] [=[--gtest_filter=${suite}.*]=] [=[--gtest_output=xml:${RESULTS}/${file}.xml]=])\n"
      "set_tests_properties([=[${test}]=] PROPERTIES TIMEOUT 600 COST ${count}"
      " ENVIRONMENT [=[QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8]=])\n")
  endif()
endmacro()

string(REPLACE ";" "," list "${list}")
string(REPLACE "\n" ";" list "${list}")
foreach(line IN LISTS list)
  if(line MATCHES "^([A-Za-z0-9_/]+)\\.( |$)")
    set(found "${CMAKE_MATCH_1}")
    finish_suite()
    set(suite "${found}")
    set(count 0)
  elseif(line MATCHES "^  ")
    math(EXPR count "${count} + 1")
  endif()
endforeach()
finish_suite()
file(WRITE ${OUT} "${entries}")
