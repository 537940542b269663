// Stands in for OpenGL, GLU, WGL and GDI: every call is noted with its arguments and answered as the test has set it.
#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <initializer_list>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "devhost/gl_trace/format.h"

namespace recorder {

// A call as it came.
struct Call {
  std::string name;
  std::vector<std::string> arguments;  // enumerants by name, arrays as {1, 2, 3}
  std::vector<unsigned char> bytes;    // the image or record that a pointer argument led to

  // "glVertex3f(1, 2, 3)"
  std::string Text() const;
};

// What the driver answers.
struct Answers {
  int pixelFormat = 1;    // the choice; 0: none fits
  std::set<HDC> bitmaps;  // the devices of memory bitmaps, whose pixel format can be set anew; all others are windows
  bool createsContexts = true;
  bool makesCurrent = true;  // a context on a device on which it was not before
  bool deletesContexts = true;
  DWORD lastError = 0;
  // Of GL_VENDOR and so on; without an entry glGetString answers null.
  std::map<GLenum, std::string> strings;
  GLuint firstList = 1;
  std::set<GLenum> enabled;
  // What GL_VIEWPORT and, one a read, GL_MODELVIEW_MATRIX are; without an answer the caller's buffer stays as it was.
  std::optional<std::array<GLint, 4>> viewport;
  std::deque<std::array<GLdouble, 16>> modelViews;
  // The pixels of every glReadPixels, three bytes each, rows without gaps; zeros where it ends.
  std::vector<unsigned char> frame;
  // What selection mode leaves: the hit count and the words of the buffer.
  GLint hits = 0;
  std::vector<GLuint> hitRecords;
  bool createsQuadrics = true;
  bool createsNurbs = true;
  // Reported to the error callback by each NURBS curve or surface.
  std::optional<GLenum> nurbsError;
};

// What has to come out even.
struct Balance {
  bool insideBegin = false;
  bool insideList = false;
  GLenum matrixMode = GL_MODELVIEW;
  std::map<GLenum, int> matrixDepth;
  std::set<const void*> contexts;
  std::set<const void*> quadrics;
  std::set<const void*> nurbsRenderers;
  std::vector<std::string> faults;

  // One line for each fault and for each thing left open.
  std::vector<std::string> Problems() const;
  // One line for each kind of object that was not deleted: "quadrics not deleted: 2". They are then forgotten.
  std::vector<std::string> TakeUndeleted();
};

struct Selection {
  bool isOn = false;
  std::span<GLuint> buffer;
};

// What every rendering context has of its own.
struct Context {
  int pixelFormat = 0;  // of the device for which it was created
  Selection selection;
};

// What was noted, what is answered, and the little state that the stand-ins keep. Contexts and pixel formats follow
// Microsoft's documentation of WGL: a window takes one pixel format, once; a context becomes current on devices of its
// pixel format alone; where that fails, no context is current any more.
struct Recorder {
  std::vector<Call> calls;
  Answers answers;
  Balance balance;
  HDC currentDevice = nullptr;
  HGLRC currentContext = nullptr;
  std::map<HDC, int> pixelFormats;  // of the devices that have one
  std::map<HGLRC, Context> contexts;
  std::set<std::pair<HDC, HGLRC>> onceCurrent;
  _GLUfuncptr nurbsErrorCallback = nullptr;
  int objectsMade = 0;  // contexts, quadrics and NURBS renderers

  // Without a current context, OpenGL answers nothing and changes nothing.
  bool HasContext() const { return currentContext != nullptr; }
  // Null without a context.
  Selection* CurrentSelection() { return HasContext() ? &contexts.at(currentContext).selection : nullptr; }

  // The handle that comes next, and a fresh one; neither is null.
  template <class Handle>
  Handle NextHandle() const {
    return reinterpret_cast<Handle>(std::uintptr_t{0xC001} + static_cast<unsigned>(objectsMade));
  }
  template <class Handle>
  Handle NewHandle() {
    const Handle handle = NextHandle<Handle>();
    ++objectsMade;
    return handle;
  }
};

// The one that all stand-ins share.
Recorder& Get();
// Back to the first state: nothing noted, nothing current, everything succeeds.
void Reset();
// Another part of the program makes a context of its own current, on a device of its pixel format; both are handles,
// 0 and 0 none.
void SetCurrent(std::uintptr_t device, std::uintptr_t context);

// The calls so far, one a line, and forgets them.
std::string TakeLog();
// The same shape for what a test expects.
std::string Lines(std::initializer_list<std::string_view> lines);

// Notes a call with its arguments.
template <class... A>
Call& Record(const char* name, const A&... arguments) {
  return Get().calls.emplace_back(Call{name, {gl_trace::Format(arguments)...}, {}});
}

// A call in the log's own form, for expectations whose numbers are computed.
template <class... A>
std::string Line(const char* name, const A&... arguments) {
  return Call{name, {gl_trace::Format(arguments)...}, {}}.Text();
}

}  // namespace recorder
