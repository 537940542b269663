#include "devhost/gl_trace/names.h"

#include <windows.h>

#include <GL/gl.h>
#include <GL/glu.h>

#include "devhost/runtime/text.h"

namespace gl_trace {
namespace {

#define NAMED(constant) {static_cast<unsigned>(constant), #constant}

constexpr ConstantName kEnums[] = {
    NAMED(GL_NEVER),
    NAMED(GL_LESS),
    NAMED(GL_EQUAL),
    NAMED(GL_LEQUAL),
    NAMED(GL_GREATER),
    NAMED(GL_NOTEQUAL),
    NAMED(GL_GEQUAL),
    NAMED(GL_ALWAYS),
    NAMED(GL_SRC_COLOR),
    NAMED(GL_ONE_MINUS_SRC_COLOR),
    NAMED(GL_SRC_ALPHA),
    NAMED(GL_ONE_MINUS_SRC_ALPHA),
    NAMED(GL_DST_ALPHA),
    NAMED(GL_ONE_MINUS_DST_ALPHA),
    NAMED(GL_FRONT),
    NAMED(GL_BACK),
    NAMED(GL_FRONT_AND_BACK),
    NAMED(GL_EXP),
    NAMED(GL_EXP2),
    NAMED(GL_CW),
    NAMED(GL_CCW),
    NAMED(GL_POINT_SMOOTH),
    NAMED(GL_LINE_SMOOTH),
    NAMED(GL_CULL_FACE),
    NAMED(GL_LIGHTING),
    NAMED(GL_LIGHT_MODEL_LOCAL_VIEWER),
    NAMED(GL_LIGHT_MODEL_TWO_SIDE),
    NAMED(GL_LIGHT_MODEL_AMBIENT),
    NAMED(GL_COLOR_MATERIAL),
    NAMED(GL_FOG),
    NAMED(GL_FOG_DENSITY),
    NAMED(GL_FOG_START),
    NAMED(GL_FOG_END),
    NAMED(GL_FOG_MODE),
    NAMED(GL_FOG_COLOR),
    NAMED(GL_DEPTH_TEST),
    NAMED(GL_NORMALIZE),
    NAMED(GL_VIEWPORT),
    NAMED(GL_MODELVIEW_MATRIX),
    NAMED(GL_PROJECTION_MATRIX),
    NAMED(GL_BLEND),
    NAMED(GL_POINT_SMOOTH_HINT),
    NAMED(GL_LINE_SMOOTH_HINT),
    NAMED(GL_POLYGON_SMOOTH_HINT),
    NAMED(GL_UNPACK_ALIGNMENT),
    NAMED(GL_PACK_ALIGNMENT),
    NAMED(GL_AUTO_NORMAL),
    NAMED(GL_MAP1_VERTEX_3),
    NAMED(GL_MAP2_NORMAL),
    NAMED(GL_MAP2_VERTEX_3),
    NAMED(GL_TEXTURE_2D),
    NAMED(GL_DONT_CARE),
    NAMED(GL_FASTEST),
    NAMED(GL_NICEST),
    NAMED(GL_AMBIENT),
    NAMED(GL_DIFFUSE),
    NAMED(GL_SPECULAR),
    NAMED(GL_POSITION),
    NAMED(GL_SPOT_DIRECTION),
    NAMED(GL_SPOT_EXPONENT),
    NAMED(GL_SPOT_CUTOFF),
    NAMED(GL_COMPILE),
    NAMED(GL_COMPILE_AND_EXECUTE),
    NAMED(GL_UNSIGNED_BYTE),
    NAMED(GL_INT),
    NAMED(GL_UNSIGNED_INT),
    NAMED(GL_FLOAT),
    NAMED(GL_EMISSION),
    NAMED(GL_SHININESS),
    NAMED(GL_AMBIENT_AND_DIFFUSE),
    NAMED(GL_MODELVIEW),
    NAMED(GL_PROJECTION),
    NAMED(GL_TEXTURE),
    NAMED(GL_RGB),
    NAMED(GL_RGBA),
    NAMED(GL_POINT),
    NAMED(GL_LINE),
    NAMED(GL_FILL),
    NAMED(GL_RENDER),
    NAMED(GL_FEEDBACK),
    NAMED(GL_SELECT),
    NAMED(GL_SELECTION_BUFFER_POINTER),
    NAMED(GL_FLAT),
    NAMED(GL_SMOOTH),
    NAMED(GL_VENDOR),
    NAMED(GL_RENDERER),
    NAMED(GL_VERSION),
    NAMED(GL_EXTENSIONS),
    NAMED(GL_MODULATE),
    NAMED(GL_TEXTURE_ENV_MODE),
    NAMED(GL_TEXTURE_ENV),
    NAMED(GL_NEAREST),
    NAMED(GL_LINEAR),
    NAMED(GL_TEXTURE_MAG_FILTER),
    NAMED(GL_TEXTURE_MIN_FILTER),
    NAMED(GL_TEXTURE_WRAP_S),
    NAMED(GL_TEXTURE_WRAP_T),
    NAMED(GL_CLAMP),
    NAMED(GL_REPEAT),
    NAMED(GL_LIGHT0),
    NAMED(GLU_POINT),
    NAMED(GLU_LINE),
    NAMED(GLU_FILL),
    NAMED(GLU_SILHOUETTE),
    NAMED(GLU_OUTSIDE),
    NAMED(GLU_INSIDE),
    NAMED(GLU_ERROR),
    NAMED(GLU_DISPLAY_MODE),
    NAMED(GLU_OUTLINE_POLYGON),
    NAMED(GLU_OUTLINE_PATCH),
};

constexpr ConstantName kPrimitives[] = {
    NAMED(GL_POINTS),         NAMED(GL_LINES),        NAMED(GL_LINE_LOOP), NAMED(GL_LINE_STRIP), NAMED(GL_TRIANGLES),
    NAMED(GL_TRIANGLE_STRIP), NAMED(GL_TRIANGLE_FAN), NAMED(GL_QUADS),     NAMED(GL_QUAD_STRIP), NAMED(GL_POLYGON),
};

constexpr ConstantName kClearMasks[] = {
    NAMED(GL_COLOR_BUFFER_BIT),
    NAMED(GL_DEPTH_BUFFER_BIT),
    NAMED(GL_ACCUM_BUFFER_BIT),
    NAMED(GL_STENCIL_BUFFER_BIT),
};

constexpr ConstantName kPixelFormatFlags[] = {
    NAMED(PFD_DOUBLEBUFFER),   NAMED(PFD_DRAW_TO_WINDOW), NAMED(PFD_DRAW_TO_BITMAP), NAMED(PFD_SUPPORT_GDI),
    NAMED(PFD_SUPPORT_OPENGL), NAMED(PFD_GENERIC_FORMAT), NAMED(PFD_SWAP_COPY),      NAMED(PFD_GENERIC_ACCELERATED),
};

#undef NAMED

const char* NameIn(std::span<const ConstantName> names, unsigned value) {
  for (const ConstantName& entry : names) {
    if (entry.value == value) return entry.name;
  }
  return nullptr;
}

}  // namespace

const std::span<const ConstantName> kClearMaskNames = kClearMasks;
const std::span<const ConstantName> kPixelFormatFlagNames = kPixelFormatFlags;

const char* EnumName(unsigned value) { return NameIn(kEnums, value); }
const char* PrimitiveName(unsigned value) { return NameIn(kPrimitives, value); }

std::string MaskNames(std::span<const ConstantName> names, unsigned mask) {
  std::string text;
  const auto add = [&text](const std::string& name) { text += (text.empty() ? "" : " | ") + name; };
  for (const ConstantName& entry : names) {
    if ((mask & entry.value) == 0) continue;
    add(entry.name);
    mask &= ~entry.value;
  }
  if (mask != 0 || text.empty()) add(devhost::Decimal(mask));
  return text;
}

}  // namespace gl_trace
