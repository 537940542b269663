#include "tests/unit/support/fake_bitmap.h"

#include "devhost/runtime/runtime.h"
#include "tests/unit/support/values.h"

namespace {

void Note(const char* method, int argc) {
  // The object itself is the last register.
  Bitmap().requests.push_back(method + (argc == 1 ? std::string() : " with " + std::to_string(argc - 1)));
}

void Make(VarRegister&, VarRegister*, int, Processor*) {}

void GetWidth(VarRegister& result, VarRegister*, int argc, Processor*) {
  Note("GetWidth", argc);
  result = Bitmap().width;
}

void GetHeight(VarRegister& result, VarRegister*, int argc, Processor*) {
  Note("GetHeight", argc);
  result = Bitmap().height;
}

void GetDIBits(VarRegister& result, VarRegister*, int argc, Processor*) {
  Note("GetDIBits", argc);
  devhost::Assign(result, Bitmap().pixels);
}

constexpr MethodEntry kRows[] = {
    {Make, "FakeBitmap::FakeBitmap(void)"},
    {GetWidth, "FakeBitmap::GetWidth(void)"},
    {GetHeight, "FakeBitmap::GetHeight(void)"},
    {GetDIBits, "FakeBitmap::GetDIBits(void)"},
    {nullptr, nullptr},
};

}  // namespace

FakeBitmap& Bitmap() {
  static FakeBitmap bitmap;
  return bitmap;
}

Variable NewFakeBitmap(int width, int height, const Variable& pixels) {
  static const bool kIsRegistered = devhost::RegisterMethods(kRows);
  if (!kIsRegistered) return Variable();
  Bitmap().width = width;
  Bitmap().height = height;
  devhost::Assign(Bitmap().pixels, pixels);
  Bitmap().requests.clear();
  return NewObject("FakeBitmap");
}
