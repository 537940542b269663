// Pictures that were read back.
#pragma once

namespace devhost::check {

// Whether all pixels, of three bytes, are the same; each row begins `rowBytes` behind the one before.
bool IsOneColor(const unsigned char* pixels, int width, int height, int rowBytes);

// As OpenGL lays rows: at multiples of 4 bytes.
constexpr int PaddedRowBytes(int width) { return (width * 3 + 3) / 4 * 4; }

}  // namespace devhost::check
