# reference_sources: docs/reference.md and docs/host-reference.md as C++ sources, for talq's help and messages. Arrays of
# bytes, because Microsoft's compiler bounds the length of string literals. Made when CMake configures, which a changed
# document causes to happen again.
function(embed_reference document getter name)
  set(source "${CMAKE_BINARY_DIR}/${name}")
  set(reference_sources ${reference_sources} "${source}" PARENT_SCOPE)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${document}")
  file(READ "${PROJECT_SOURCE_DIR}/${document}" bytes HEX)
  string(REPEAT ".." 20 row)
  string(REGEX REPLACE "(${row})" "\\1\n" bytes "${bytes}")
  string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${bytes}")
  file(CONFIGURE OUTPUT "${source}" @ONLY CONTENT [[
// Made from @document@.
#include "devhost/runtime/reference.h"

namespace devhost {
namespace {

constexpr unsigned char kBytes[] = {
@bytes@
};

}  // namespace

std::string_view @getter@() { return {reinterpret_cast<const char*>(kBytes), sizeof kBytes}; }

}  // namespace devhost
]])
endfunction()

embed_reference(docs/reference.md ReferenceText reference_text.cpp)
embed_reference(docs/host-reference.md HostReferenceText host_reference_text.cpp)
