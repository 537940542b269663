#include "tests/unit/support/row_arguments.h"

#include <string_view>

#include "tests/unit/support/fixture.h"

namespace {

constexpr int kPoints = 12;  // fits triangles, quads and strips
constexpr int kControls = 4;

Variable Grid(int rows, int columns) {
  return Vector(std::vector<Variable>(static_cast<std::size_t>(rows),
                                      Numbers(std::vector<float>(static_cast<std::size_t>(columns)))));
}

// The Vectors that a method takes, in order.
std::vector<Variable> VectorsOf(const devhost::Signature& signature) {
  const Variable batch = Numbers(Counting(kPoints));
  const Variable controls = Numbers(std::vector<float>(kControls));
  const Variable knots = Numbers(std::vector<float>(kControls + 4));
  const Variable lists = Vector({batch, batch});
  const Variable materials = Vector({NewObject("OglMaterial")});
  if (signature.method == "TrianglesEx") return {lists, lists, Integers({0, 5}), materials};
  if (signature.method == "TrianglesExFB") return {Vector({Point3(1, 2, 3)}), Integers({0}), materials};
  if (signature.method == "CallLists") return {Integers({1, 2})};
  if (signature.method == "SplineCurve2D") return {controls, controls, knots};
  if (signature.method == "SplineCurve3D") return {controls, controls, controls, knots};
  if (signature.method != "SplineSurface") return {batch, batch, batch};
  if (signature.parameters.size() == 5) return {controls, controls, Grid(kControls, kControls), knots, knots};
  const Variable normals = Numbers(Counting(kControls * kControls));
  return {controls, controls, Grid(kControls, kControls), normals, knots, knots};
}

Variable ObjectArgument(std::string_view className) {
  if (className == "POINT3") return Point3(1, 2, 3);
  if (className == "String") return ByteString(std::vector<unsigned char>(2));
  if (className == "ColorRef") return ColorRef(0x102030);
  if (className == "MBmp") return NewObject("MBmp", {Variable(2), Variable(2)});
  if (className == "Matrix") return NewObject("Matrix", {Variable(4), Variable(4)});
  return NewObject(className);
}

}  // namespace

std::vector<Variable> ArgumentsOf(const devhost::Signature& signature) {
  const std::vector<Variable> vectors = VectorsOf(signature);
  auto vector = vectors.begin();
  std::vector<Variable> args;
  for (const devhost::Parameter& parameter : signature.parameters) {
    const bool object = !parameter.className.empty() || parameter.kind == devhost::ParameterKind::Copy;
    if (!object) {
      args.push_back(Value(5));
    } else if (parameter.className == "Vector") {
      args.push_back(*vector++);
    } else {
      args.push_back(ObjectArgument(parameter.className.empty() ? signature.className : parameter.className));
    }
  }
  return args;
}

Variable ObjectFor(const devhost::Signature& signature) {
  if (signature.method == signature.className) return Unjoined(signature.className);
  return signature.className == "TOpenGL" ? OpenRenderer() : NewObject(signature.className);
}

void EndWhatBegan(const devhost::Signature& signature, Variable& object) {
  if (signature.method == "BeginSelection") Call(object, "EndSelection");
  if (signature.method == "NewList") Call(object, "EndList");
  // Without a run, OpenGL complains of the required end.
  if (signature.method == "TrianglesExFB") recorder::Get().balance.faults.clear();
  TakeLog();
}
