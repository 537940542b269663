#include "fuzz/arguments.h"

#include "devhost/runtime/runtime.h"
#include "tests/unit/support/values.h"

namespace {

// Shapes of Vectors: T triples, S triples for a square of control points, L lists of triples, I indices, M materials,
// F meshes, N numbers, K knots for them, H rows of numbers, R anything.
constexpr char kShapes[] = {'T', 'S', 'L', 'I', 'M', 'F', 'N', 'K', 'H', 'R'};

// The Vectors that the methods other than the plain batches take.
struct MethodShapes {
  std::string_view method;
  std::size_t parameters;
  std::string_view shapes;
};
constexpr MethodShapes kMethodShapes[] = {
    {"TrianglesEx", 4, "LLIM"},   {"TrianglesExFB", 3, "FIM"},   {"SplineCurve2D", 3, "NNK"},
    {"SplineCurve3D", 4, "NNNK"}, {"SplineSurface", 5, "NNHKK"}, {"SplineSurface", 6, "NNHSKK"},
    {"CallLists", 1, "I"},
};

std::string_view ShapesOf(const devhost::Signature& signature) {
  for (const auto& [method, parameters, shapes] : kMethodShapes) {
    if (method == signature.method && parameters == signature.parameters.size()) return shapes;
  }
  return "TTT";
}

}  // namespace

std::vector<Variable> Arguments::For(const devhost::Signature& signature) {
  shapes = ShapesOf(signature);
  vectors = 0;
  count = shapes == "TTT" ? random.Pick({1, 3, 4, 4, 12, 12, 12, 24}) : 1 + random.Below(4);
  countsVertices = signature.method == "Torus";
  std::vector<Variable> values;
  for (const devhost::Parameter& parameter : signature.parameters) {
    const bool another = random.Percent(2) && !countsVertices;
    values.push_back(another ? AnyValue() : Of(parameter));
  }
  if (signature.hasRest) {
    for (int more = random.Below(3); more > 0; --more) values.push_back(AnyValue());
  }
  return values;
}

Variable Arguments::Of(const devhost::Parameter& parameter) {
  switch (parameter.kind) {
    case devhost::ParameterKind::Number:
      return AnyNumber();
    case devhost::ParameterKind::Int:
      return AnyInteger();
    case devhost::ParameterKind::Boolean:
      return Variable(random.Integer());
    default:
      return Object(parameter.className);
  }
}

Variable Arguments::AnyNumber() {
  switch (random.Below(12)) {
    case 0:
      return Variable(random.Integer());
    case 1:
      return Variable(static_cast<double>(random.Number()));
    case 2:
      return Variable(static_cast<unsigned char>(random.Below(256)));
    case 3:
      return Variable(static_cast<long long>(random.Integer()) << random.Below(32));
    default:
      return Variable(random.Number());
  }
}

Variable Arguments::AnyInteger() {
  // A count that is merely huge would draw for hours.
  return Variable(countsVertices ? random.Pick({-2147483647 - 1, -1, 0, 1, 2, 3, 7}) : random.Integer());
}

Variable Arguments::AnyValue() {
  switch (random.Below(9)) {
    case 0:
      return Variable();
    case 1:
      return Text("text");
    case 2:
      return Shaped(random.Pick(kShapes));
    case 3:
      return Point3(random.Number(), random.Number(), random.Number());
    case 4:
      return world.MeshObject();
    case 5:
      return world.AnyObject();
    case 6:
      return Reference();
    default:
      return AnyNumber();
  }
}

Variable Arguments::Reference() {
  devhost::Assign(referred, Shaped('T'));
  Variable reference;
  reference.type = devhost::kReferenceType;
  reference.slot.pointer = &referred;
  return reference;
}

Variable Arguments::Object(std::string_view className) {
  if (className == "Vector") {
    const char shape = vectors < shapes.size() && random.Percent(90) ? shapes[vectors] : random.Pick(kShapes);
    ++vectors;
    return Shaped(shape);
  }
  if (className == "POINT3") return Point3(random.Number(), random.Number(), random.Number());
  if (className == "String") return ByteString(std::vector<unsigned char>(static_cast<std::size_t>(random.Below(200))));
  if (className == "MDC") return NewObject("MDC");
  if (className == "ColorRef") return ColorRef(random.Integer());
  if (className == "MBmp") return NewObject("MBmp", {Variable(1 + random.Below(6)), Variable(1 + random.Below(6))});
  if (className == "Matrix") {
    return NewObject("Matrix", {Variable(random.Percent(80) ? 4 : 1 + random.Below(5)), Variable(4)});
  }
  // An object of the module's own classes, sometimes of the wrong one, or with its native object gone.
  if (random.Percent(3)) return World::NewUnjoined(className);
  return random.Percent(3) ? world.AnyObject() : world.ObjectOf(className);
}

template <class Make>
Variable Arguments::VectorOf(int size, Make make) {
  std::vector<Variable> elements;
  elements.reserve(static_cast<std::size_t>(size));
  for (int i = 0; i < size; ++i) elements.push_back(make());
  return Vector(elements);
}

Variable Arguments::Row() {
  switch (random.Below(8)) {
    case 0:
      return VectorOf(random.Below(5), [&] { return AnyValue(); });
    case 1:
      return world.ObjectOf("OglColor");
    case 2:
    case 3:
      return Point3(random.Number(), 0, 1);
    default:
      return VectorOf(3, [&] { return Variable(random.Number()); });
  }
}

Variable Arguments::Triples(int triples) {
  const int size = random.Percent(90) ? triples : random.Below(20);
  switch (random.Below(8)) {
    case 0:
      return VectorOf(size, [&] { return Row(); });
    case 1:
      return VectorOf(size, [&] { return Variable(random.Integer()); });
    default:
      return VectorOf(3 * size + (random.Percent(5) ? 1 : 0),
                      [&] { return random.Percent(1) ? AnyValue() : Variable(random.Number()); });
  }
}

Variable Arguments::Shaped(char shape) {
  const auto number = [&] { return Variable(random.Number()); };
  switch (shape) {
    case 'T':
      return Triples(count);
    case 'S':
      return Triples(count * count);
    case 'L':
      return VectorOf(random.Percent(90) ? count : random.Below(4), [&] { return Triples(3); });
    case 'I':
      return VectorOf(random.Below(6), [&] { return Variable(random.Integer()); });
    case 'M':
      return VectorOf(random.Below(6), [&] {
        if (random.Percent(10)) return world.MeshObject();
        return random.Percent(70) ? world.ObjectOf("OglMaterial") : world.AnyObject();
      });
    case 'F':
      return VectorOf(count, [&] { return random.Percent(70) ? world.MeshObject() : world.AnyObject(); });
    case 'N':
      return VectorOf(count, number);
    case 'K':
      return VectorOf(count + 4, number);
    case 'H':
      return VectorOf(count, [&] { return VectorOf(count, number); });
    default:
      return VectorOf(random.Below(6), [&] { return random.Percent(90) ? Variable(random.Integer()) : Row(); });
  }
}
