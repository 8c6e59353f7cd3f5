# The libraries of the core: one a folder, all linked into the one shared library `slate-core`.

# slate_library(NAME folder DEPENDS other...)
#
# Compiles the sources of the current folder and sees the headers of those it depends on, and of nothing else: so the
# order of the libraries is checked by every build.
function(slate_library)
  cmake_parse_arguments(arg "" "NAME" "DEPENDS" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/src/slate/*.cpp)
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/src/slate/*.h)
  add_library(${arg_NAME} OBJECT ${sources} ${headers})
  target_include_directories(${arg_NAME} PUBLIC $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}/src>)
  target_link_libraries(${arg_NAME} PUBLIC ${arg_DEPENDS} PRIVATE spdlog::spdlog fmt::fmt)
  slate_set_warnings(${arg_NAME})
  target_link_libraries(slate-core PRIVATE ${arg_NAME})
  target_include_directories(slate-core INTERFACE $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}/src>)
endfunction()

# slate_test(NAME library)
#
# The tests of a library, in the one executable `library.test`.
function(slate_test)
  cmake_parse_arguments(arg "" "NAME" "" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/tests/*.cpp)
  add_executable(${arg_NAME}.test ${sources})
  target_link_libraries(${arg_NAME}.test PRIVATE slate-core slate.testing GTest::gtest GTest::gmock
                                                 GTest::gtest_main spdlog::spdlog fmt::fmt)
  target_compile_definitions(${arg_NAME}.test PRIVATE SLATE_CASES="${CMAKE_CURRENT_SOURCE_DIR}/tests/cases")
  slate_set_warnings(${arg_NAME}.test TESTS)
  gtest_discover_tests(${arg_NAME}.test TEST_PREFIX ${arg_NAME}. DISCOVERY_MODE PRE_TEST
                       PROPERTIES TIMEOUT 300)
endfunction()
