# tests/unit/support/allocation.cpp watches the allocations of a program's sources, and lets one fail.
function(watch_allocations target)
  foreach(name calloc free _ZdlPv _ZdlPvm _ZdaPv _ZdaPvm)
    target_link_options(${target} PRIVATE LINKER:--wrap=${name})
  endforeach()
endfunction()
