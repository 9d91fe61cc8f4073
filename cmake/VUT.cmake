# vut_add_test(NAME SOURCES a.cpp b.cpp LIBS lib...)
# One GoogleTest executable, registered with CTest. Its main (tests/support) makes a QApplication
# on the offscreen platform and gives the test private config, data and cache folders.
function(vut_add_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LIBS} vut_test_main Qt6::Test GTest::gtest)
  add_test(NAME ${name} COMMAND ${name})
endfunction()

# vut_add_bench(NAME SOURCES a.cpp LIBS lib...): a Google Benchmark program; not a test.
function(vut_add_bench name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LIBS} vut_bench_main benchmark::benchmark)
endfunction()

# Adds every listed sub-folder that has a CMakeLists.txt, so parts can land independently.
function(vut_add_subdirectories)
  foreach(dir ${ARGN})
    if(EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/${dir}/CMakeLists.txt)
      add_subdirectory(${dir})
    endif()
  endforeach()
endfunction()
