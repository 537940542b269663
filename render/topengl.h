// The renderer behind every script object of class "TOpenGL".
#pragma once

#include <array>
#include <optional>
#include <span>

#include "binding/flag.h"
#include "classes/color.h"
#include "render/fog.h"
#include "render/light.h"
#include "render/point.h"
#include "render/triples.h"

struct HDC__;
struct HGLRC__;
class OGLMaterial;
struct NurbsSurface;

// Sixteen numbers in OpenGL's column-major order: row r, column c is entry c * 4 + r.
using Matrix16 = std::array<double, 16>;

// The client rectangle of a device, in its own coordinates (y grows downwards).
struct ClientRect {
  int left;
  int top;
  int right;
  int bottom;
};

// An OpenGL 1.1 renderer on the device context of a window or memory bitmap, with every setting a script has made.
//
// Setters store; they talk to OpenGL only while a rendering context exists ("open"), unless their comment says
// otherwise, and opening applies what is stored. "Bound" means that a device context is set too. OpenGL's error state
// is never read.
class TOpenGL : public TalqAss {
 public:
  TOpenGL();
  TOpenGL(const TOpenGL&) = delete;
  TOpenGL& operator=(const TOpenGL&) = delete;
  // Closes. OpenGL may still be selecting into the buffer that goes with the renderer: that selection ends, if it runs
  // in the context that is current before or after closing.
  ~TOpenGL() override;

  // ---- Context (context.cpp)

  // Closes, then creates a rendering context on the device, makes it current and applies every setting. Raises
  // OGL_WRONG_DC when no context can be created and OGL_CANTBIND_DC when it cannot be made current, both with the
  // system's error number; what there is then stays until it is closed.
  void Open(HDC__* device, const ClientRect& client);
  void OpenBitmap(HDC__* device, const ClientRect& client);
  // Moves the open context to another device and applies viewport and projection alone. Raises OGL_NO_DC when nothing
  // is open, OGL_CANTBIND_DC when the context cannot be made current.
  void BindMDC(HDC__* device, const ClientRect& client);
  // Makes the context that was current before the last open or bind current again; the own one stays open, unbound.
  void FreeMDC();
  // The same, and deletes the own context. Harmless when nothing is open.
  void Close();
  // Whether there is a rendering context; whether a device context is set.
  bool IsOpen() const { return renderContext != nullptr; }
  bool IsBind() const { return deviceContext != nullptr; }
  // Asks for a hardware-accelerated pixel format at the next Open.
  void UseAccelerator(Flag on) { useAccelerator = on; }
  // Asks for a double-buffered pixel format at the next Open.
  void EnableDoubleBuff(Flag on) { doubleBuffer = on; }
  Flag GetDoubleBuff() const { return doubleBuffer; }
  // Shows the back buffer; does nothing unless bound and double-buffered.
  void SwapBuffers() const;

  // ---- Frame (frame.cpp)

  // Clears colour and depth of the whole frame; does nothing unless open and bound.
  void Clear() const;
  // glFlush and glFinish, whatever the state.
  void Flush() const;
  // Each Clear takes it, opening too.
  void SetClearColor(const OGLColor& color);
  // One of the texts of the current context, which are OpenGL's own: 0 to 3 are vendor, renderer, version and
  // extensions; "" for what OpenGL does not tell.
  static constexpr int kVersionTexts = 4;
  const char* GetVersion(int text) const;

  // ---- View (view.cpp)

