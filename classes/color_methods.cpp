#include "classes/color_methods.h"

#include <new>

namespace {

// The bytes of a packed 0x00BBGGRR colour; what lies above blue is ignored.
struct PackedColor {
  int red;
  int green;
  int blue;
};

PackedColor ReadColorRef(ScriptCall& call) {
  const unsigned long value = call.Next()(HostText("clrf"));
  return {static_cast<int>(value & 0xFF), static_cast<int>((value & 0xFFFF) >> 8),
          static_cast<int>((value >> 16) & 0xFF)};
}

}  // namespace

void Return(const ScriptCall& call, const OGLColor& color) {
  VarRegister components[4];
  components[0] = color.red;
  components[1] = color.green;
  components[2] = color.blue;
  components[3] = color.alpha;
  call.Interpreter()->MakeInstance(call.Result(), HostText(ScriptClass<OGLColor>::kName), components, 4);
}

void script::ConstructColorFromColorRef(ScriptCall& call) {
  Variable* object = call.Object();
  const PackedColor packed = ReadColorRef(call);
  Join(new (std::nothrow) OGLColor(static_cast<float>(packed.red) / 255.0F, static_cast<float>(packed.green) / 255.0F,
                                   static_cast<float>(packed.blue) / 255.0F, 1.0F),
       object, call.Interpreter());
}

void script::SetColorFromColorRef(OGLColor& self, ScriptCall& call) {
  const PackedColor packed = ReadColorRef(call);
  // Required: divided in double precision here, in single precision by the constructor.
  self.SetColor(static_cast<float>(packed.red / 255.0), static_cast<float>(packed.green / 255.0),
                static_cast<float>(packed.blue / 255.0), 1.0F);
}

void script::MultiplyColor(const OGLColor& self, ScriptCall& call) {
  const float factor = call.NextNumber();
  auto* product = new (std::nothrow) OGLColor(self * factor);
  Variable& instance = call.Result();
  call.Interpreter()->MakeInstance(instance, HostText(ScriptClass<OGLColor>::kName), nullptr, 0);
  // The new instance comes with a default colour of its own, which gives way to the product.
  Release(JoinedTo<OGLColor>(call.Result()));
  Join(product, &instance, call.Interpreter());
}

void script::ScaleColor(OGLColor& self, ScriptCall& call) { self *= call.NextNumber(); }
