# wrap_calls(TARGET PART...): for every function __wrap_X that the parts define, the linker sends the program's calls of
# X to it, and __real_X to X itself; it names an X that there is not. The names are read from the parts' objects.
if(CMAKE_SCRIPT_MODE_FILE)
  execute_process(COMMAND "${NM}" ${OBJECTS} OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX MATCHALL " T __wrap_[^\n]+" symbols "${symbols}")
  if(NOT symbols)
    message(FATAL_ERROR "none of these defines a function __wrap_X: ${OBJECTS}")
  endif()
  list(TRANSFORM symbols REPLACE " T __wrap_" "-Wl,--wrap=")
  list(JOIN symbols "\n" options)
  file(WRITE "${OPTIONS}" "${options}\n")
  return()
endif()

function(wrap_calls target)
  set(objects)
  foreach(part ${ARGN})
    # The precompiled header counts among them.
    list(APPEND objects "$<FILTER:$<TARGET_OBJECTS:${part}>,INCLUDE,[.]o$>")
  endforeach()
  set(options "${CMAKE_BINARY_DIR}/wrapped_by_${target}.txt")
  set(script "${PROJECT_SOURCE_DIR}/cmake/wrapped-calls.cmake")
  add_custom_command(OUTPUT "${options}" DEPENDS ${objects} "${script}" VERBATIM
    COMMAND "${CMAKE_COMMAND}" "-DNM=${CMAKE_NM}" "-DOBJECTS=${objects}" "-DOPTIONS=${options}" -P "${script}")
  add_custom_target(wrapped_by_${target} DEPENDS "${options}")
  add_dependencies(${target} wrapped_by_${target})
  target_link_options(${target} PRIVATE "@${options}")
  set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS "${options}")
endfunction()
