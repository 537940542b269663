# unit_tests: the module and the development host, linked with a recorder in place of OpenGL, GLU, WGL and GDI.
# The recorder's folder also holds the small windows.h that only this build sees.
find_package(GTest REQUIRED)
collect_sources(test_sources tests/recorder tests/unit tests/order)

add_executable(unit_tests ${module_sources} ${host_sources} ${test_sources})
target_compile_definitions(unit_tests PRIVATE TALQ_HOST_BUILD)
target_include_directories(unit_tests SYSTEM PRIVATE tests/recorder/include "${STB_INCLUDE_DIR}")
target_link_libraries(unit_tests PRIVATE project_options GTest::gtest GTest::gtest_main)
# tests/unit/function_trace.cpp stands between the module and the host's compiler of script functions.
target_link_options(unit_tests PRIVATE
  "LINKER:--wrap=_ZN7devhost15CompileFunctionESt17basic_string_viewIcSt11char_traitsIcEE")
# tests/unit/host_calls.cpp counts the module's calls of these host functions and lets them fail.
foreach(name _Z9__AddNumb _Z9__SubNumb _Z9__MulNumb _Z9__DivNumb _Z10__RestNumb _Z7_OrNumb _Z8_AndNumb _Z8_XorNumb)
  target_link_options(unit_tests PRIVATE "LINKER:--wrap=${name}R8VariableRKS_S2_")
endforeach()
target_link_options(unit_tests PRIVATE LINKER:--wrap=_Z12GetConnectorv LINKER:--wrap=HMALLOC
  LINKER:--wrap=_ZN8VariableixEi LINKER:--wrap=_ZN8Variable5ClearEv
  LINKER:--wrap=_ZN7TalqAss10BreakJointEv)
# tests/unit/processor_limit.cpp makes the processor one that can do less.
foreach(name _Z8HasSsse3v _Z7HasAvx2v _Z9HasAvx512v)
  target_link_options(unit_tests PRIVATE LINKER:--wrap=${name})
endforeach()
include(cmake/traced-host-calls.cmake)
trace_host_calls(unit_tests)
include(cmake/watched-allocations.cmake)
watch_allocations(unit_tests)
