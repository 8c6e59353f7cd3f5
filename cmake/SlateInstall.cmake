# What `cmake --install` gives to C++ hosts: the libraries (component `runtime`), and all that one needs to build on
# them (component `dev`): headers and the CMake package `Slate`.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

# Where the ways into the library begin. Whatever these headers include is installed with them, and nothing else: the
# rest of the headers is the library's own business.
set(public_headers
  # Loading, and refactoring what is loaded
  SlateCoreApi.h SlateContext.h Plugin.h refactor/Toolkit.h
  # Objects, values and natives
  Any.h Object.h EvaluatorContext.h
  # Errors
  ErrorCode.h ErrorVisitor.h AnalysisErrors.h CycleFoundError.h LoadErrors.h
  # Tokens and trees, which tools read and plug-ins make
  Scanner.h Keywords.h Parser.h NodeVisitor.h Document.h Import.h ModelDeclaration.h TraitImpl.h Deletion.h
  VarAssignment.h Annotation.h MethodDeclaration.h OperatorOverload.h Parameter.h Array.h ArrayType.h BinaryOp.h
  Call.h Constant.h Indexing.h Initializer.h InitializerType.h MemberAccess.h PrimitiveType.h Unary.h
  # What the analysis finds
  AnalysisContext.h SymbolTree.h TopologicalPath.h)
list(TRANSFORM public_headers PREPEND slate/)

# slate_install_library(TARGET name): a shared library that hosts link as `Slate::name`.
function(slate_install_library target name)
  set_target_properties(${target} PROPERTIES EXPORT_NAME ${name} INSTALL_RPATH "$ORIGIN")
  target_compile_features(${target} INTERFACE cxx_std_20)
  install(TARGETS ${target} EXPORT SlateTargets
          LIBRARY COMPONENT runtime NAMELINK_COMPONENT dev
          INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
endfunction()

set(header_roots ${CMAKE_SOURCE_DIR}/slate.core/*/src)
slate_install_library(slate-core core)
if(TARGET slate-host)
  slate_install_library(slate-host host)
  list(APPEND header_roots ${CMAKE_SOURCE_DIR}/slate.host/native/src)
  set(host_headers Diagnostics.h ErrorTable.h ErrorWords.h EvaluationOrder.h Interrupt.h Log.h Natives.h
                   SourceTexts.h TreeNode.h)
  list(TRANSFORM host_headers PREPEND slate/host/)
  list(APPEND public_headers ${host_headers})
endif()

# The headers are looked for when they are installed: by then an edit may have changed what they include.
install(CODE "set(header_roots \"${header_roots}\")
              set(public_headers \"${public_headers}\")
              set(include_dir \"${CMAKE_INSTALL_INCLUDEDIR}\")" COMPONENT dev)
install(SCRIPT ${CMAKE_CURRENT_LIST_DIR}/InstallHeaders.cmake COMPONENT dev)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Slate)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/SlateConfig.cmake.in ${CMAKE_BINARY_DIR}/SlateConfig.cmake
                              INSTALL_DESTINATION ${package_dir} NO_SET_AND_CHECK_MACRO)
# Before 1.0 each minor version may break what stood in the one before.
write_basic_package_version_file(${CMAKE_BINARY_DIR}/SlateConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_BINARY_DIR}/SlateConfig.cmake ${CMAKE_BINARY_DIR}/SlateConfigVersion.cmake
        DESTINATION ${package_dir} COMPONENT dev)
install(EXPORT SlateTargets NAMESPACE Slate:: DESTINATION ${package_dir} COMPONENT dev)
