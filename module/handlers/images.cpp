#include <limits>

#include "module/handlers/handlers.h"
#include "module/handlers/points.h"
#include "render/arithmetic.h"

namespace {

// What a bitmap's script methods tell of it.
struct BitmapData {
  int width;
  int height;
  unsigned char* pixels;
};

// Asks the MBmp, which is the last argument and goes before the others.
BitmapData ReadBitmap(const ScriptCall& call) {
  Variable* bitmap = call.LastPointer();
  BitmapData data{};
  data.width = call.Ask(bitmap, "GetWidth");
  data.height = call.Ask(bitmap, "GetHeight");
  data.pixels = call.Ask(bitmap, "GetDIBits");
  return data;
}

// The part of the frame that a script asks for.
struct FramePart {
  float x;
  float y;
  int width;
  int height;
};

FramePart ReadFramePart(ScriptCall& call) {
  FramePart part{};
  part.x = call.NextNumber();
  part.y = call.NextNumber();
  part.width = call.NextInt();
  part.height = call.NextInt();
  return part;
}

std::span<unsigned char> BytesOf(const String* string) {
  if (!string || !string->bytes || string->length < 0) return {};
  return {string->bytes, static_cast<std::size_t>(string->length)};
}

// How many bytes the argument's record vouches for; where it has none of these bytes, nothing says that they end.
std::size_t LengthOf(const unsigned char* bytes, VarRegister& argument) {
  if (!bytes) return 0;
  const String* string = argument.GetVar().GetString();
  if (!string || string->bytes != bytes) return std::numeric_limits<std::size_t>::max();
  return BytesOf(string).size();
}

}  // namespace

void script::DrawBitmap(const TOpenGL& self, ScriptCall& call) {
  ScriptCall again = call;
  const BitmapData bitmap = ReadBitmap(call);
  if (!bitmap.pixels) return;
  const auto draw = [&](const OGLPoint& corner, float scale) {
    self.DrawBitmap(corner, bitmap.width, bitmap.height, bitmap.pixels, scale);
  };
  if (call.Count() < 4) {
    const OGLPoint corner = ReadPoint(call.NextValue());
    draw(corner, call.Count() == 2 ? 1.0F : call.NextNumber());
  }
  // Required: the forms with a point draw again, from the first four registers read as numbers.
  const OGLPoint corner = ReadNumbers(again);
  draw(corner, again.Count() == 4 ? 1.0F : again.NextNumber());
}

void script::PutBitmap(const TOpenGL& self, ScriptCall& call) {
  const BitmapData bitmap = ReadBitmap(call);
  if (!bitmap.pixels) return;
  const OGLPoint position = ReadPoint(call, call.Count() != 2);
  self.PutBitmap(position, bitmap.width, bitmap.height, bitmap.pixels);
}

void script::Put2bBitmap(const TOpenGL& self, ScriptCall& call) {
  const OGLPoint position = ReadPoint(call, call.Count() != 4);
  const int width = call.NextInt();
  const int height = call.NextInt();
  VarRegister& string = call.Next();
  const unsigned char* bits = string;
  self.Put2bBitmap(position, width, height, bits, LengthOf(bits, string));
}

void script::GetDIBits(const TOpenGL& self, ScriptCall& call) {
  const FramePart part = ReadFramePart(call);
  if (!self.CanDraw()) return;
  Variable& bytes = call.Result();
  bytes.Init(TVAR_BYTES, WrappingProduct(WrappingProduct(part.width, part.height), 3));
  unsigned char* pixels = bytes;
  if (pixels) self.GetDIBits(part.x, part.y, part.width, part.height, pixels);
}

void script::GetDIBitsMixture(const TOpenGL& self, ScriptCall& call) {
  const FramePart part = ReadFramePart(call);
  const std::span<unsigned char> pixels = BytesOf(call.Next().GetVar().GetString());
  const float factor = call.NextNumber();
  if (pixels.data()) {
    Return(call, self.GetDIBitsMixture(part.x, part.y, part.width, part.height, pixels, factor));
  } else {
    // Required: the error names the renderer.
    RaiseNoNative<TOpenGL>();
  }
}
