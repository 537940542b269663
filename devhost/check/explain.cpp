#include "devhost/check/explain.h"

#include <windows.h>

#include <GL/gl.h>

#include "devhost/runtime/text.h"

namespace devhost::check {
namespace {

using gl_trace::Call;
using gl_trace::Function;

// "the width (0)"; 0 has no sign.
std::string Named(const char* what, double value) {
  return std::string("the ") + what + " (" + ShortestText(value == 0 ? 0 : value) + ")";
}

std::string MustBeAboveZero(const char* what, double value) { return Named(what, value) + " has to be above 0"; }

std::string WhyNoFrustum(const Call& call) {
  const double left = call[0];
  const double right = call[1];
  const double bottom = call[2];
  const double top = call[3];
  const double zNear = call[4];
  const double zFar = call[5];
  if (zNear <= 0) return MustBeAboveZero("near plane", zNear);
  if (zFar <= 0) return MustBeAboveZero("far plane", zFar);
  if (zNear == zFar) return Named("near plane", zNear) + " and the far one are equal";
  if (bottom == top) return Named("bottom", bottom) + " and the top are equal: the field of view is 0";
  if (left == right) {
    return Named("left edge", left) +
           " and the right one are equal: the aspect is 0; whole numbers divide to whole numbers, so write 48 / 64.0";
  }
  return {};
}

std::string WhyNoSize(const char* what, double width, double height) {
  return std::string(what) + " of " + ShortestText(width) + " x " + ShortestText(height) +
         " pixels has a negative size";
}

std::string WhyInvalidValue(const Call& call) {
  switch (call.function) {
    case Function::glFrustum:
      return WhyNoFrustum(call);
    case Function::glViewport:
      return WhyNoSize("a viewport", call[2], call[3]) +
             ": its right edge comes before its left one, or its bottom "
             "before its top";
    case Function::glLineWidth:
      return MustBeAboveZero("width", call[0]);
    case Function::glPointSize:
      return MustBeAboveZero("size", call[0]);
    case Function::glLightf:
      return Named("angle", call[2]) + " has to be 0 to 90, or 180";
    case Function::glFogf:
      return Named("density", call[1]) + " must not be negative";
    case Function::glMaterialf:
      return Named("shininess", call[2]) + " has to be 0 to 128";
    case Function::glNewList:
      return "a list's number is above 0";
    case Function::glGenLists:
    case Function::glDeleteLists:
    case Function::glCallLists:
      return "the number of lists is negative";
    case Function::glReadPixels:
      return WhyNoSize("a rectangle", call[2], call[3]);
    case Function::glDrawPixels:
    case Function::glBitmap:
      return WhyNoSize("a bitmap", call[0], call[1]);
    default:
      return {};
  }
}

std::string WhyInvalidOperation(const Call& call) {
  switch (call.function) {
    case Function::glNewList:
      return "a list is being recorded already";
    case Function::glEndList:
      return "no list is being recorded";
    case Function::glLoadName:
      return "the name stack is empty";
    default:
      return {};
  }
}

}  // namespace

std::string ErrorText(unsigned error) {
  switch (error) {
    case GL_INVALID_ENUM:
      return "GL_INVALID_ENUM";
    case GL_INVALID_VALUE:
      return "GL_INVALID_VALUE";
    case GL_INVALID_OPERATION:
      return "GL_INVALID_OPERATION";
    case GL_STACK_OVERFLOW:
      return "GL_STACK_OVERFLOW";
    case GL_STACK_UNDERFLOW:
      return "GL_STACK_UNDERFLOW";
    case GL_OUT_OF_MEMORY:
      return "GL_OUT_OF_MEMORY";
    default:
      return "the error " + Decimal(error);
  }
}

std::string WhyRefused(const Call& call, unsigned error) {
  switch (error) {
    case GL_INVALID_VALUE:
      return WhyInvalidValue(call);
    case GL_INVALID_OPERATION:
      return WhyInvalidOperation(call);
    case GL_STACK_OVERFLOW:
      return "more is pushed than fits; each push needs its pop";
    case GL_STACK_UNDERFLOW:
      return "nothing is left that was pushed";
    default:
      return {};
  }
}

std::string WhyOddProjection(const Call& frustum) {
  if (frustum[5] < frustum[4]) {
    return "the far plane (" + ShortestText(frustum[5]) + ") is nearer than the near one (" + ShortestText(frustum[4]) +
           ")";
  }
  if (frustum[1] < frustum[0] && frustum[3] < frustum[2]) {
    return "left and right, bottom and top are exchanged: the picture stands on its head";
  }
  return {};
}

}  // namespace devhost::check