  // In device coordinates (y grows downwards); fractions are cut off when it is applied. Applied with the projection.
  void SetViewPort(float left, float top, float right, float bottom);
  OGLRect GetViewPort() const { return viewport; }
  // Eye, the point looked at, and the up direction, which is kept with length 1: what gluLookAt takes. Applying it
  // discards the model transform. A zero up direction becomes (1, 0, 0).
  void SetViewerPos(float eyeX, float eyeY, float eyeZ, float centerX, float centerY, float centerZ, float upX,
                    float upY, float upZ);
  // The three as they are kept.
  void GetViewer(OGLPoint& eye, OGLPoint& center, OGLPoint& up) const;
  // The frustum as glFrustum takes it. Nothing is checked; what OpenGL rejects leaves the identity projection.
  void SetClipping(float left, float right, float bottom, float top, float zNear, float zFar);
  // fovy: the full vertical field of view in degrees; aspect: width over height. zNear below or at 0 becomes 1. Sets
  // the frustum: its top is zNear * tan(fovy / 2), with 3.14159 for pi.
  void SetPerspective(float fovy, float aspect, float zNear, float zFar);
  // Model-view := look-at of the viewer. Leaves the matrix mode at model-view.
  void ApplyViewer() const;
  // Projection := frustum. Leaves the matrix mode at model-view.
  void ApplyProjection() const;

  // ---- Light, fog and drawing state (state.cpp)

  // The stored settings, to be read and changed.
  OGLLightSet& GetLights() { return lights; }
  OGLFog& GetFog() { return fog; }
  // In eye coordinates. Reaches OpenGL at once, open or not, with the whole light.
  void SetLightPosition(float x, float y, float z);
  // Switches lighting alone; the light itself is sent by opening and by SetLightPosition. Switched off, drawing follows
  // the current colour.
  void EnableLight(Flag on);
  Flag IsLight() const { return lightEnabled; }
  // Fog from the near to the far plane, as the frustum is at this moment.
  void EnableFog(Flag on);
  Flag IsFog() const { return fogEnabled; }
  // Switches the fog on in OpenGL and sends its settings, without a context nothing. Distances from the eye; not
  // stored.
  void SetFogRange(float start, float end) const;
  // Blending by the alpha of what is drawn: source times alpha plus what is there times 1 - alpha.
  void EnableBlend(Flag on);
  Flag IsBlend() const { return blend; }
  // Smooth or flat shading.
  void EnableSmooth(Flag on);
  Flag IsSmooth() const { return smoothShade; }
  // Antialiasing of lines and points, read on each draw.
  void SetSmoothLine(Flag on) { smoothLine = on; }
  Flag IsSmoothLine() const { return smoothLine; }
  void SetSmoothPoint(Flag on) { smoothPoint = on; }
  Flag IsSmoothPoint() const { return smoothPoint; }
  // Outlines instead of filled faces, read on each draw.
  void EnableWired(Flag on) { wired = on; }
  Flag IsWired() const { return wired; }
  // With EnableWired: a spline surface shows its patches' outlines instead of its polygons'.
  void SetOutlinePatch(Flag on) { outlinePatch = on; }
  Flag GetOutlinePatch() const { return outlinePatch; }
  // These four are not stored: without a context they do nothing.
  // The current colour. With lighting on it also becomes ambient and diffuse colour of both faces from here on.
  void SetColor(const OGLColor& color) const;
  // All of the material. With lighting on, the current colour drives it no longer.
  void SetMaterial(const OGLMaterial& material) const;
  // Nothing is checked; OpenGL rejects sizes and widths that are not above 0.
  void SetPointSize(float pixels) const;
  void SetLineWidth(float pixels) const;

  // ---- Model matrix (matrix.cpp)
  // The model-view matrix is the viewer's look-at times the model transform. The first five do nothing without a
  // context; the others talk to OpenGL regardless. All leave the matrix mode at model-view.

  // Each transforms what is drawn from here on before all transforms so far do. w is ignored. Seen from the
  // axis's tip towards the origin, Rotate turns counter-clockwise.
  void Translate(const OGLPoint& offset) const;
  void Rotate(const OGLPoint& axis, float degrees) const;
  void Scale(float x, float y, float z) const;
  // Keeps the model-view matrix on OpenGL's stack, and takes it from there. The stack's limits are OpenGL's.
  void PushModelMatrix() const;
  void PopModelMatrix() const;
  // The bare identity: drops the viewer's transform too.
  void LoadIdentityMatrix() const;
  // Model-view := look-at of the viewer times the matrix.
  void LoadModelMatrix(const Matrix16& matrix) const;
  // Multiplies the model-view matrix from the right.
  void MultiplyModelMatrix(const Matrix16& matrix) const;
  // The model-view matrix and the viewer's look-at alone; zeros where there is no context. Leaves the matrix as it was.
  void ReadMatrices(Matrix16& full, Matrix16& look) const;

