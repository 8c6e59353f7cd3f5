# Python modules: how they are made of an interface definition, and where an installation puts them. They are built for
# the interpreter that `Python3_EXECUTABLE` names. Without it that is Debian's, which has the packages that the tests
# need, whatever stands first in `PATH`.

if(NOT Python3_EXECUTABLE AND EXISTS /usr/bin/python3)
  set(Python3_EXECUTABLE /usr/bin/python3)
endif()
find_package(Python3 3.9 REQUIRED COMPONENTS Interpreter Development.Module)
find_package(SWIG 4.1 REQUIRED COMPONENTS python)
include(UseSWIG)

# Where the interpreter looks below a prefix: Debian's has `dist-packages` where others have `site-packages`. The
# prefix of its own `local` directory is that of an installation, not part of the path below it.
execute_process(COMMAND ${Python3_EXECUTABLE} -c
                        "import sys, sysconfig; print(sysconfig.get_path('platlib')[len(sys.prefix) + 1:])"
                OUTPUT_VARIABLE directory OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
string(REGEX REPLACE "^local/" "" directory ${directory})
set(SLATE_PYTHON_DIR ${directory} CACHE STRING "Where Python modules are installed, below the prefix")
message(STATUS "Python modules for ${Python3_EXECUTABLE} (${Python3_VERSION}), installed to ${SLATE_PYTHON_DIR}")

# What tests that run the interpreter need in their environment.
set(SLATE_PYTHON_TEST_ENVIRONMENT PYTHONDONTWRITEBYTECODE=1)
if(SLATE_SANITIZE)
  # The interpreter is built without sanitizers, and its allocator hides from them what goes wrong. What it keeps to its
  # end is not told from leaks: those the tests count themselves.
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=libasan.so
                  OUTPUT_VARIABLE libasan OUTPUT_STRIP_TRAILING_WHITESPACE)
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=libstdc++.so
                  OUTPUT_VARIABLE libstdcxx OUTPUT_STRIP_TRAILING_WHITESPACE)
  list(APPEND SLATE_PYTHON_TEST_ENVIRONMENT
       LD_PRELOAD=${libasan}:${libstdcxx} PYTHONMALLOC=malloc ASAN_OPTIONS=detect_leaks=0)
endif()

# slate_python_module(NAME target INTERFACE file.i OUTPUT_NAME name LIBRARIES library...)
#
# The module `_name` and `name.py`, the Python code in front of it, in the current binary directory. Nothing but the
# entry that the interpreter asks for is exported.
function(slate_python_module)
  cmake_parse_arguments(arg "" "NAME;INTERFACE;OUTPUT_NAME" "LIBRARIES" ${ARGN})
  # The generator complains where it would leave something out; it must not go unnoticed.
  set_property(SOURCE ${arg_INTERFACE} PROPERTY CPLUSPLUS ON)
  set_property(SOURCE ${arg_INTERFACE} PROPERTY USE_SWIG_DEPENDENCIES TRUE)
  set_property(SOURCE ${arg_INTERFACE} PROPERTY COMPILE_OPTIONS -Wall -Werror -DSWIGWORDSIZE64)
  swig_add_library(${arg_NAME} TYPE MODULE LANGUAGE python OUTPUT_DIR ${CMAKE_CURRENT_BINARY_DIR}
                   SOURCES ${arg_INTERFACE})
  set(exports ${CMAKE_CURRENT_BINARY_DIR}/${arg_OUTPUT_NAME}.map)
  file(CONFIGURE OUTPUT ${exports} CONTENT "{ global: PyInit__${arg_OUTPUT_NAME}; local: *; };\n")
  set_target_properties(${arg_NAME} PROPERTIES
    OUTPUT_NAME ${arg_OUTPUT_NAME} # behind the `_` of its kind
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON
    INSTALL_RPATH "$ORIGIN"
    LINK_DEPENDS ${exports})
  target_link_libraries(${arg_NAME} PRIVATE ${arg_LIBRARIES} Python3::Module)
  # Templates of the standard library are visible whatever the default says.
  target_link_options(${arg_NAME} PRIVATE -Wl,--version-script=${exports})
endfunction()

# slate_install_python_module(NAME target [STUB file.pyi])
#
# A module of slate_python_module. Its stub file goes beside it, where editors look, and into a package of stubs, which
# is where type checkers look for those of installed modules.
function(slate_install_python_module)
  cmake_parse_arguments(arg "" "NAME;STUB" "" ${ARGN})
  get_target_property(module ${arg_NAME} OUTPUT_NAME)
  install(TARGETS ${arg_NAME} LIBRARY DESTINATION ${SLATE_PYTHON_DIR} COMPONENT python)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${module}.py DESTINATION ${SLATE_PYTHON_DIR} COMPONENT python)
  if(arg_STUB)
    set(stubs ${SLATE_PYTHON_DIR}/${module}-stubs)
    file(TOUCH ${CMAKE_CURRENT_BINARY_DIR}/py.typed)
    install(FILES ${arg_STUB} DESTINATION ${SLATE_PYTHON_DIR} COMPONENT python)
    install(FILES ${arg_STUB} DESTINATION ${stubs} RENAME __init__.pyi COMPONENT python)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/py.typed DESTINATION ${stubs} COMPONENT python)
  endif()
endfunction()

# slate_install_python_package(directory)
#
# A package of Python code alone.
function(slate_install_python_package directory)
  install(DIRECTORY ${directory} DESTINATION ${SLATE_PYTHON_DIR} COMPONENT python
          FILES_MATCHING PATTERN *.py PATTERN *.pyi PATTERN py.typed
          PATTERN __pycache__ EXCLUDE PATTERN .mypy_cache EXCLUDE)
endfunction()

# slate_install_python_library(target)
#
# A copy of a library beside the modules that are linked to it, so that their folder stands for itself wherever it is
# copied to: modules look beside themselves first. A component of its own: packages whose modules use the library of the
# system leave it out.
function(slate_install_python_library target)
  install(TARGETS ${target} LIBRARY DESTINATION ${SLATE_PYTHON_DIR} COMPONENT python_library NAMELINK_SKIP)
endfunction()
