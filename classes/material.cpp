#include "classes/material.h"

#include <new>

#include "classes/gl.h"

struct MaterialLayout {
  static_assert(sizeof(OGLMaterial) == 96);
  static_assert(sizeof(OGLMaterial::components) == 64 && offsetof(OGLMaterial, components) == 24);
  static_assert(offsetof(OGLMaterial, frontShininess) == 88 && offsetof(OGLMaterial, backShininess) == 92);
};

namespace {

constexpr float kAmbientShare = 0.4F;
constexpr float kDiffuseShare = 0.9F;

constexpr unsigned kParameters[] = {GL_AMBIENT, GL_DIFFUSE, GL_SPECULAR, GL_EMISSION};

unsigned Face(Flag front) { return front ? GL_FRONT : GL_BACK; }

}  // namespace

OGLMaterial::OGLMaterial(float red, float green, float blue, float alpha) {
  Create({{kAmbientShare * red, kAmbientShare * green, kAmbientShare * blue, alpha},
          {kDiffuseShare * red, kDiffuseShare * green, kDiffuseShare * blue, alpha},
          {1.0F, 1.0F, 1.0F, alpha},
          {0.0F, 0.0F, 0.0F, alpha}});
}

OGLMaterial::OGLMaterial(const OGLColor& ambient, const OGLColor& diffuse, const OGLColor& specular,
                         const OGLColor& emission) {
  Create({{ambient.red, ambient.green, ambient.blue, ambient.alpha},
          {diffuse.red, diffuse.green, diffuse.blue, diffuse.alpha},
          {specular.red, specular.green, specular.blue, specular.alpha},
          {emission.red, emission.green, emission.blue, emission.alpha}});
}

OGLMaterial::OGLMaterial(const OGLMaterial& other) : TalqAss() { CopyComponents(other); }

OGLMaterial& OGLMaterial::operator=(const OGLMaterial& other) {
  if (this == &other) return *this;
  DeleteComponents();
  CopyComponents(other);
  return *this;
}

OGLMaterial::~OGLMaterial() { DeleteComponents(); }

void OGLMaterial::DeleteComponents() {
  for (auto& component : components) component.reset();
}

void OGLMaterial::Create(const float (&colors)[kKinds][4]) {
  for (const Flag front : {kOn, kOff}) {
    for (int kind = 0; kind < kKinds; ++kind) {
      const float* color = colors[kind];
      components[Index(static_cast<Kind>(kind), front)].reset(
          new (std::nothrow) OGLMaterialColor(kParameters[kind], color[0], color[1], color[2], color[3], Face(front)));
    }
  }
}

void OGLMaterial::CopyComponents(const OGLMaterial& other) {
  for (int i = 0; i < kComponents; ++i) {
    if (other.components[i]) components[i].reset(new (std::nothrow) OGLMaterialColor(*other.components[i]));
  }
  frontShininess = other.frontShininess;
  backShininess = other.backShininess;
}

void OGLMaterial::SetComponent(Kind kind, float red, float green, float blue, float alpha, Flag front) {
  const auto& component = components[Index(kind, front)];
  if (component) component->Set(kParameters[kind], red, green, blue, alpha, Face(front));
}

OGLColor OGLMaterial::GetComponent(Kind kind, Flag front) const {
  if (!components[Index(kind, kOn)] || !components[Index(kind, kOff)]) return {};
  return *components[Index(kind, front)];
}

void OGLMaterial::SetColor(float red, float green, float blue, float alpha, Flag front) {
  SetDiffuse(kDiffuseShare * red, kDiffuseShare * green, kDiffuseShare * blue, alpha, front);
  SetAmbient(kAmbientShare * red, kAmbientShare * green, kAmbientShare * blue, alpha, front);
  SetSpecular(1.0F * red, 1.0F * green, 1.0F * blue, alpha, front);
  SetEmission(0.0F * red, 0.0F * green, 0.0F * blue, alpha, front);
}

void OGLMaterial::SetDiffuse(float red, float green, float blue, float alpha, Flag front) {
  SetComponent(kDiffuse, red, green, blue, alpha, front);
}
void OGLMaterial::SetSpecular(float red, float green, float blue, float alpha, Flag front) {
  SetComponent(kSpecular, red, green, blue, alpha, front);
}
void OGLMaterial::SetAmbient(float red, float green, float blue, float alpha, Flag front) {
  SetComponent(kAmbient, red, green, blue, alpha, front);
}
void OGLMaterial::SetEmission(float red, float green, float blue, float alpha, Flag front) {
  SetComponent(kEmission, red, green, blue, alpha, front);
}
void OGLMaterial::SetShininess(float value, Flag front) { (front ? frontShininess : backShininess) = value; }

OGLColor OGLMaterial::GetDiffuse(Flag front) const { return GetComponent(kDiffuse, front); }
OGLColor OGLMaterial::GetSpecular(Flag front) const { return GetComponent(kSpecular, front); }
OGLColor OGLMaterial::GetAmbient(Flag front) const { return GetComponent(kAmbient, front); }
OGLColor OGLMaterial::GetEmission(Flag front) const { return GetComponent(kEmission, front); }
float OGLMaterial::GetShininess(Flag front) const { return front ? frontShininess : backShininess; }

void OGLMaterial::Apply() const {
  for (const auto& component : components) {
    if (component) component->Apply();
  }
  glMaterialf(GL_FRONT, GL_SHININESS, frontShininess);
  glMaterialf(GL_BACK, GL_SHININESS, backShininess);
}