  // ---- Display lists (lists.cpp)
  // List numbers are absolute. NewList, CallList and CallLists do nothing without a context.

  // The first of `count` new consecutive numbers, or 0, as for a negative count.
  int GenLists(int count) const;
  // Starts recording; ignores numbers below 1.
  void NewList(int list) const;
  // Ends recording.
  void EndList() const;
  // Draw what was recorded; a number without a list draws nothing.
  void CallList(int list) const;
  void CallLists(std::span<const int> lists) const;
  // Deletes the lists from `first` on.
  void DeleteLists(int first, int count) const;

  // ---- Selection (selection.cpp)

  // OpenGL's stack of names, which each hit record copies. Outside a selection OpenGL ignores these four.
  void InitNameStack() const;
  void PushName(int name) const;
  void PopName() const;
  void LoadName(int name) const;
  // Starts selecting what is drawn inside the rectangle, in device coordinates; x and y are its right and top edges.
  // Tests neither whether the renderer is open nor whether it is selecting already; changes the projection until
  // EndSelection.
  void BeginSelection(int x, int y, int width, int height);
  // Ends selecting in the current context. The number of hit records in the select buffer, -1 when they did not fit;
  // nothing, with OGL_NO_SELECTION_MODE raised, when no selection was begun.
  std::optional<int> EndSelection();
  // Hit records one behind the other, as glSelectBuffer lays them out: how many names, least and greatest depth (0 to
  // 2^32 - 1), the names, the lowest first.
  std::span<const unsigned> GetSelectBuffer() const { return selectBuffer; }

  // ---- Primitive batches (geometry/triangles.cpp, points_lines.cpp, quads.cpp, indexed.cpp)
  // Each does nothing unless open and bound. The counts fit together; the handlers have checked them. A span of normals
  // has one a vertex, where nothing else is said.

  // Points, one after the other; lines through all, or from each first to each second of them.
  void SetPoints(TripleSpan points) const;
  void LineStrip(TripleSpan points) const;
  void Lines(TripleSpan points) const;
  // Lines with a colour for each end. Draws nothing when there are not as many colours as points.
  void ColorLines(TripleSpan points, TripleSpan colors) const;
  // One normal a face, computed from its corners (render/face_normal.h) and not normalised.
  void Triangles(TripleSpan points) const;
  // One normal a vertex, or one a face when there are fewer.
  void Triangles(TripleSpan points, TripleSpan normals) const;
  // The same with as many colours as points. With one normal a face, face i takes colour i whole. Lit, a colour becomes
  // a material (that of OGLMaterial's constructor); unlit, the current colour.
  void ColorTriangles(TripleSpan points, TripleSpan normals, TripleSpan colors) const;
  // Triangles one by one, in runs that each have a material; whether the renderer can draw is the caller's to ask. The
  // first of these comes once, before the first run; a run begins with its material, if it has one.
  void BeginTriangleRuns() const;
  void BeginTriangleRun(const OGLMaterial* material) const;
  // A triangle of a run: nine numbers of its corners, nine of their normals.
  void Triangle(const float* points, const float* normals) const;
  void EndTriangleRun() const;
  // Computed normals: the first triangle's for its three vertices, then each triangle's own, turned to one side.
  void TriangleStrip(TripleSpan points) const;
  // As OpenGL's primitives of these names.
  void TriangleStrip(TripleSpan points, TripleSpan normals) const;
  void QuadStrip(TripleSpan points, TripleSpan normals) const;
  void Quads(TripleSpan points, TripleSpan normals) const;
  void Polygon(TripleSpan points, TripleSpan normals) const;
  // With one colour a vertex, which becomes the current colour, lit or not.
  void ColorQuads(TripleSpan points, TripleSpan normals, TripleSpan colors) const;
  void ColorPolygon(TripleSpan points, TripleSpan normals, TripleSpan colors) const;

