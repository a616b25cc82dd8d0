# zephyls_test(NAME SOURCES... [LIBRARIES ...]): one test executable a folder, run by CTest.
# A build with sanitizers spends most of its time on the tests, whose own arithmetic is not what it
# looks for.
set(ZEPHYLS_TEST_OPTIONS "" CACHE STRING "Compile options of the tests' own sources")
if(ZEPHYLS_BUILD_TESTS)
  find_package(GTest REQUIRED)
endif()

function(zephyls_test name)
  if(NOT ZEPHYLS_BUILD_TESTS)
    return()
  endif()
  cmake_parse_arguments(TEST "" "" "SOURCES;LIBRARIES" ${ARGN})
  add_executable(${name} ${TEST_SOURCES})
  target_link_libraries(${name} PRIVATE zephyl GTest::gmock GTest::gtest_main ${TEST_LIBRARIES})
  zephyls_warnings(${name})
  target_compile_options(${name} PRIVATE ${ZEPHYLS_TEST_OPTIONS})
  add_test(NAME ${name} COMMAND ${name})
endfunction()

# zephyls_test_sources(NAME SOURCES...): more sources for a test executable, from a folder below.
function(zephyls_test_sources name)
  if(ZEPHYLS_BUILD_TESTS)
    list(TRANSFORM ARGN PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
    target_sources(${name} PRIVATE ${ARGN})
  endif()
endfunction()
