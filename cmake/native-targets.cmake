# unit_tests: the module and the development host, linked with a recorder in place of OpenGL, GLU, WGL and GDI.
# The recorder's folder also holds the small windows.h that only this build sees.
find_package(GTest REQUIRED)
collect_sources(test_sources tests/recorder tests/unit)

add_executable(unit_tests ${module_sources} ${host_sources} ${test_sources})
target_compile_definitions(unit_tests PRIVATE TALQ_HOST_BUILD)
target_include_directories(unit_tests SYSTEM PRIVATE tests/recorder/include "${STB_INCLUDE_DIR}")
target_link_libraries(unit_tests PRIVATE project_options GTest::gtest GTest::gtest_main)
