// OpenGL's calls that answer, and those that pass images.
#include <algorithm>

#include "tests/recorder/recorder.h"

using gl_trace::Enum;
using recorder::Get;
using recorder::Record;
using recorder::Recorder;
using recorder::Selection;

namespace {

// Bytes from a row's start to the next one's at the alignment.
std::size_t Stride(std::size_t row, std::size_t alignment) { return (row + alignment - 1) / alignment * alignment; }

void AttachImage(recorder::Call& call, const GLvoid* image, std::size_t size) {
  const auto* bytes = static_cast<const unsigned char*>(image);
  call.bytes.assign(bytes, bytes + size);
}

std::size_t RgbSize(GLsizei width, GLsizei height) {
  return width < 0 || height < 0 ? 0
                                 : std::size_t{3} * static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
}

// A driver may write hits whenever the names change.
void WriteHits() {
  const Selection* selection = Get().CurrentSelection();
  if (selection && selection->isOn) selection->buffer.back() = 0;
}

}  // namespace

const GLubyte* glGetString(GLenum name) {
  Record("glGetString", Enum{name});
  const auto& strings = Get().answers.strings;
  const auto found = strings.find(name);
  return found == strings.end() || !Get().HasContext() ? nullptr
                                                       : reinterpret_cast<const GLubyte*>(found->second.c_str());
}

GLboolean glIsEnabled(GLenum capability) {
  Record("glIsEnabled", Enum{capability});
  return Get().HasContext() && Get().answers.enabled.contains(capability) ? GL_TRUE : GL_FALSE;
}

void glGetIntegerv(GLenum name, GLint* values) {
  Record("glGetIntegerv", Enum{name});
  const auto& viewport = Get().answers.viewport;
  if (name == GL_VIEWPORT && viewport && Get().HasContext()) std::copy(viewport->begin(), viewport->end(), values);
}

void glGetDoublev(GLenum name, GLdouble* values) {
  Record("glGetDoublev", Enum{name});
  auto& matrices = Get().answers.modelViews;
  if (name != GL_MODELVIEW_MATRIX || matrices.empty() || !Get().HasContext()) return;
  std::copy(matrices.front().begin(), matrices.front().end(), values);
  matrices.pop_front();
}

GLuint glGenLists(GLsizei count) {
  Record("glGenLists", count);
  return Get().HasContext() ? Get().answers.firstList : 0;
}

// ---- Selection

void glSelectBuffer(GLsizei size, GLuint* buffer) {
  Record("glSelectBuffer", size);
  Selection* selection = Get().CurrentSelection();
  // Not while it selects.
  if (selection && !selection->isOn) selection->buffer = {buffer, static_cast<std::size_t>(size)};
}

GLint glRenderMode(GLenum mode) {
  Record("glRenderMode", Enum{mode});
  Recorder& recorder = Get();
  Selection* selection = recorder.CurrentSelection();
  if (!selection) return 0;
  const bool wasOn = selection->isOn;
  selection->isOn = mode == GL_SELECT;
  if (!wasOn) return 0;
  std::copy(recorder.answers.hitRecords.begin(), recorder.answers.hitRecords.end(), selection->buffer.begin());
  return recorder.answers.hits;
}

void glGetPointerv(GLenum name, GLvoid** value) {
  Record("glGetPointerv", Enum{name});
  const Selection* selection = Get().CurrentSelection();
  if (name == GL_SELECTION_BUFFER_POINTER && selection) *value = selection->buffer.data();
}

void glInitNames() {
  Record("glInitNames");
  WriteHits();
}
void glPushName(GLuint name) {
  Record("glPushName", name);
  WriteHits();
}
void glPopName() {
  Record("glPopName");
  WriteHits();
}
void glLoadName(GLuint name) {
  Record("glLoadName", name);
  WriteHits();
}

// ---- Images

// Rows start at multiples of 4 bytes, as OpenGL's default pack alignment has it; the bytes between stay as they are.
void glReadPixels(GLint x, GLint y, GLsizei width, GLsizei height, GLenum format, GLenum type, GLvoid* pixels) {
  Record("glReadPixels", x, y, width, height, Enum{format}, Enum{type});
  if (width <= 0 || height <= 0 || !Get().HasContext()) return;
  const std::size_t row = std::size_t{3} * static_cast<std::size_t>(width);
  std::vector<unsigned char> frame = Get().answers.frame;
  frame.resize(row * static_cast<std::size_t>(height));
  auto* to = static_cast<unsigned char*>(pixels);
  for (auto from = frame.begin(); from != frame.end(); from += static_cast<std::ptrdiff_t>(row), to += Stride(row, 4)) {
    std::copy_n(from, row, to);
  }
}

void glDrawPixels(GLsizei width, GLsizei height, GLenum format, GLenum type, const GLvoid* pixels) {
  AttachImage(Record("glDrawPixels", width, height, Enum{format}, Enum{type}), pixels, RgbSize(width, height));
}

// One bit a pixel, rows of whole 4 bytes; of the last row a driver reads only what the pixels need.
void glBitmap(GLsizei width, GLsizei height, GLfloat xOrigin, GLfloat yOrigin, GLfloat xMove, GLfloat yMove,
              const GLubyte* bits) {
  const std::size_t row = (static_cast<std::size_t>(std::max(width, 0)) + 7) / 8;
  const std::size_t size = height > 0 ? Stride(row, 4) * (static_cast<std::size_t>(height) - 1) + row : 0;
  AttachImage(Record("glBitmap", width, height, xOrigin, yOrigin, xMove, yMove), bits, size);
}

void glTexImage2D(GLenum target, GLint level, GLint internalFormat, GLsizei width, GLsizei height, GLint border,
                  GLenum format, GLenum type, const GLvoid* pixels) {
  AttachImage(Record("glTexImage2D", Enum{target}, level, Enum{static_cast<GLenum>(internalFormat)}, width, height,
                     border, Enum{format}, Enum{type}),
              pixels, RgbSize(width, height));
}

void glTexSubImage2D(GLenum target, GLint level, GLint x, GLint y, GLsizei width, GLsizei height, GLenum format,
                     GLenum type, const GLvoid* pixels) {
  AttachImage(Record("glTexSubImage2D", Enum{target}, level, x, y, width, height, Enum{format}, Enum{type}), pixels,
              RgbSize(width, height));
}
