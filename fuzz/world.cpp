#include "fuzz/world.h"

#include <set>

#include "classes/gl.h"
#include "devhost/runtime/classes.h"
#include "devhost/runtime/payload.h"
#include "devhost/runtime/runtime.h"
#include "module/exports.h"
#include "render/topengl.h"
#include "tests/recorder/recorder.h"
#include "tests/unit/support/fake_device.h"
#include "tests/unit/support/load_module.h"
#include "tests/unit/support/values.h"

namespace {

constexpr long long kBitmap = 0x3000;
// What a device context's handle can be: none, windows, a memory bitmap.
constexpr long long kDevices[] = {0, 0x1000, 0x1000, 0x1000, 0x1000, 0x1000, 0x1000, 0x2000, kBitmap, kBitmap};

}  // namespace

World::World(Random& random) : random(random) {
  recorder::Reset();
  recorder::Get().answers.bitmaps = {reinterpret_cast<HDC>(std::uintptr_t{kBitmap})};
  Device() = {};
  LoadTestedModule();
  for (int i = 0; i < kObjects; ++i) {
    renderers.push_back(NewObject("TOpenGL"));
    colors.push_back(NewObject("OglColor"));
    materials.push_back(NewObject("OglMaterial"));
    // Half of them can draw from the start.
    std::array device{NewObject("MDC")};
    Variable nothing;
    if (i % 2 == 0) devhost::CallMethod(nothing, renderers.back(), "Open", device);
  }
  devhost::Assign(meshObject, NewObject("POINT3"));
  devhost::ObjectOf(meshObject)->native = &mesh;
  ChangeDriver();
}

World::~World() {
  devhost::ObjectOf(meshObject)->native = nullptr;
  renderers.clear();
  colors.clear();
  materials.clear();
  devhost::UnloadModules();
}

std::vector<Variable>& World::Pool(std::string_view className) {
  if (className == "TOpenGL") return renderers;
  return className == "OglColor" ? colors : materials;
}

Variable& World::ObjectOf(std::string_view className) {
  return Pool(className)[static_cast<std::size_t>(random.Below(kObjects))];
}

Variable& World::AnyObject() { return ObjectOf(random.Pick({"TOpenGL", "OglColor", "OglMaterial"})); }

Variable& World::MeshObject() {
  devhost::ObjectOf(meshObject)->native = random.Percent(80) ? &mesh : &emptyMesh;
  return meshObject;
}

Variable World::NewUnjoined(std::string_view className) {
  Variable object;
  devhost::MakeObject(object, devhost::FindClass(className));
  return object;
}

void World::ChangeDriver() {
  recorder::Answers& answers = recorder::Get().answers;
  answers.pixelFormat = random.Percent(80) ? 1 : random.Below(3);
  answers.createsContexts = random.Percent(80);
  answers.makesCurrent = random.Percent(80);
  answers.createsQuadrics = random.Percent(80);
  answers.createsNurbs = random.Percent(80);
  answers.nurbsError.reset();
  if (random.Percent(20)) answers.nurbsError = 100251;
  answers.strings.clear();
  if (random.Percent(50)) answers.strings[GL_VENDOR] = "vendor";
  answers.viewport.reset();
  constexpr int kSizes[] = {0, 1, 2, 5, 16, -1, 0x7FFFFFFF};
  if (random.Percent(80))
    answers.viewport = {random.Integer(), random.Integer(), random.Pick(kSizes), random.Pick(kSizes)};
  // Records of names, and now and then a buffer that is cut short or claims names that it does not hold.
  answers.hits = random.Percent(90) ? random.Below(4) : -1;
  answers.hitRecords = {1, 5, 6, 7, 2, 8, 9, 10, 11, 0, 1, 2};
  if (random.Percent(20)) answers.hitRecords[0] = 0xFFFFFFFF;
  Device().id = random.Pick(kDevices);
  Device().bottom = random.Integer();
}

void World::EndAbandonedSelections(const HGLRC__* before) const {
  std::set<const unsigned*> buffers;
  for (const Variable& renderer : renderers) {
    const auto* native = NativeOf<TOpenGL>(renderer);
    if (native) buffers.insert(native->GetSelectBuffer().data());
  }
  for (auto& [handle, context] : recorder::Get().contexts) {
    recorder::Selection& selection = context.selection;
    const bool wasCurrent = handle == before && handle == recorder::Get().currentContext;
    if (selection.isOn && !wasCurrent && !buffers.contains(selection.buffer.data())) selection = {};
  }
}

std::size_t World::OpenRenderers() const {
  // One script object may stand in several places.
  std::set<const TOpenGL*> open;
  for (const Variable& renderer : renderers) {
    const auto* native = NativeOf<TOpenGL>(renderer);
    if (native && native->IsOpen()) open.insert(native);
  }
  return open.size();
}
