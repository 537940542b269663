# precompile_standard_headers(TARGET [HEADER...]): a target's sources read the headers of the standard library that many
# of them include, and these, from one precompiled header. Each source still includes what it uses: with Microsoft's
# command lines nothing is precompiled but, to spare time on Linux, for the development host, and the preset
# native-coverage precompiles nothing at all.
set(standard_headers
  <algorithm> <array> <cmath> <cstddef> <cstdint> <cstdio> <cstdlib> <cstring> <functional> <limits> <map> <memory>
  <new> <optional> <span> <string> <string_view> <utility> <vector>)

function(precompile_standard_headers target)
  if(NOT MSVC OR (CMAKE_HOST_UNIX AND target STREQUAL "talq_host"))
    target_precompile_headers(${target} PRIVATE ${standard_headers} ${ARGN})
  endif()
endfunction()
