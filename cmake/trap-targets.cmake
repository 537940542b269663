# trap: a module that stops the program at undefined behaviour, with all that scripts and tests run beside it, in the
# folder trap/. Only the module's sources are compiled again; built by ./test alone.
set(trap_dir "${CMAKE_BINARY_DIR}/trap")

add_module(talq_module_trap)
# The host's values lie at multiples of 4; with this ABI the check of object sizes stops at sound code.
target_compile_options(talq_module_trap PRIVATE
  -fsanitize=undefined -fno-sanitize=vptr,alignment,object-size -fsanitize-trap=undefined)
add_renderer_program(volume_picture_trap volume_picture talq_module_trap)
add_renderer_program(raster_position_trap raster_position talq_module_trap)
add_renderer_program(native_type_trap native_type talq_module_trap)
set(trap_targets talq_module_trap volume_picture_trap raster_position_trap native_type_trap)
set_target_properties(${trap_targets} PROPERTIES
  EXCLUDE_FROM_ALL ON RUNTIME_OUTPUT_DIRECTORY "${trap_dir}" ARCHIVE_OUTPUT_DIRECTORY "${trap_dir}")

add_custom_target(trap
  COMMAND "${CMAKE_COMMAND}" -E copy_if_different
    $<TARGET_FILE:talq_host> $<TARGET_FILE:talq_program> $<TARGET_FILE:driver_growth> "${trap_dir}"
  VERBATIM)
add_dependencies(trap ${trap_targets} talq_host talq_program driver_growth)
