#include "devhost/gl_trace/kinds.h"

namespace gl_trace {

int ValueCount(GLenum name) {
  switch (name) {
    case GL_MODELVIEW_MATRIX:
    case GL_PROJECTION_MATRIX:
      return 16;
    case GL_AMBIENT:
    case GL_DIFFUSE:
    case GL_SPECULAR:
    case GL_EMISSION:
    case GL_AMBIENT_AND_DIFFUSE:
    case GL_POSITION:
    case GL_FOG_COLOR:
    case GL_VIEWPORT:
      return 4;
    case GL_SPOT_DIRECTION:
      return 3;
    default:
      return 1;
  }
}

}  // namespace gl_trace
