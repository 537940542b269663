# The benchmark, built by ./bench alone: the module, the development host and the rows in one program, so that a handler
# and its floor reach the host and OpenGL in the same way.
file(GLOB benchmark_sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/benchmark/*.cpp")
list(FILTER benchmark_sources EXCLUDE REGEX "/empty_dll\\.cpp$")
if(WIN32)
  list(FILTER benchmark_sources EXCLUDE REGEX "_linux\\.cpp$")
  list(APPEND benchmark_sources tests/renderer/memory_frame.cpp)
else()
  list(FILTER benchmark_sources EXCLUDE REGEX "_windows\\.cpp$")
endif()

add_executable(benchmark EXCLUDE_FROM_ALL
  ${benchmark_sources} tests/unit/values.cpp ${module_sources} ${host_sources})
target_compile_definitions(benchmark PRIVATE TALQ_HOST_BUILD)
target_include_directories(benchmark SYSTEM PRIVATE "${STB_INCLUDE_DIR}")
target_link_libraries(benchmark PRIVATE project_options)
if(WIN32)
  target_link_libraries(benchmark PRIVATE opengl32 glu32 gdi32 user32)
  add_library(benchmark_empty SHARED EXCLUDE_FROM_ALL benchmark/empty_dll.cpp benchmark/empty.def)
  target_link_libraries(benchmark_empty PRIVATE project_options)
  add_dependencies(benchmark benchmark_empty talq_module talq_host)
else()
  target_include_directories(benchmark SYSTEM PRIVATE tests/recorder/include)
endif()
