#include "devhost/data/obj_reader.h"

#include <cfloat>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <cstring>

#include "devhost/runtime/text.h"

namespace devhost {
namespace {

constexpr std::size_t kMaxNumbers = INT_MAX / 4;  // numbers and corners are counted by int

bool ParseFloat(std::string_view word, float& value) {
  char text[64];
  if (word.empty() || word.size() >= sizeof text) return false;
  if (word.find_first_not_of("+-.0123456789eE") != std::string_view::npos) return false;
  std::memcpy(text, word.data(), word.size());
  text[word.size()] = '\0';
  char* end = nullptr;
  const double number = std::strtod(text, &end);
  if (*end != '\0' || !(std::fabs(number) <= FLT_MAX)) return false;
  value = static_cast<float>(number);
  return true;
}

// Reads an index from the front of the text; OBJ counts from 1, or from -1 backwards.
bool TakeIndex(std::string_view& text, std::size_t count, int& index) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc()) return false;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  const long long position = number < 0 ? static_cast<long long>(count) + number : number - 1LL;
  if (number == 0 || position < 0 || position >= static_cast<long long>(count)) return false;
  index = static_cast<int>(position);
  return true;
}

class Parser {
 public:
  Parser(ObjMesh& target, std::string& faultText) : mesh(target), fault(faultText) {}

  bool ParseLine(std::string_view line) {
    line = line.substr(0, line.find('#'));
    const std::string_view keyword = TakeWord(line);
    if (keyword.empty()) return true;
    if (keyword == "v") return ParseVertex(line);
    if (keyword == "vn") return ParseTriple(line, mesh.normals);
    if (keyword == "f") return ParseFace(line);
    if (keyword == "vt") {
      ++textureCount;
      return true;
    }
    for (const std::string_view skipped : {"o", "g", "s", "usemtl", "mtllib"}) {
      if (keyword == skipped) return true;
    }
    return Fail("\"" + std::string(keyword.substr(0, 40)) + "\" is not known");
  }

 private:
  bool Fail(std::string text) {
    fault = std::move(text);
    return false;
  }

  bool ParseTriple(std::string_view& line, std::vector<float>& numbers) {
    if (numbers.size() >= kMaxNumbers) return Fail("the mesh is too large");
    for (int i = 0; i < 3; ++i) {
      float value = 0;
      if (!ParseFloat(TakeWord(line), value)) return Fail("three numbers are needed");
      numbers.push_back(value);
    }
    return true;
  }

  // A weight or a colour may follow the coordinates.
  bool ParseVertex(std::string_view line) {
    if (!ParseTriple(line, mesh.vertices)) return false;
    for (std::string_view word = TakeWord(line); !word.empty(); word = TakeWord(line)) {
      float ignored = 0;
      if (!ParseFloat(word, ignored)) return Fail("\"" + std::string(word.substr(0, 40)) + "\" is not a number");
    }
    return true;
  }

  // A corner is v, v/vt, v//vn or v/vt/vn.
  bool ParseCorner(std::string_view word, ObjMesh::Corner& corner) {
    corner = {0, -1};
    if (!TakeIndex(word, mesh.vertices.size() / 3, corner.vertex)) return false;
    if (word.empty()) return true;
    if (word.front() != '/') return false;
    word.remove_prefix(1);
    int texture = 0;
    if (!word.starts_with('/') && !TakeIndex(word, textureCount, texture)) return false;
    if (word.empty()) return true;
    if (word.front() != '/') return false;
    word.remove_prefix(1);
    return TakeIndex(word, mesh.normals.size() / 3, corner.normal) && word.empty();
  }

  bool ParseFace(std::string_view line) {
    ObjMesh::Corner first{};
    ObjMesh::Corner previous{};
    int count = 0;
    for (std::string_view word = TakeWord(line); !word.empty(); word = TakeWord(line), ++count) {
      ObjMesh::Corner corner{};
      if (!ParseCorner(word, corner)) {
        return Fail("\"" + std::string(word.substr(0, 40)) + "\" is not a corner of this mesh");
      }
      if (count == 0) first = corner;
      if (count >= 2) {
        if (mesh.corners.size() >= kMaxNumbers) return Fail("the mesh is too large");
        mesh.corners.insert(mesh.corners.end(), {first, previous, corner});
      }
      previous = corner;
    }
    return count >= 3 || Fail("a face needs three corners");
  }

  ObjMesh& mesh;
  std::string& fault;
  std::size_t textureCount = 0;
};

}  // namespace

bool ParseObj(std::string_view text, ObjMesh& mesh, std::string& fault) {
  mesh = {};
  Parser parser(mesh, fault);
  for (int number = 1; !text.empty(); ++number) {
    const std::size_t end = text.find('\n');
    if (!parser.ParseLine(text.substr(0, end))) {
      fault.insert(0, "line " + Decimal(number) + ": ");
      return false;
    }
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  return true;
}

}  // namespace devhost
