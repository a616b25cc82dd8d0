# zephyls_test(NAME [THREADS] SOURCES... [LIBRARIES ...]): one test executable a folder, run by CTest.
# THREADS says that several threads run in it or in what it starts; a build that looks for races
# makes only those. The target zephyls_tests builds all of them, and build/.../tests.txt lists them.
option(ZEPHYLS_ONLY_THREADS "Of the tests, only those in which several threads run" OFF)
# A build with sanitizers spends most of its time on the tests, whose own arithmetic is not what it
# looks for.
set(ZEPHYLS_TEST_OPTIONS "" CACHE STRING "Compile options of the tests' own sources")
if(ZEPHYLS_BUILD_TESTS)
  find_package(GTest REQUIRED)
  add_custom_target(zephyls_tests)
  cmake_language(DEFER DIRECTORY ${PROJECT_SOURCE_DIR} CALL zephyls_list_tests)
endif()

function(zephyls_test name)
  cmake_parse_arguments(TEST "THREADS" "" "SOURCES;LIBRARIES" ${ARGN})
  if(NOT ZEPHYLS_BUILD_TESTS)
    return()
  endif()
  add_executable(${name} ${TEST_SOURCES})
  target_link_libraries(${name} PRIVATE zephyl GTest::gmock GTest::gtest_main ${TEST_LIBRARIES})
  zephyls_warnings(${name})
  target_compile_options(${name} PRIVATE ${ZEPHYLS_TEST_OPTIONS})
  if(ZEPHYLS_ONLY_THREADS AND NOT TEST_THREADS)
    set_target_properties(${name} PROPERTIES EXCLUDE_FROM_ALL ON)
    return()
  endif()
  add_test(NAME ${name} COMMAND ${name})
  add_dependencies(zephyls_tests ${name})
  set_property(GLOBAL APPEND_STRING PROPERTY ZEPHYLS_TESTS "$<TARGET_FILE:${name}>\n")
endfunction()

# zephyls_test_sources(NAME SOURCES...): more sources for a test executable, from a folder below.
function(zephyls_test_sources name)
  if(ZEPHYLS_BUILD_TESTS)
    list(TRANSFORM ARGN PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
    target_sources(${name} PRIVATE ${ARGN})
  endif()
endfunction()

function(zephyls_list_tests)
  get_property(tests GLOBAL PROPERTY ZEPHYLS_TESTS)
  file(GENERATE OUTPUT ${PROJECT_BINARY_DIR}/tests.txt CONTENT "${tests}")
endfunction()
