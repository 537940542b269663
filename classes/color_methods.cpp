#include "classes/color_methods.h"

#include <new>

#include "binding/method.h"

namespace {

// The bytes of a packed 0x00BBGGRR colour; what lies above blue is ignored.
struct PackedColor {
  int red;
  int green;
  int blue;
};

PackedColor ReadColorRef(VarRegister& colorRef) {
  char field[] = "clrf";
  const unsigned long value = colorRef(field);
  return {static_cast<int>(value & 0xFF), static_cast<int>((value & 0xFFFF) >> 8),
          static_cast<int>((value >> 16) & 0xFF)};
}

}  // namespace

void WriteResult(VarRegister& result, const OGLColor& color, Processor* processor) {
  VarRegister components[4];
  components[0] = color.red;
  components[1] = color.green;
  components[2] = color.blue;
  components[3] = color.alpha;
  processor->MakeInstance(result, ClassText<OGLColor>(), components, 4);
}

void ConstructColorFromColorRef(VarRegister& /*result*/, VarRegister* args, int argc, Processor* processor) {
  Variable* object = args[argc - 1];
  const PackedColor packed = ReadColorRef(args[0]);
  JoinNew(new (std::nothrow)
              OGLColor(static_cast<float>(packed.red) / 255.0F, static_cast<float>(packed.green) / 255.0F,
                       static_cast<float>(packed.blue) / 255.0F, 1.0F),
          object, processor);
}

void SetColorFromColorRef(VarRegister& /*result*/, VarRegister* args, int argc, Processor* /*processor*/) {
  OGLColor* self = Self<OGLColor>(args, argc);
  if (!self) return;
  const PackedColor packed = ReadColorRef(args[0]);
  // Required: divided in double precision here, in single precision by the constructor.
  self->SetColor(static_cast<float>(packed.red / 255.0), static_cast<float>(packed.green / 255.0),
                 static_cast<float>(packed.blue / 255.0), 1.0F);
}

void MultiplyColor(VarRegister& result, VarRegister* args, int argc, Processor* processor) {
  OGLColor* self = Self<OGLColor>(args, argc);
  if (!self) return;
  const float factor = args[0];
  auto* product = new (std::nothrow) OGLColor(*self * factor);
  // The new instance comes with a default colour of its own, which gives way to the product.
  Variable& instance = result;
  processor->MakeInstance(instance, ClassText<OGLColor>(), nullptr, 0);
  Release(JoinedTo<OGLColor>(instance));
  JoinNew(product, &instance, processor);
}

void ScaleColor(VarRegister& /*result*/, VarRegister* args, int argc, Processor* /*processor*/) {
  OGLColor* self = Self<OGLColor>(args, argc);
  if (self) *self *= args[0];
}
