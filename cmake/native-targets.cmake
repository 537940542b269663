# The programs for Linux. The module and the development host are linked with a recorder in place of OpenGL, GLU, WGL and
# GDI, whose folder also holds the small windows.h that only these builds see. Each part is compiled once for all
# programs that hold it.
find_package(GTest REQUIRED)
target_include_directories(project_options SYSTEM INTERFACE tests/recorder/include)

function(add_part name)
  add_library(${name} OBJECT ${ARGN})
  target_link_libraries(${name} PRIVATE project_options)
  precompile_standard_headers(${name})
endfunction()

add_part(module_part ${module_sources})
add_part(host_part ${host_sources})
target_include_directories(host_part SYSTEM PRIVATE "${STB_INCLUDE_DIR}")
collect_sources(recorder_sources tests/recorder)
add_part(recorder_part ${recorder_sources})
# What loads and watches the module, for the random calls too.
set(support_sources)
foreach(name allocation allocation_limit fake_device leftovers load_module values)
  list(APPEND support_sources "${PROJECT_SOURCE_DIR}/tests/unit/support/${name}.cpp")
endforeach()
add_part(support_part ${support_sources})
set(tested_parts module_part host_part recorder_part support_part)

collect_sources(test_sources tests/unit)
list(REMOVE_ITEM test_sources ${support_sources})
add_executable(unit_tests ${test_sources})
# A failing test says where it is; the module's and the host's lines are in their own objects.
target_compile_options(unit_tests PRIVATE -g0)
target_link_libraries(unit_tests PRIVATE project_options ${tested_parts} GTest::gmock GTest::gtest_main)
precompile_standard_headers(unit_tests <gmock/gmock.h>)
set_source_files_properties(tests/unit/module/context_failures_test.cpp PROPERTIES
  COMPILE_DEFINITIONS TESTING_DOCUMENT="${PROJECT_SOURCE_DIR}/docs/testing.md")
# tests/unit/support/function_trace.cpp stands between the module and the host's compiler of script functions.
target_link_options(unit_tests PRIVATE
  "LINKER:--wrap=_ZN7devhost15CompileFunctionESt17basic_string_viewIcSt11char_traitsIcEE")
# tests/unit/support/host_calls.cpp counts the module's calls of these host functions and lets them fail.
foreach(name _Z9__AddNumb _Z9__SubNumb _Z9__MulNumb _Z9__DivNumb _Z10__RestNumb _Z7_OrNumb _Z8_AndNumb _Z8_XorNumb)
  target_link_options(unit_tests PRIVATE "LINKER:--wrap=${name}R8VariableRKS_S2_")
endforeach()
target_link_options(unit_tests PRIVATE LINKER:--wrap=_Z12GetConnectorv LINKER:--wrap=HMALLOC
  LINKER:--wrap=_ZN8VariableixEi LINKER:--wrap=_ZN8Variable5ClearEv
  LINKER:--wrap=_ZN7TalqAss10BreakJointEv)
# tests/unit/support/processor_limit.cpp makes the processor one that can do less.
foreach(name _Z8HasSsse3v _Z7HasAvx2v _Z9HasAvx512v)
  target_link_options(unit_tests PRIVATE LINKER:--wrap=${name})
endforeach()
include(cmake/traced-host-calls.cmake)
trace_host_calls(unit_tests)
include(cmake/watched-allocations.cmake)
watch_allocations(unit_tests)

# order_tests: what must not depend on the order in which a compiler evaluates arguments. The unit tests hold it too; the
# preset native-gcc builds it with a compiler of the other order.
add_executable(order_tests EXCLUDE_FROM_ALL)
target_sources(order_tests PRIVATE tests/unit/module/argument_order_test.cpp)
foreach(name fake_bitmap fixture host_trace leftovers_listener row_arguments)
  target_sources(order_tests PRIVATE "tests/unit/support/${name}.cpp")
endforeach()
target_link_libraries(order_tests PRIVATE project_options ${tested_parts} GTest::gmock GTest::gtest_main)
precompile_standard_headers(order_tests <gmock/gmock.h>)
trace_host_calls(order_tests)
watch_allocations(order_tests)

if(CMAKE_CXX_FLAGS MATCHES "-fsanitize=address")
  include(cmake/fuzz-targets.cmake)
endif()
