// In which states of the renderer every method reaches OpenGL.
#include <set>
#include <string>
#include <vector>

#include "devhost/runtime/signature.h"
#include "module/exports.h"
#include "tests/unit/support/renderer_states.h"
#include "tests/unit/support/row_arguments.h"

namespace {

using Names = std::set<std::string>;

const Names kDrawing = {
    "Clear",         "SetPoints",      "LineStrip",        "Lines",      "ColorLines",  "Triangles",     "TrianglesEx",
    "TrianglesExFB", "ColorTriangles", "QuadStrip",        "Quads",      "ColorQuads",  "TriangleStrip", "Polygon",
    "ColorPolygon",  "Sphere",         "Cylinder",         "Disk",       "PartialDisk", "Box",           "Torus",
    "Put2bBitmap",   "PutBitmap",      "GetDIBitsMixture", "DrawBitmap", "GetDIBits",
};
const Names kOfOpenRenderers = {
    "SetViewPort",   "SetViewerPos", "SetClipping", "SetPerspective",  "FreeMDC",        "Close",
    "SetClearColor", "SetColor",     "SetMaterial", "SetPointSize",    "SetLineWidth",   "Rotate",
    "Translate",     "SetScale",     "EnableFog",   "PushModelMatrix", "PopModelMatrix", "NewList",
    "CallList",      "CallLists",    "BindMDC",     "EnableSmooth",    "EnableLight",    "EnableBlend",
};
const Names kOfBoundRenderers = {"SwapBuffers"};
const Names kAlways = {
    "GetVersion",   "Open",           "OpenBitmap",    "Flush",         "SetLightPosition", "LoadIdentityMatrix",
    "LoadMatrix",   "MultiplyMatrix", "GetMatrix",     "GenList",       "EndList",          "DeleteList",
    "DeleteLists",  "InitNameStack",  "PushName",      "PopName",       "LoadName",         "BeginSelection",
    "EndSelection", "SplineCurve2D",  "SplineCurve3D", "SplineSurface",
};

// Whether the method makes calls of OpenGL, GLU, WGL or GDI.
bool IsExpectedToCall(const std::string& method, const RendererState& state) {
  if (kDrawing.contains(method)) return state.isOpen && state.isBound;
  if (kOfOpenRenderers.contains(method)) return state.isOpen;
  if (kOfBoundRenderers.contains(method)) return state.isBound;
  return kAlways.contains(method);
}

class StatesTest : public ModuleTest, public testing::WithParamInterface<RendererState> {
 protected:
  // Calls the method of a new renderer; whether it made calls.
  static bool Calls(const devhost::Signature& signature, const char* row, const std::vector<Variable>& args) {
    Variable renderer = RendererIn(GetParam());
    Call(renderer, "EnableDoubleBuff", true);
    if (signature.method == "EndSelection") Call(renderer, "BeginSelection", 1, 2, 3, 4);
    TakeLog();
    CallRow(renderer, std::string_view(row).substr(signature.className.size() + 2), args);
    const bool calls = !TakeLog().empty();
    EndWhatBegan(signature, renderer);
    devhost::ClearError();
    return calls;
  }
};

TEST_P(StatesTest, EveryMethodReachesOpenGLInItsStatesAlone) {
  for (const MethodEntry* row = GetMethodTable(nullptr); row->handler; ++row) {
    SCOPED_TRACE(row->signature);
    devhost::Signature signature;
    std::string fault;
    ASSERT_TRUE(devhost::ParseSignature(row->signature, signature, fault)) << fault;
    if (signature.className != "TOpenGL" || signature.method.ends_with("TOpenGL")) continue;
    const bool isExpected = IsExpectedToCall(signature.method, GetParam());
    EXPECT_EQ(Calls(signature, row->signature, ArgumentsOf(signature)), isExpected);
    if (signature.parameters.size() != 1 || signature.parameters[0].kind != devhost::ParameterKind::Boolean) continue;
    EXPECT_EQ(Calls(signature, row->signature, {Value(false)}), isExpected) << "switched off";
  }
}

INSTANTIATE_TEST_SUITE_P(Each, StatesTest, testing::ValuesIn(kRendererStates),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
