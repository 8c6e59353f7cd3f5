# Run by `cmake --install`: copies `public_headers`, and all headers that these include, to `include_dir`.
# `header_roots` may hold patterns.
cmake_policy(VERSION 3.25)

# find_header(HEADER result): the one file that `#include "HEADER"` means.
function(find_header header result)
  list(TRANSFORM header_roots APPEND /${header} OUTPUT_VARIABLE patterns)
  file(GLOB files ${patterns})
  list(LENGTH files count)
  if(NOT count EQUAL 1)
    message(FATAL_ERROR "${header} should be one file, and is: ${files}")
  endif()
  set(${result} ${files} PARENT_SCOPE)
endfunction()

# include_closure(result HEADER...): the headers, and all those that they include in quotes.
function(include_closure result)
  set(waiting ${ARGN})
  set(seen "")
  while(waiting)
    list(POP_FRONT waiting header)
    if(header IN_LIST seen)
      continue()
    endif()
    list(APPEND seen ${header})
    find_header(${header} file)
    file(STRINGS ${file} lines REGEX "^#include \"")
    list(TRANSFORM lines REPLACE "^#include \"(.*)\".*" "\\1")
    list(APPEND waiting ${lines})
  endwhile()
  set(${result} ${seen} PARENT_SCOPE)
endfunction()

include_closure(headers ${public_headers})
foreach(header IN LISTS headers)
  find_header(${header} file)
  cmake_path(GET header PARENT_PATH folder)
  file(INSTALL ${file} DESTINATION ${CMAKE_INSTALL_PREFIX}/${include_dir}/${folder})
endforeach()
