// How OpenGL lays rows of pixels out in memory while its pack and unpack alignment is 4.
#pragma once

#include <cstddef>

// The bytes from one row's start to the next one's, for rows of that many bytes.
constexpr std::size_t PaddedRow(std::size_t rowBytes) { return (rowBytes + 3) / 4 * 4; }
