# reference_source: docs/reference.md as a C++ source, for talq's help and messages. An array of bytes, because
# Microsoft's compiler bounds the length of string literals. Made when CMake configures, which a changed document
# causes to happen again.
set(reference_document "${PROJECT_SOURCE_DIR}/docs/reference.md")
set(reference_source "${CMAKE_BINARY_DIR}/reference_text.cpp")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${reference_document}")

file(READ "${reference_document}" reference_bytes HEX)
string(REPEAT ".." 20 reference_row)
string(REGEX REPLACE "(${reference_row})" "\\1\n" reference_bytes "${reference_bytes}")
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," reference_bytes "${reference_bytes}")
file(CONFIGURE OUTPUT "${reference_source}" @ONLY CONTENT [[
// Made from docs/reference.md.
#include "devhost/runtime/reference.h"

namespace devhost {
namespace {

constexpr unsigned char kBytes[] = {
@reference_bytes@
};

}  // namespace

std::string_view ReferenceText() { return {reinterpret_cast<const char*>(kBytes), sizeof kBytes}; }

}  // namespace devhost
]])
