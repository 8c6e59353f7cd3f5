# How every target is compiled.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

# The log names files as `slate.core/...`, wherever the source tree lies.
add_compile_options(-fmacro-prefix-map=${CMAKE_SOURCE_DIR}/=)

# Calls within the shared library are direct: nobody replaces its functions one by one.
add_compile_options(-fno-semantic-interposition)
add_link_options(-Wl,-Bsymbolic-functions)

if(SLATE_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all)
  add_link_options(-fsanitize=address,undefined)
endif()

if(SLATE_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
  add_link_options(-fsanitize=address,undefined)
endif()

if(SLATE_CHECKED_LIBRARY)
  add_compile_definitions(_GLIBCXX_ASSERTIONS)
endif()

if(SLATE_COVERAGE)
  add_compile_options(-fprofile-instr-generate -fcoverage-mapping)
  add_link_options(-fprofile-instr-generate)
endif()

set(SLATE_TIDY_PATHS 30000 CACHE STRING "How many states of a function clang-tidy follows")

# slate_set_warnings(TARGET [TESTS])
#
# Warnings for our own targets alone: what other projects' headers hold is theirs. Tests are spared the path-sensitive
# analysis of clang-tidy, which takes most of its time there and is about code that runs for long. Elsewhere it follows
# up to SLATE_TIDY_PATHS states of a function: its own bound is 225,000, which takes three times as long.
function(slate_set_warnings target)
  cmake_parse_arguments(arg "TESTS" "" "" ${ARGN})
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # It sees overlaps in `"text" + std::string()` that are not there (bug 105651 of the compiler).
    target_compile_options(${target} PRIVATE -Wno-restrict)
  endif()
  if(SLATE_TIDY)
    set(tidy clang-tidy --quiet --warnings-as-errors=*)
    if(arg_TESTS)
      list(APPEND tidy --checks=-clang-analyzer-*)
    else()
      foreach(word IN ITEMS -Xclang -analyzer-config -Xclang max-nodes=${SLATE_TIDY_PATHS})
        list(APPEND tidy --extra-arg=${word})
      endforeach()
    endif()
    set_target_properties(${target} PROPERTIES CXX_CLANG_TIDY "${tidy}")
  endif()
endfunction()
