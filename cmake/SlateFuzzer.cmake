# Fuzzers: an input is drawn, one property is checked, what the code covers decides which inputs are kept.

set(SLATE_FUZZ_SECONDS 60 CACHE STRING "How long the test of each fuzzer runs")
add_custom_target(fuzzers)

# slate_fuzzer(NAME source)
#
# The fuzzer `slate.fuzz.NAME`, which the target `fuzzers` builds with the others, and the test `fuzz.NAME` that runs it
# from the seeds and the stored corpus. What it finds beyond these is kept in the build directory, so that the next run
# goes on from there.
function(slate_fuzzer name source)
  set(target slate.fuzz.${name})
  add_executable(${target} fuzzers/${source} fuzzers/Fuzzer.cpp)
  target_link_libraries(${target} PRIVATE slate.properties spdlog::spdlog fmt::fmt)
  target_link_options(${target} PRIVATE -fsanitize=fuzzer)
  slate_set_warnings(${target})
  add_dependencies(fuzzers ${target})
  add_test(NAME fuzz.${name}
           COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/run-fuzzer $<TARGET_FILE:${target}> ${name} ${SLATE_FUZZ_SECONDS}
                   ${CMAKE_CURRENT_BINARY_DIR} 1)
  math(EXPR time_limit "${SLATE_FUZZ_SECONDS} + 120")
  set_tests_properties(fuzz.${name} PROPERTIES TIMEOUT ${time_limit})
endfunction()
