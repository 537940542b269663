// MBmp: a bitmap of three bytes a pixel, blue, green, red; rows tightly packed, row 0 lowest.
#include <algorithm>
#include <cstddef>
#include <memory>

#include "devhost/classes/tables.h"
#include "devhost/data/files.h"
#include "devhost/data/png.h"
#include "devhost/runtime/text.h"

namespace devhost {
namespace {

constexpr int kMaxBytes = 1 << 30;

class Bitmap : public TalqAss {
 public:
  int width = 0;
  int height = 0;
  Variable bits;  // a String, which GetDIBits hands out

  unsigned char* Pixel(int x, int y) {
    return bits.GetString()->bytes + (static_cast<std::ptrdiff_t>(y) * width + x) * 3;
  }
};

// The number of bytes that a picture of this size takes; 0 with an error raised when it is no sensible size.
int ByteCount(int width, int height) {
  const long long bytes = 3LL * width * height;
  if (width > 0 && height > 0 && width <= kMaxPictureSide && height <= kMaxPictureSide && bytes <= kMaxBytes) {
    return static_cast<int>(bytes);
  }
  Raise(kErrorConversion, "A bitmap of " + Decimal(width) + " x " + Decimal(height) + " pixels cannot be made.");
  return 0;
}

void SetBits(Bitmap& bitmap, int width, int height, std::string_view pixels) {
  AssignText(bitmap.bits, pixels);
  bitmap.width = width;
  bitmap.height = height;
}

bool LoadFile(Bitmap& bitmap, const std::string& path) {
  std::string content;
  if (!ReadFile(path, content)) return false;
  Picture picture;
  std::string fault;
  if (!DecodePng(content, picture, fault)) {
    Raise(kErrorFile, path + " cannot be loaded: " + fault + ".");
    return false;
  }
  if (ByteCount(picture.width, picture.height) == 0) return false;
  SetBits(bitmap, picture.width, picture.height,
          {reinterpret_cast<const char*>(picture.pixels.data()), picture.pixels.size()});
  return true;
}

void MakeBlack(VarRegister&, VarRegister* args, int argc, Processor* processor) {
  const int bytes = ByteCount(args[0], args[1]);
  if (bytes == 0) return;
  auto bitmap = std::make_unique<Bitmap>();
  SetBits(*bitmap, args[0], args[1], {});
  bitmap->bits.Init(TVAR_BYTES, bytes);
  JoinNative(args, argc, processor, std::move(bitmap));
}

void MakeFromBytes(VarRegister&, VarRegister* args, int argc, Processor* processor) {
  const int bytes = ByteCount(args[0], args[1]);
  const std::string_view pixels = TextIn(args[2].GetVar());
  if (bytes == 0) return;
  if (pixels.size() != static_cast<std::size_t>(bytes)) {
    Raise(kErrorConversion, "The bitmap needs " + Decimal(bytes) + " bytes of pixels, not " +
                                Decimal(static_cast<long long>(pixels.size())) + ".");
    return;
  }
  auto bitmap = std::make_unique<Bitmap>();
  SetBits(*bitmap, args[0], args[1], pixels);
  JoinNative(args, argc, processor, std::move(bitmap));
}

void MakeFromFile(VarRegister&, VarRegister* args, int argc, Processor* processor) {
  auto bitmap = std::make_unique<Bitmap>();
  if (LoadFile(*bitmap, std::string(TextIn(args[0].GetVar())))) JoinNative(args, argc, processor, std::move(bitmap));
}

void MakeCopy(VarRegister&, VarRegister* args, int argc, Processor* processor) {
  auto* source = NativeSelf<Bitmap>(args, 1, "MBmp");
  if (!source) return;
  auto bitmap = std::make_unique<Bitmap>();
  SetBits(*bitmap, source->width, source->height, TextIn(source->bits));
  JoinNative(args, argc, processor, std::move(bitmap));
}

Bitmap* This(VarRegister* args, int argc) { return NativeSelf<Bitmap>(args, argc, "MBmp"); }

void GetWidth(VarRegister& result, VarRegister* args, int argc, Processor*) {
  if (Bitmap* bitmap = This(args, argc)) result = bitmap->width;
}

void GetHeight(VarRegister& result, VarRegister* args, int argc, Processor*) {
  if (Bitmap* bitmap = This(args, argc)) result = bitmap->height;
}

// The bitmap's own memory: what is written into the String changes the bitmap.
void GetDIBits(VarRegister& result, VarRegister* args, int argc, Processor*) {
  if (Bitmap* bitmap = This(args, argc)) Assign(result, bitmap->bits);
}

void Load(VarRegister&, VarRegister* args, int argc, Processor*) {
  if (Bitmap* bitmap = This(args, argc)) LoadFile(*bitmap, std::string(TextIn(args[0].GetVar())));
}

bool IsPngName(std::string_view path) {
  std::string ending(path.substr(path.size() - std::min<std::size_t>(path.size(), 4)));
  for (char& c : ending) c |= ' ';  // small letters; the point stays
  return ending == ".png";
}

void Save(VarRegister&, VarRegister* args, int argc, Processor*) {
  Bitmap* bitmap = This(args, argc);
  if (!bitmap) return;
  const std::string path(TextIn(args[0].GetVar()));
  if (!IsPngName(path)) {
    Raise(kErrorFile, path + " cannot be written: a picture is saved as PNG, under a name that ends with .png.");
    return;
  }
  const std::string file = EncodePng(bitmap->width, bitmap->height, bitmap->Pixel(0, 0));
  if (file.empty()) {
    Raise(kErrorFile, path + " cannot be written: the picture cannot be encoded.");
  } else {
    WriteFile(path, file);
  }
}

// The pixel of the two leading arguments, or null with an error raised.
unsigned char* PixelOf(VarRegister* args, int argc) {
  Bitmap* bitmap = This(args, argc);
  if (!bitmap) return nullptr;
  const int x = args[0];
  const int y = args[1];
  if (x >= 0 && y >= 0 && x < bitmap->width && y < bitmap->height) return bitmap->Pixel(x, y);
  Raise(kErrorConversion, "The pixel (" + Decimal(x) + ", " + Decimal(y) + ") lies outside the bitmap of " +
                              Decimal(bitmap->width) + " x " + Decimal(bitmap->height) + ".");
  return nullptr;
}

// Colours are packed as in ColorRef: 0x00BBGGRR.
void GetPixel(VarRegister& result, VarRegister* args, int argc, Processor*) {
  if (const unsigned char* pixel = PixelOf(args, argc)) result = pixel[0] << 16 | pixel[1] << 8 | pixel[2];
}

void SetPixel(VarRegister&, VarRegister* args, int argc, Processor*) {
  unsigned char* pixel = PixelOf(args, argc);
  if (!pixel) return;
  const int color = args[2];
  pixel[0] = static_cast<unsigned char>(color >> 16);
  pixel[1] = static_cast<unsigned char>(color >> 8);
  pixel[2] = static_cast<unsigned char>(color);
}

}  // namespace

const MethodEntry kBitmapMethods[] = {
    {MakeBlack, "MBmp::MBmp(int, int)"},
    {MakeFromBytes, "MBmp::MBmp(int, int, refer object String)"},
    {MakeFromFile, "MBmp::MBmp(refer object String)"},
    {MakeCopy, "MBmp::MBmp(copy)"},
    {DestroyNative<Bitmap>, "MBmp::~MBmp(void)"},
    {GetWidth, "MBmp::GetWidth(void)"},
    {GetHeight, "MBmp::GetHeight(void)"},
    {GetDIBits, "MBmp::GetDIBits(void)"},
    {Load, "MBmp::Load(refer object String)"},
    {Save, "MBmp::Save(refer object String)"},
    {GetPixel, "MBmp::GetPixel(int, int)"},
    {SetPixel, "MBmp::SetPixel(int, int, int)"},
    {nullptr, nullptr},
};

}  // namespace devhost
