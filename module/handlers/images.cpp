#include "binding/native.h"
#include "module/handlers/handlers.h"
#include "module/handlers/points.h"
#include "render/arithmetic.h"
#include "render/topengl.h"

namespace {

// What a bitmap's script methods tell of it.
struct BitmapData {
  int width;
  int height;
  unsigned char* pixels;
};

// Asks the MBmp, which is the last argument. The result register serves as scratch.
BitmapData ReadBitmap(VarRegister& result, VarRegister* args, int argc, Processor* processor) {
  Variable* bitmap = args[argc - 2];
  char getWidth[] = "GetWidth";
  char getHeight[] = "GetHeight";
  char getBits[] = "GetDIBits";
  BitmapData data{};
  processor->RunMethod(result, getWidth, nullptr, 0, bitmap);
  data.width = result;
  processor->RunMethod(result, getHeight, nullptr, 0, bitmap);
  data.height = result;
  processor->RunMethod(result, getBits, nullptr, 0, bitmap);
  data.pixels = result;
  return data;
}

// The part of the frame that a script asks for.
struct FramePart {
  float x;
  float y;
  int width;
  int height;
};

FramePart ReadFramePart(VarRegister* args) { return {args[0], args[1], args[2], args[3]}; }

std::span<unsigned char> BytesOf(const String* string) {
  if (!string || !string->bytes || string->length < 0) return {};
  return {string->bytes, static_cast<std::size_t>(string->length)};
}

}  // namespace

void DrawBitmap(VarRegister& result, VarRegister* args, int argc, Processor* processor) {
  const TOpenGL* self = Self<TOpenGL>(args, argc);
  if (!self) return;
  const BitmapData bitmap = ReadBitmap(result, args, argc, processor);
  if (!bitmap.pixels) return;
  const auto draw = [&](const OGLPoint& corner, float scale) {
    self->DrawBitmap(corner, bitmap.width, bitmap.height, bitmap.pixels, scale);
  };
  if (argc == 3) {
    draw(ReadPoint(args[0]), 1.0F);
  } else if (argc == 4) {
    draw(ReadPoint(args[0]), args[1]);
  }
  // Required: the forms with a point draw again, from the first four registers read as numbers.
  const OGLPoint corner = ReadPoint(args);
  draw(corner, argc == 5 ? 1.0F : static_cast<float>(args[3]));
}

void PutBitmap(VarRegister& result, VarRegister* args, int argc, Processor* processor) {
  const TOpenGL* self = Self<TOpenGL>(args, argc);
  if (!self) return;
  const BitmapData bitmap = ReadBitmap(result, args, argc, processor);
  if (!bitmap.pixels) return;
  self->PutBitmap(argc == 3 ? ReadPoint(args[0]) : ReadPoint(args), bitmap.width, bitmap.height, bitmap.pixels);
}

void Put2bBitmap(VarRegister& /*result*/, VarRegister* args, int argc, Processor* /*processor*/) {
  const TOpenGL* self = Self<TOpenGL>(args, argc);
  if (!self) return;
  const bool isPoint = argc == 5;
  const OGLPoint position = isPoint ? ReadPoint(args[0]) : ReadPoint(args);
  VarRegister* rest = args + (isPoint ? 1 : 3);
  const int width = rest[0];
  const int height = rest[1];
  self->Put2bBitmap(position, width, height, BytesOf(rest[2].GetVar().GetString()));
}

void GetDIBits(VarRegister& result, VarRegister* args, int argc, Processor* /*processor*/) {
  const TOpenGL* self = Self<TOpenGL>(args, argc);
  if (!self) return;
  const FramePart part = ReadFramePart(args);
  if (!self->CanDraw()) return;
  Variable& bytes = result;
  bytes.Init(TVAR_BYTES, WrappingProduct(WrappingProduct(part.width, part.height), 3));
  unsigned char* pixels = bytes;
  if (pixels) self->GetDIBits(part.x, part.y, part.width, part.height, pixels);
}

void GetDIBitsMixture(VarRegister& result, VarRegister* args, int argc, Processor* /*processor*/) {
  const TOpenGL* self = Self<TOpenGL>(args, argc);
  if (!self) return;
  const FramePart part = ReadFramePart(args);
  const std::span<unsigned char> pixels = BytesOf(args[4].GetVar().GetString());
  const float factor = args[5];
  if (pixels.data()) {
    const bool isMixed = self->GetDIBitsMixture(part.x, part.y, part.width, part.height, pixels, factor);
    result.SetBool(isMixed ? 1 : 0);
  } else {
    // Required: the error names the renderer.
    TalqError(kNoNativeObject, ClassText<TOpenGL>());
  }
}
