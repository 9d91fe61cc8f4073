# vut_add_test(NAME SOURCES a.cpp b.cpp LIBS lib...)
# One GoogleTest executable, registered with CTest. Widget tests need no display: every test runs
# under Qt's offscreen platform with a private, throw-away home so nothing touches the user's files.
function(vut_add_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LIBS} GTest::gtest GTest::gtest_main)
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;XDG_CONFIG_HOME=${CMAKE_BINARY_DIR}/test-home/${name}/config;XDG_DATA_HOME=${CMAKE_BINARY_DIR}/test-home/${name}/data;XDG_CACHE_HOME=${CMAKE_BINARY_DIR}/test-home/${name}/cache"
    FIXTURES_REQUIRED vut_test_home)
endfunction()

# vut_add_bench(NAME SOURCES a.cpp LIBS lib...): a Google Benchmark program; not a test.
function(vut_add_bench name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LIBS} benchmark::benchmark)
endfunction()

# Adds every listed sub-folder that has a CMakeLists.txt, so parts can land independently.
function(vut_add_subdirectories)
  foreach(dir ${ARGN})
    if(EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/${dir}/CMakeLists.txt)
      add_subdirectory(${dir})
    endif()
  endforeach()
endfunction()
