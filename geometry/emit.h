// One vertex attribute from three floats, between glBegin and glEnd.
#pragma once

#include "classes/gl.h"

inline void EmitVertex(const float* v) { glVertex3f(v[0], v[1], v[2]); }
inline void EmitNormal(const float* v) { glNormal3f(v[0], v[1], v[2]); }
inline void EmitColor(const float* v) { glColor3f(v[0], v[1], v[2]); }
