# unit_tests: the module and the development host, linked with a recorder in place of OpenGL, GLU, WGL and GDI.
# The recorder's folder also holds the small windows.h that only this build sees.
find_package(GTest REQUIRED)
collect_sources(test_sources tests/recorder tests/unit)

add_executable(unit_tests ${module_sources} ${host_sources} ${test_sources})
target_compile_definitions(unit_tests PRIVATE TALQ_HOST_BUILD)
target_include_directories(unit_tests SYSTEM PRIVATE tests/recorder/include "${STB_INCLUDE_DIR}")
target_link_libraries(unit_tests PRIVATE project_options GTest::gtest GTest::gtest_main)
# tests/unit/function_trace.cpp stands between the module and the host's compiler of script functions.
target_link_options(unit_tests PRIVATE
  "LINKER:--wrap=_ZN7devhost15CompileFunctionESt17basic_string_viewIcSt11char_traitsIcEE")
# tests/unit/allocation.cpp lets an allocation fail.
target_link_options(unit_tests PRIVATE LINKER:--wrap=calloc)