  // ---- Solids (geometry/quadrics.cpp, solids.cpp)
  // Each does nothing unless open and bound. The round ones but the torus are GLU's quadrics, with GLU's limits:
  // without memory for one nothing is drawn.

  // As many stacks as slices; the poles lie on the z axis.
  void Sphere(const OGLPoint& center, float radius, int slices) const;
  // Along +z from the origin, without the ends.
  void Cylinder(float baseRadius, float topRadius, float height, int slices, int stacks) const;
  // In the plane z = 0 around the origin, with as many loops as slices; an inner radius of 0 leaves no hole.
  void Disk(float innerRadius, float outerRadius, int slices) const;
  // Slices and loops are cut to integers. Required: the angle, in degrees, is where it starts and how far it sweeps.
  void PartialDisk(float innerRadius, float outerRadius, float slices, float loops, int degrees) const;
  // Centred on the origin. Required: the sizes come as x, z, y.
  void Box(float sizeX, float sizeZ, float sizeY) const;
  // From its lowest corner on. Leaves the matrix mode at model-view.
  void BoxAt(const OGLPoint& corner, float sizeX, float sizeZ, float sizeY) const;
  // Around the z axis: the tube's centre runs at ringRadius from it, in `segments` steps; the tube has `sides`. Fewer
  // than one segment or side draws nothing.
  void Torus(float ringRadius, int segments, float tubeRadius, int sides) const;

  // ---- Splines (geometry/splines.cpp)
  // Cubic NURBS through GLU, whose errors become OGL_NURBS_ERROR. They do not ask whether the renderer is open.

  // knots: count of control points + 4; controls: x, y, z each.
  void SplineCurve(std::span<float> knots, float* controls) const;
  // Leaves OpenGL computing normals or not, as the surface needed it.
  void SplineSurface(const NurbsSurface& surface) const;

  // ---- Bitmaps (image/bitmaps.cpp)
  // Each does nothing unless open and bound. Pixels are blue, green, red; rows tightly packed, the lowest first. The
  // two first leave the caller's buffer in red, green, blue order.

  // As textured quads with the lower left corner at (x, y, z), one pixel `scale` units wide, lit and fogged like
  // geometry. Leaves texture state, polygon mode and, with lighting on, the current colour changed.
  void DrawBitmap(const OGLPoint& corner, int width, int height, unsigned char* pixels, float scale) const;
  // With glDrawPixels at the raster position.
  void PutBitmap(const OGLPoint& position, int width, int height, unsigned char* pixels) const;
  // One bit a pixel, rows padded to 4 bytes; moves the raster position right by the width. Bytes beyond the length
  // count as zeros.
  void Put2bBitmap(const OGLPoint& position, int width, int height, const unsigned char* bits,
                   std::size_t length) const;

  // ---- Frame read-back (image/read_back.cpp)

  // Whether there is a frame to draw on and read from: open and bound.
  bool CanDraw() const { return deviceContext && renderContext; }
  // Reads the rectangle of the frame whose lower left corner is (x, y) into w * h * 3 bytes: blue, green, red; rows
  // tightly packed, the lowest first. Nothing is written past them; negative sizes read nothing.
  void GetDIBits(float x, float y, int width, int height, unsigned char* pixels) const;
  // Blends the frame, from its pixel (x, y) on, into rows of `width` pixels, blue, green, red, the top row first:
  // factor is the weight of what was there. False when not open and bound or memory is out.
  bool GetDIBitsMixture(float x, float y, int width, int height, std::span<unsigned char> pixels, float factor) const;

