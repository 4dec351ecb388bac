# Shared compile settings and the small helpers that register tests,
# benchmarks and fuzz targets, so each area only lists its sources.

function(pf_compile_options target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wno-unused-parameter)
  # Text encodings stay explicit: no silent QString from const char*.
  target_compile_definitions(${target} PRIVATE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY
    QT_NO_URL_CAST_FROM_STRING QT_USE_QSTRINGBUILDER)
endfunction()

# pf_add_test(<name> SOURCES ... [LIBS ...])
# One Qt Test executable per area, run headless by CTest.
function(pf_add_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  target_link_libraries(${name} PRIVATE pf_test_support Qt6::Test ${ARG_LIBS})
  pf_compile_options(${name})
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;PF_REALDATA=${PF_REALDATA_DIR};PF_BIN_DIR=${CMAKE_BINARY_DIR}/bin;PF_SOURCE_DIR=${CMAKE_SOURCE_DIR}"
    TIMEOUT 900)
endfunction()

# pf_add_bench(<name> SOURCES ... [LIBS ...]): built with the rest, never run by CTest.
function(pf_add_bench name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bench)
  target_link_libraries(${name} PRIVATE pf_bench_support ${ARG_LIBS})
  pf_compile_options(${name})
endfunction()
