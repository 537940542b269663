// Why OpenGL refuses a call.
#pragma once

#include <string>

#include "devhost/gl_trace/watch.h"

namespace devhost::check {

// "GL_INVALID_VALUE"; a number for what is none of OpenGL 1.1's errors.
std::string ErrorText(unsigned error);

// "the width (0) has to be above 0": what the arguments tell of the error; "" when they tell nothing.
std::string WhyRefused(const gl_trace::Call& call, unsigned error);

// What is wrong with a projection that OpenGL takes; "" when nothing is.
std::string WhyOddProjection(const gl_trace::Call& frustum);

}  // namespace devhost::check