  // ---- Volume point clouds (image/volume.cpp)
  // No script method reaches these. They do not ask whether the renderer is open.

  // Compiles the volume's visible voxels into a display list of points centred on the origin, one unit apart, blended
  // and tested for depth; returns its number. `data` has width * height * depth voxels, x running fastest, then y. mode
  // 1: one byte a voxel, the index into the four tables of 256 entries; mode 3: blue, green, red, opaque as the alpha
  // table says of their mean, and invisible where blue and green, and green and red, differ by less than the threshold.
  // A voxel of alpha 0 is left out. Slices are walked along the axis (0, 1, 2: x, y, z), `step` apart, upwards
  // (direction 0) or downwards (1). Other modes, axes and directions, and a step below 1, make an empty list.
  unsigned BuildVolumePoints(const unsigned char* data, int width, int height, int depth, const unsigned char* redTable,
                             const unsigned char* greenTable, const unsigned char* blueTable,
                             const unsigned char* alphaTable, int mode, int axis, int direction, int step,
                             int threshold) const;
  // Deletes such a list; draws one, and flushes.
  void DeleteVolumePoints(unsigned list) const;
  void DrawVolumePoints(unsigned list) const;

 private:
  friend struct RendererLayout;

  void OpenWith(unsigned flags, HDC__* device, const ClientRect& client);
  void RememberCurrent(HDC__* device);
  void TakeBackSelectBuffer() const;
  void ApplyInitialState() const;
  void ApplyViewport() const;
  void ApplyShading() const;
  void ApplyBlend() const;
  void EnableLighting() const;
  void ApplyPolygonMode() const;
  void LookAt() const;
  void MultiplyFrustum() const;
  void DrawLines(unsigned mode, TripleSpan points) const;
  void DrawNormals(unsigned mode, TripleSpan points, TripleSpan normals) const;
  void DrawColors(unsigned mode, TripleSpan points, TripleSpan normals, TripleSpan colors) const;

  Flag doubleBuffer = kOff;
  Flag wired = kOff;
  Flag outlinePatch = kOn;
  OGLColor clearColor{0.0F, 0.0F, 0.0F, 1.0F};
  OGLPoint viewerEye{0.0F, 0.0F, 1000.0F, 1.0F};
  OGLPoint viewerCenter{0.0F, 0.0F, 0.0F, 1.0F};
  OGLPoint viewerUp{0.0F, 1.0F, 0.0F, 1.0F};
  OGLLightSet lights{1.0F, 1.0F, 1.0F, 1.0F};
  OGLFog fog{0.2F, 0.2F, 0.2F, 1.0F};
  // Required: OpenGL rejects the negative near distance, so a renderer starts with the identity projection.
  OGLFrustum clipping{-200.0F, 200.0F, -200.0F, 200.0F, -200.0F, 200.0F};
  OGLRect viewport{0.0F, 0.0F, 400.0F, 400.0F};
  Flag smoothShade = kOff;
  Flag smoothLine = kOff;
  Flag smoothPoint = kOff;
  Flag blend = kOff;
  HGLRC__* renderContext = nullptr;
  HDC__* deviceContext = nullptr;
  HDC__* previousDC = nullptr;
  HGLRC__* previousContext = nullptr;
  Flag fogEnabled = kOff;
  Flag lightEnabled = kOff;
  ClientRect clientRect{};
  // Lies inside the object: OpenGL keeps its address while it selects.
  std::array<unsigned, 512> selectBuffer{};
  // Counts selections, not names: those begun and not ended.
  int nameDepth = 0;
  Flag useAccelerator = kOff;
  // Of the last open; BindMDC asks for the same.
  unsigned pixelFormatFlags = 0;
  // Whether OpenGL was ever given the select buffer.
  bool hasSelected = false;
};

template <>
struct ScriptClass<TOpenGL> {
  static constexpr char kName[] = "TOpenGL";
};
