# TalqOpenGL.dll, and the development host: Talq.dll with the program talq.exe.
# Target names and the files of the build differ by more than case, which Windows does not look at.
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}")

if(TALQ_MINGW_RUNTIME)
  add_library(crt_support STATIC cmake/crt-support.cpp cmake/crt-string.cpp cmake/crt-wide-string.cpp)
  target_link_libraries(project_options INTERFACE crt_support)
endif()

# The module is linked with the host's names alone, so that it builds without any host.
if(TALQ_IMPORT_LIBRARY)
  set(host_library "${TALQ_IMPORT_LIBRARY}")
else()
  set(host_library "${CMAKE_BINARY_DIR}/host-names/Talq.lib")
  set(host_names "${PROJECT_SOURCE_DIR}/host/talq.def")
  file(MAKE_DIRECTORY "${CMAKE_BINARY_DIR}/host-names")
  if(TALQ_MSVC_ABI_CROSS)
    set(make_library x86_64-w64-mingw32-dlltool -m i386:x86-64 -d "${host_names}" -l "${host_library}")
  else()
    set(make_library "${CMAKE_AR}" /nologo /machine:x64 "/def:${host_names}" "/out:${host_library}")
  endif()
  add_custom_command(OUTPUT "${host_library}" COMMAND ${make_library} DEPENDS "${host_names}" VERBATIM)
endif()
add_custom_target(host_names DEPENDS "${host_library}")

# add_module(TARGET): the DLL as a target.
function(add_module target)
  add_library(${target} SHARED ${module_sources} module/talqopengl.def)
  set_target_properties(${target} PROPERTIES OUTPUT_NAME TalqOpenGL LINK_DEPENDS "${host_library}")
  target_link_libraries(${target} PRIVATE project_options "${host_library}" opengl32 glu32 gdi32)
  add_dependencies(${target} host_names)
  # A host that asks a native object for its type (dynamic_cast, typeid) reads the word before its virtual table.
  target_compile_options(${target} PRIVATE ${rtti_option})
  if(TALQ_MINGW_RUNTIME)
    # The C runtime's own printf serves the module's few texts; MinGW's would make the DLL a fifth larger.
    target_compile_definitions(${target} PRIVATE __USE_MINGW_ANSI_STDIO=0)
  endif()
  precompile_standard_headers(${target})
endfunction()
add_module(talq_module)

# The development host exports what modules import, and the program's main function.
file(READ host/talq.def host_exports)
file(GENERATE OUTPUT talq-host.def CONTENT "${host_exports}  TalqMain\n")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS host/talq.def)
add_library(talq_host SHARED ${host_sources} "${CMAKE_CURRENT_BINARY_DIR}/talq-host.def")
set_target_properties(talq_host PROPERTIES OUTPUT_NAME Talq)
target_compile_definitions(talq_host PRIVATE TALQ_HOST_BUILD)
target_include_directories(talq_host SYSTEM PRIVATE "${STB_INCLUDE_DIR}")
target_link_libraries(talq_host PRIVATE project_options opengl32 gdi32 user32 shell32)
precompile_standard_headers(talq_host)

add_executable(talq_program ${program_sources})
# A linker may write an import library for a program too; Talq.lib is that of Talq.dll.
set_target_properties(talq_program PROPERTIES
  OUTPUT_NAME talq ARCHIVE_OUTPUT_NAME talq_program PDB_NAME talq_program)
target_link_libraries(talq_program PRIVATE project_options talq_host)
# The linkers' own choices differ. As much as a program on Linux has.
math(EXPR stack_bytes "8 * 1024 * 1024")
target_link_options(talq_program PRIVATE $<IF:$<BOOL:${TALQ_MSVC_ABI_CROSS}>,--stack=,/STACK:>${stack_bytes})

# What the tests run beside talq: how much memory the driver itself keeps of contexts that are gone.
add_executable(driver_growth tests/contexts/driver_growth.cpp)
target_link_libraries(driver_growth PRIVATE project_options opengl32 gdi32)

# What the language makes of a script's text, with which the editors' colours are compared.
add_executable(print_tokens tests/editors/print_tokens.cpp devhost/script/lexer.cpp)
target_link_libraries(print_tokens PRIVATE project_options)

# Programs of the tests that use the renderer itself, for what no script reaches.
foreach(name volume_picture raster_position native_type)
  add_library(${name}_part OBJECT tests/renderer/${name}.cpp tests/renderer/memory_frame.cpp)
  target_link_libraries(${name}_part PRIVATE project_options)
endforeach()
target_sources(volume_picture_part PRIVATE tests/renderer/head.cpp tests/renderer/molecule.cpp)

# add_renderer_program(TARGET PROGRAM MODULE): one of them as a target, with the code of that module.
function(add_renderer_program target program module)
  add_executable(${target} $<TARGET_OBJECTS:${program}_part> $<TARGET_OBJECTS:${module}>)
  set_target_properties(${target} PROPERTIES OUTPUT_NAME ${program})
  target_link_libraries(${target} PRIVATE project_options talq_host opengl32 glu32 gdi32)
endfunction()
add_renderer_program(volume_picture volume_picture talq_module)
add_renderer_program(raster_position raster_position talq_module)
add_renderer_program(native_type native_type talq_module)
target_compile_options(native_type_part PRIVATE ${rtti_option})

if(TALQ_MSVC_ABI_CROSS)
  include(cmake/trap-targets.cmake)
endif()
