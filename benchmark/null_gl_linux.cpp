// OpenGL, GLU, WGL and GDI that do nothing but count, for the native benchmark. No header declares them here: a
// function without parameters answers every call, because the caller clears its arguments away.
extern "C" {

long long calledStubs = 0;

#define STUB(name)  \
  long long name(); \
  long long name() { return ++calledStubs; }

#define PLAIN(function, ...) STUB(function)
#define SPECIAL(result, function, ...) STUB(function)
#include "devhost/gl_trace/functions.def"
// Of the system, and of the benchmark itself.
STUB(GetLastError)
STUB(glCullFace)
}
