// Batches of triangles from script vectors, against handlers written by hand.
#include <cmath>
#include <cstddef>
#include <memory>

#include "benchmark/handler_call.h"
#include "benchmark/platform.h"
#include "benchmark/rows.h"
#include "classes/gl.h"
#include "classes/material.h"
#include "tests/unit/support/values.h"

namespace {

constexpr int kVertices = 100002;

std::vector<float> Coordinates(int count, float step) {
  std::vector<float> numbers;
  numbers.reserve(static_cast<std::size_t>(3 * count));
  for (int i = 0; i < 3 * count; ++i) numbers.push_back(std::sin(static_cast<float>(i) * step));
  return numbers;
}

Variable Points(const std::vector<float>& numbers) {
  std::vector<Variable> rows;
  for (std::size_t i = 0; i < numbers.size(); i += 3)
    rows.push_back(Point3(numbers[i], numbers[i + 1], numbers[i + 2]));
  return Vector(rows);
}

Variable Nested(const std::vector<float>& numbers) {
  std::vector<Variable> rows;
  for (std::size_t i = 0; i < numbers.size(); i += 3)
    rows.push_back(Numbers({numbers[i], numbers[i + 1], numbers[i + 2]}));
  return Vector(rows);
}

// ---- The handlers by hand

using Floats = std::unique_ptr<float[]>;

Floats ReadByHand(Variable& vector, int& count) {
  const int dimension = vector.GetDim();
  const bool flat = vector[0].IsNumber() != 0;
  count = flat ? dimension / 3 : dimension;
  Floats floats(new float[static_cast<std::size_t>(count) * 3]);
  float* to = floats.get();
  if (flat) {
    for (int i = 0; i < 3 * count; ++i) *to++ = vector[i];
    return floats;
  }
  char x[] = "x";
  char y[] = "y";
  char z[] = "z";
  const unsigned short ids[] = {Token::GetNameID(x), Token::GetNameID(y), Token::GetNameID(z)};
  for (int i = 0; i < count; ++i, to += 3) {
    Variable& row = vector[i];
    if (row.GetType() == TVAR_ARRAY) {
      for (int k = 0; k < 3; ++k) to[k] = row[k];
    } else {
      for (int k = 0; k < 3; ++k) to[k] = row(ids[k]);
    }
  }
  return floats;
}

void FaceNormal(const float* p) {
  const float ax = p[6] - p[3];
  const float ay = p[7] - p[4];
  const float az = p[8] - p[5];
  const float bx = p[0] - p[3];
  const float by = p[1] - p[4];
  const float bz = p[2] - p[5];
  glNormal3f(ay * bz - az * by, az * bx - ax * bz, ax * by - ay * bx);
}

void NormalsByHand(VarRegister& /*result*/, VarRegister* args, int argc, Processor* processor) {
  if (!args[argc - 1].GetAssID()) return;
  int count = 0;
  int normalCount = 0;
  const Floats points = ReadByHand(args[0], count);
  const Floats normals = ReadByHand(args[1], normalCount);
  if (processor->GetErrorStatus()) return;
  glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
  glBegin(GL_TRIANGLES);
  const float* n = normals.get();
  const float* p = points.get();
  for (int i = 0; i < count; ++i, n += 3, p += 3) {
    glNormal3f(n[0], n[1], n[2]);
    glVertex3f(p[0], p[1], p[2]);
  }
  glEnd();
}

void DrawFaces(const float* p, int count) {
  glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
  glBegin(GL_TRIANGLES);
  for (int i = 0; i < count; i += 3, p += 9) {
    FaceNormal(p);
    glVertex3f(p[0], p[1], p[2]);
    glVertex3f(p[3], p[4], p[5]);
    glVertex3f(p[6], p[7], p[8]);
  }
  glEnd();
}

void FacesByHand(VarRegister& /*result*/, VarRegister* args, int argc, Processor* processor) {
  if (!args[argc - 1].GetAssID()) return;
  int count = 0;
  const Floats points = ReadByHand(args[0], count);
  if (!processor->GetErrorStatus()) DrawFaces(points.get(), count);
}

void ColorsByHand(VarRegister& /*result*/, VarRegister* args, int argc, Processor* processor) {
  if (!args[argc - 1].GetAssID()) return;
  int count = 0;
  int faces = 0;
  int colorCount = 0;
  const Floats points = ReadByHand(args[0], count);
  const Floats normals = ReadByHand(args[1], faces);
  const Floats colors = ReadByHand(args[2], colorCount);
  if (processor->GetErrorStatus()) return;
  glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
  glBegin(GL_TRIANGLES);
  for (std::ptrdiff_t i = 0; i < faces; ++i) {
    const float* c = colors.get() + 3 * i;
    const float* n = normals.get() + 3 * i;
    const float* p = points.get() + 9 * i;
    OGLMaterial(c[0], c[1], c[2], 1.0F).Apply();
    glNormal3f(n[0], n[1], n[2]);
    glVertex3f(p[0], p[1], p[2]);
    glVertex3f(p[3], p[4], p[5]);
    glVertex3f(p[6], p[7], p[8]);
  }
  glEnd();
}

// ---- The rows

constexpr const char* kWithNormals = "TOpenGL::Triangles(refer object Vector, refer object Vector)";
constexpr const char* kComputed = "TOpenGL::Triangles(refer object Vector)";
constexpr const char* kColored =
    "TOpenGL::ColorTriangles(refer object Vector, refer object Vector, refer object Vector)";

void Add(std::vector<Row>& rows, const char* work, Scene& scene, const char* signature,
         const std::vector<Variable>& args, ScriptHandler byHand) {
  auto* const call = Keep<HandlerCall>(signature, args, scene.object);
  rows.push_back({work, "handler by hand", 1.05, [call] { call->Run(); }, [call, byHand] { call->Run(byHand); }});
}

}  // namespace

void AddBatches(std::vector<Row>& rows, Scene& scene) {
  // Nothing of the faces is drawn, so that OpenGL's part is the calls.
  glEnable(GL_CULL_FACE);
  if (HasOpenGL()) glCullFace(GL_FRONT_AND_BACK);
  const std::vector<float> points = Coordinates(kVertices, 0.37F);
  const std::vector<float> normals = Coordinates(kVertices, 0.11F);
  const std::vector<float> faceNormals = Coordinates(kVertices / 3, 0.11F);
  Add(rows, "Triangles, normals, flat numbers", scene, kWithNormals, {Numbers(points), Numbers(normals)},
      NormalsByHand);
  Add(rows, "Triangles, normals, POINT3", scene, kWithNormals, {Points(points), Points(normals)}, NormalsByHand);
  Add(rows, "Triangles, normals, nested vectors", scene, kWithNormals, {Nested(points), Nested(normals)},
      NormalsByHand);
  Add(rows, "Triangles, computed normals", scene, kComputed, {Numbers(points)}, FacesByHand);
  auto* const bare = Keep<HandlerCall>(kComputed, std::vector<Variable>{Numbers(points)}, scene.object);
  rows.push_back({"Triangles, computed normals", "GL calls on ready arrays", 1.65, [bare] { bare->Run(); },
                  [points] { DrawFaces(points.data(), kVertices); }});
  Add(rows, "ColorTriangles, lit", scene, kColored, {Numbers(points), Numbers(faceNormals), Numbers(normals)},
      ColorsByHand);
  Row& lit = rows.back();
  for (auto* run : {&lit.runModule, &lit.runFloor}) {
    *run = [inner = *run, &scene] {
      scene.renderer->EnableLight(kOn);
      inner();
      scene.renderer->EnableLight(kOff);
    };
  }
}
