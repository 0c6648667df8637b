# One static library a folder, one test program a folder.

# requite_library(NAME SOURCES a.cpp b.cpp LINKS other...)
function(requite_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_library(requite_${name} STATIC ${ARG_SOURCES})
  target_include_directories(requite_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(requite_${name} PUBLIC requite_options ${ARG_LINKS})
endfunction()

# Optimising the sanitized tests, and not only what they test, would double the time that they take to build.
function(requite_build_test_fast target)
  if(REQUITE_SANITIZE)
    target_compile_options(${target} PRIVATE -O0)
  endif()
endfunction()

# requite_test(NAME SOURCES a_test.cpp LINKS requite_x...)
function(requite_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name}_tests ${ARG_SOURCES})
  target_include_directories(${name}_tests PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_compile_definitions(${name}_tests PRIVATE REQUITE_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data")
  target_link_libraries(${name}_tests PRIVATE ${ARG_LINKS} GTest::gmock GTest::gtest_main)
  requite_build_test_fast(${name}_tests)
  gtest_discover_tests(${name}_tests DISCOVERY_TIMEOUT 60)
endfunction()

# requite_command_test(NAME SECONDS COMMAND...): a test that runs a command line, which may begin with NAME=VALUE
# pairs for the environment; it is killed after that many seconds.
function(requite_command_test name seconds)
  add_test(NAME ${name} COMMAND ${REQUITE_ISOLATED} ${ARGN})
  set_tests_properties(${name} PROPERTIES TIMEOUT ${seconds})
endfunction()
