// What the arguments and results of OpenGL calls mean, and so how the trace shows them. Each kind makes its text from
// the value and, where the length of an array depends on them, all arguments of the call.
#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>
#include <tuple>

#include "devhost/gl_trace/format.h"

namespace gl_trace {

// The text that Format gives to a value with this mark.
template <class Mark>
struct Marked {
  template <class T>
  static std::string Text(T value, const auto&) {
    return Format(Mark{static_cast<decltype(Mark::value)>(value)});
  }
};

using Constant = Marked<Enum>;
using Shape = Marked<Primitive>;
using Buffers = Marked<ClearMask>;

struct Number {
  static std::string Text(auto value, const auto&) { return Format(value); }
};

struct Handle {
  static std::string Text(const void* handle, const auto&) { return Format(handle); }
};

struct GlTruth {
  static std::string Text(GLboolean value, const auto&) { return value != 0 ? "GL_TRUE" : "GL_FALSE"; }
};

struct Success {
  static std::string Text(BOOL value, const auto&) { return value != 0 ? "TRUE" : "FALSE"; }
};

struct Quoted {
  static std::string Text(const GLubyte* text, const auto&) {
    return text ? '"' + Format(reinterpret_cast<const char*>(text)) + '"' : "null";
  }
};

// Images, buffers and functions: neither what they hold nor where they lie tells anything.
struct Memory {
  template <class T>
  static std::string Text(T* memory, const auto&) {
    return memory ? "..." : "null";
  }
};

struct Descriptor {
  static std::string Text(const PIXELFORMATDESCRIPTOR* descriptor, const auto&) {
    return Format(PixelFormatFlags{descriptor->dwFlags});
  }
};

template <class T>
std::string ArrayText(const T* values, int count) {
  return values ? Format(std::span<const T>(values, static_cast<std::size_t>(std::max(count, 0)))) : "null";
}

template <int count>
struct Array {
  static std::string Text(const auto* values, const auto&) { return ArrayText(values, count); }
};

// As many values as the argument at this place says.
template <std::size_t place>
struct Counted {
  static std::string Text(const auto* values, const auto& arguments) {
    return ArrayText(values, std::get<place>(arguments));
  }
};

// How many values the parameter or state of this name has.
int ValueCount(GLenum name);

// As many values as the parameter has whose name is the argument at this place.
template <std::size_t place>
struct ValuesOf {
  static std::string Text(const auto* values, const auto& arguments) {
    return ArrayText(values, ValueCount(std::get<place>(arguments)));
  }
};

// The same, written by the call.
template <std::size_t place>
struct AnswerTo : ValuesOf<place> {};

template <class Kind>
inline constexpr bool kIsAnswer = false;
template <std::size_t place>
inline constexpr bool kIsAnswer<AnswerTo<place>> = true;

// Of glCallLists: their count and type stand before them.
struct ListNames {
  static std::string Text(const void* lists, const std::tuple<GLsizei, GLenum, const void*>& arguments) {
    const auto [count, type, unused] = arguments;
    return type == GL_INT ? ArrayText(static_cast<const GLint*>(lists), count) : "...";
  }
};

// From the first number of the first control point to the last number of the last: GLU's points have three, strides
// count numbers, and there are as many points as knots less the order.
struct CurveControl {
  template <class... Arguments>
  static std::string Text(const GLfloat* control, const std::tuple<Arguments...>& arguments) {
    const int points = std::get<1>(arguments) - std::get<5>(arguments);
    return ArrayText(control, (points - 1) * std::get<3>(arguments) + 3);
  }
};
struct SurfaceControl {
  template <class... Arguments>
  static std::string Text(const GLfloat* control, const std::tuple<Arguments...>& arguments) {
    const int sPoints = std::get<1>(arguments) - std::get<8>(arguments);
    const int tPoints = std::get<3>(arguments) - std::get<9>(arguments);
    return ArrayText(control, (sPoints - 1) * std::get<5>(arguments) + (tPoints - 1) * std::get<6>(arguments) + 3);
  }
};

}  // namespace gl_trace
