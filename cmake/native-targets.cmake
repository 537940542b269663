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
# What stands between the module and the host, or the processor: notes of calls, for the order tests too, ...
set(host_trace_source "${PROJECT_SOURCE_DIR}/tests/unit/support/host_trace.cpp")
add_part(host_trace_part "${host_trace_source}")
# ... and calls that are counted or let fail.
set(watcher_sources)
foreach(name function_trace host_calls processor_limit value_trace)
  list(APPEND watcher_sources "${PROJECT_SOURCE_DIR}/tests/unit/support/${name}.cpp")
endforeach()
add_part(watcher_part ${watcher_sources})
include(cmake/wrapped-calls.cmake)

collect_sources(test_sources tests/unit)
list(REMOVE_ITEM test_sources ${support_sources} "${host_trace_source}" ${watcher_sources})
add_executable(unit_tests ${test_sources})
# A failing test says where it is; the module's and the host's lines are in their own objects. To optimise the tests
# takes twice as long as all the rest of their compilation, and spares a second when they run.
target_compile_options(unit_tests PRIVATE -g0 -O0)
target_link_libraries(unit_tests PRIVATE project_options ${tested_parts} host_trace_part watcher_part
  GTest::gmock GTest::gtest_main)
precompile_standard_headers(unit_tests <gmock/gmock.h>)
set_source_files_properties(tests/unit/module/context_failures_test.cpp PROPERTIES
  COMPILE_DEFINITIONS TESTING_DOCUMENT="${PROJECT_SOURCE_DIR}/docs/testing.md")
wrap_calls(unit_tests support_part host_trace_part watcher_part)

# order_tests: what must not depend on the order in which a compiler evaluates arguments. The unit tests hold it too; the
# preset native-gcc builds it with a compiler of the other order.
add_executable(order_tests EXCLUDE_FROM_ALL)
target_sources(order_tests PRIVATE tests/unit/module/argument_order_test.cpp)
foreach(name fake_bitmap fixture leftovers_listener row_arguments)
  target_sources(order_tests PRIVATE "tests/unit/support/${name}.cpp")
endforeach()
target_link_libraries(order_tests PRIVATE project_options ${tested_parts} host_trace_part GTest::gmock
  GTest::gtest_main)
precompile_standard_headers(order_tests <gmock/gmock.h>)
wrap_calls(order_tests support_part host_trace_part)

if(CMAKE_CXX_FLAGS MATCHES "-fsanitize=address")
  include(cmake/fuzz-targets.cmake)
endif()
