# precompile_standard_headers(TARGET [HEADER...]): a target's sources read the headers of the standard library that many
# of them include, and these, from one precompiled header. Each source still includes what it uses: the builds with
# Microsoft's command lines and the preset native-coverage precompile nothing.
set(standard_headers
  <algorithm> <array> <cmath> <cstddef> <cstdint> <cstdio> <cstdlib> <cstring> <functional> <limits> <map> <memory>
  <new> <optional> <span> <string> <string_view> <utility> <vector>)

function(precompile_standard_headers target)
  if(NOT MSVC)
    target_precompile_headers(${target} PRIVATE ${standard_headers} ${ARGN})
  endif()
endfunction()
