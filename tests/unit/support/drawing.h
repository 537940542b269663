// How batches read in the log.
#pragma once

#include <string>
#include <vector>

#include "tests/unit/support/fixture.h"

// One call with the three numbers of a triple; the same as a vertex, a normal, a colour, and for all vertices.
inline std::string Triple(const char* function, const Floats& values, int index) {
  const float* triple = values.data() + static_cast<std::ptrdiff_t>(3) * index;
  return Line(function, triple[0], triple[1], triple[2]) + "\n";
}
inline std::string Vertex(const Floats& points, int i) { return Triple("glVertex3f", points, i); }
inline std::string Normal(const Floats& normals, int i) { return Triple("glNormal3f", normals, i); }
inline std::string Color(const Floats& colors, int i) { return Triple("glColor3f", colors, i); }

inline std::string Vertices(const Floats& points) {
  std::string lines;
  for (int i = 0; i < static_cast<int>(points.size()) / 3; ++i) lines += Vertex(points, i);
  return lines;
}

// What stands between glBegin and glEnd, with both.
inline std::string Primitive(const char* mode, const std::string& body) {
  return "glBegin(" + std::string(mode) + ")\n" + body + "glEnd()\n";
}
inline constexpr char kFilled[] = "glPolygonMode(GL_FRONT_AND_BACK, GL_FILL)\n";
inline constexpr char kOutlined[] = "glPolygonMode(GL_FRONT_AND_BACK, GL_LINE)\n";
// A batch that the wired switch turns to outlines.
inline std::string Batch(const char* mode, const std::string& body, const char* polygonMode = kFilled) {
  return polygonMode + Primitive(mode, body);
}

// How many vertices the log has.
inline int CountVertices(const std::string& log) {
  int count = 0;
  for (std::size_t at = log.find("glVertex"); at != std::string::npos; at = log.find("glVertex", at + 1)) ++count;
  return count;
}

// What a call sends to OpenGL, apart from the log of the test.
template <class Call>
std::string LogOf(Call call) {
  const auto pending = std::move(recorder::Get().calls);
  recorder::Get().calls.clear();
  call();
  std::string log = TakeLog();
  recorder::Get().calls = pending;
  return log;
}

// The handle of the next quadric or NURBS renderer, and lines with it in place of every %.
inline std::string NextHandle() { return gl_trace::Format(recorder::Get().NextHandle<const void*>()); }
inline std::string With(const std::string& handle, std::string lines) {
  for (std::size_t at = lines.find('%'); at != std::string::npos; at = lines.find('%')) lines.replace(at, 1, handle);
  return lines;
}
