#include "devhost/gl_trace/rows.h"

#include "devhost/gl_trace/traced.h"

namespace gl_trace {
namespace {

#define ROW(function, kinds) {#function, Traced<#function, decltype(function), kinds>::Replace}

constexpr Row kTable[] = {
    // Begin and end
    ROW(glBegin, void(Shape)),
    ROW(glEnd, void()),
    ROW(glVertex3d, void(Number, Number, Number)),
    ROW(glVertex3f, void(Number, Number, Number)),
    ROW(glNormal3d, void(Number, Number, Number)),
    ROW(glNormal3f, void(Number, Number, Number)),
    ROW(glColor3f, void(Number, Number, Number)),
    ROW(glColor4f, void(Number, Number, Number, Number)),
    ROW(glTexCoord2f, void(Number, Number)),

    // State
    ROW(glEnable, void(Constant)),
    ROW(glDisable, void(Constant)),
    ROW(glIsEnabled, GlTruth(Constant)),
    ROW(glHint, void(Constant, Constant)),
    ROW(glShadeModel, void(Constant)),
    ROW(glFrontFace, void(Constant)),
    ROW(glDepthFunc, void(Constant)),
    ROW(glPolygonMode, void(Constant, Constant)),
    ROW(glBlendFunc, void(Constant, Constant)),
    ROW(glPointSize, void(Number)),
    ROW(glLineWidth, void(Number)),
    ROW(glViewport, void(Number, Number, Number, Number)),
    ROW(glClearColor, void(Number, Number, Number, Number)),
    ROW(glClear, void(Buffers)),
    ROW(glFlush, void()),
    ROW(glFinish, void()),
    ROW(glGetDoublev, void(Constant, AnswerTo<0>)),
    ROW(glGetIntegerv, void(Constant, AnswerTo<0>)),
    ROW(glGetString, Quoted(Constant)),

    // Light, material, fog
    ROW(glLightf, void(Constant, Constant, Number)),
    ROW(glLightfv, void(Constant, Constant, ValuesOf<1>)),
    ROW(glLightModeli, void(Constant, Number)),
    ROW(glMaterialf, void(Constant, Constant, Number)),
    ROW(glMaterialfv, void(Constant, Constant, ValuesOf<1>)),
    ROW(glColorMaterial, void(Constant, Constant)),
    ROW(glFogf, void(Constant, Number)),
    ROW(glFogfv, void(Constant, ValuesOf<0>)),
    ROW(glFogi, void(Constant, Constant)),

    // Matrices
    ROW(glMatrixMode, void(Constant)),
    ROW(glPushMatrix, void()),
    ROW(glPopMatrix, void()),
    ROW(glLoadIdentity, void()),
    ROW(glMultMatrixd, void(Array<16>)),
    ROW(glTranslatef, void(Number, Number, Number)),
    ROW(glRotatef, void(Number, Number, Number, Number)),
    ROW(glScalef, void(Number, Number, Number)),
    ROW(glFrustum, void(Number, Number, Number, Number, Number, Number)),
    ROW(gluLookAt, void(Number, Number, Number, Number, Number, Number, Number, Number, Number)),
    ROW(gluPickMatrix, void(Number, Number, Number, Number, Array<4>)),

    // Display lists and picking
    ROW(glGenLists, Number(Number)),
    ROW(glNewList, void(Number, Constant)),
    ROW(glEndList, void()),
    ROW(glCallList, void(Number)),
    ROW(glCallLists, void(Number, Constant, ListNames)),
    ROW(glDeleteLists, void(Number, Number)),
    ROW(glSelectBuffer, void(Number, Memory)),
    ROW(glRenderMode, Number(Constant)),
    ROW(glGetPointerv, void(Constant, Memory)),
    ROW(glInitNames, void()),
    ROW(glPushName, void(Number)),
    ROW(glPopName, void()),
    ROW(glLoadName, void(Number)),

    // Images and textures
    ROW(glPixelStorei, void(Constant, Number)),
    ROW(glRasterPos3f, void(Number, Number, Number)),
    ROW(glReadPixels, void(Number, Number, Number, Number, Constant, Constant, Memory)),
    ROW(glDrawPixels, void(Number, Number, Constant, Constant, Memory)),
    ROW(glBitmap, void(Number, Number, Number, Number, Number, Number, Memory)),
    ROW(glTexEnvf, void(Constant, Constant, Constant)),
    ROW(glTexParameteri, void(Constant, Constant, Constant)),
    ROW(glTexImage2D, void(Constant, Number, Constant, Number, Number, Number, Constant, Constant, Memory)),
    ROW(glTexSubImage2D, void(Constant, Number, Number, Number, Number, Number, Constant, Constant, Memory)),

    // Quadrics
    ROW(gluNewQuadric, Handle()),
    ROW(gluDeleteQuadric, void(Handle)),
    ROW(gluQuadricDrawStyle, void(Handle, Constant)),
    ROW(gluQuadricOrientation, void(Handle, Constant)),
    ROW(gluSphere, void(Handle, Number, Number, Number)),
    ROW(gluCylinder, void(Handle, Number, Number, Number, Number, Number)),
    ROW(gluDisk, void(Handle, Number, Number, Number, Number)),
    ROW(gluPartialDisk, void(Handle, Number, Number, Number, Number, Number, Number)),

    // Splines
    ROW(gluNewNurbsRenderer, Handle()),
    ROW(gluDeleteNurbsRenderer, void(Handle)),
    ROW(gluNurbsCallback, void(Handle, Constant, Memory)),
    ROW(gluNurbsProperty, void(Handle, Constant, Constant)),
    ROW(gluBeginCurve, void(Handle)),
    ROW(gluNurbsCurve, void(Handle, Number, Counted<1>, Number, CurveControl, Number, Constant)),
    ROW(gluEndCurve, void(Handle)),
    ROW(gluBeginSurface, void(Handle)),
    ROW(gluNurbsSurface,
        void(Handle, Number, Counted<1>, Number, Counted<3>, Number, Number, SurfaceControl, Number, Number, Constant)),
    ROW(gluEndSurface, void(Handle)),
    ROW(gluErrorString, Quoted(Number)),

    // Contexts
    ROW(ChoosePixelFormat, Number(Handle, Descriptor)),
    ROW(SetPixelFormat, Success(Handle, Number, Descriptor)),
    ROW(SwapBuffers, Success(Handle)),
    ROW(wglCreateContext, Handle(Handle)),
    ROW(wglDeleteContext, Success(Handle)),
    ROW(wglMakeCurrent, Success(Handle, Handle)),
    ROW(wglGetCurrentDC, Handle()),
    ROW(wglGetCurrentContext, Handle()),
};

#undef ROW

}  // namespace

const std::span<const Row> kRows = kTable;

}  // namespace gl_trace
