# The benchmark, built by ./bench, and by ./test to see that it builds: the module, the development host and the rows in
# one program. The rows are compiled as the module is, so that a handler and its floor reach the host and OpenGL in the
# same way.
file(GLOB benchmark_sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/benchmark/*.cpp")
list(FILTER benchmark_sources EXCLUDE REGEX "/empty_dll\\.cpp$")
if(WIN32)
  list(FILTER benchmark_sources EXCLUDE REGEX "_linux\\.cpp$")
  list(APPEND benchmark_sources tests/renderer/memory_frame.cpp
    $<TARGET_OBJECTS:talq_module> $<TARGET_OBJECTS:talq_host>)
else()
  list(FILTER benchmark_sources EXCLUDE REGEX "_windows\\.cpp$")
endif()

add_executable(benchmark EXCLUDE_FROM_ALL ${benchmark_sources} tests/unit/support/values.cpp)
target_link_libraries(benchmark PRIVATE project_options)
precompile_standard_headers(benchmark)
if(WIN32)
  target_link_libraries(benchmark PRIVATE opengl32 glu32 gdi32 user32 shell32)
  add_library(benchmark_empty SHARED EXCLUDE_FROM_ALL benchmark/empty_dll.cpp benchmark/empty.def)
  target_link_libraries(benchmark_empty PRIVATE project_options)
  add_dependencies(benchmark benchmark_empty talq_module talq_host)
else()
  target_link_libraries(benchmark PRIVATE module_part host_part)
endif()

if(TALQ_MSVC_ABI_CROSS)
  # The module's objects import the host's names; here they find them in the program. Microsoft's linker does this by
  # itself, GNU ld takes the pointers from a source.
  file(STRINGS host/talq.def names REGEX "^  ")
  set(pointers "// Made from host/talq.def.\n__asm__(\".section .rdata,\\\"dr\\\"\");\n")
  foreach(name IN LISTS names)
    string(STRIP "${name}" name)
    string(APPEND pointers "__asm__(R\"(.globl \"__imp_${name}\"\n\"__imp_${name}\": .quad \"${name}\")\");\n")
  endforeach()
  file(GENERATE OUTPUT benchmark_imports.cpp CONTENT "${pointers}")
  target_sources(benchmark PRIVATE "${CMAKE_BINARY_DIR}/benchmark_imports.cpp")
endif()
