// Native objects are told apart by the word that they begin with.
#include "binding/native.h"

#include <memory>

#include "classes/material.h"
#include "render/topengl.h"
#include "tests/unit/support/fixture.h"

namespace {

using NativeTest = ModuleTest;

TEST_F(NativeTest, AnObjectIsOfItsOwnClassAlone) {
  Variable material = NewObject("OglMaterial");
  const Variable color = NewObject("OglColor");
  const void* native = material.GetAssID();
  EXPECT_TRUE(nativeClass<OGLMaterial>.Has(native));
  EXPECT_FALSE(nativeClass<OGLColor>.Has(native));
  EXPECT_FALSE(nativeClass<TOpenGL>.Has(native));
}

TEST_F(NativeTest, ObjectsOfEveryClassAreTheModules) {
  for (const char* name : {"TOpenGL", "OglColor", "OglMaterial"}) {
    Variable object = NewObject(name);
    EXPECT_TRUE(NativeClass::AnyHas(object.GetAssID())) << name;
  }
  const std::uintptr_t other[2] = {1, 2};
  EXPECT_FALSE(NativeClass::AnyHas(other));
}

TEST_F(NativeTest, TheFirstObjectTeachesTheOthersChangeNothing) {
  static NativeClass learned;  // stays in the list of those that are known
  const std::uintptr_t first[2] = {0x1000, 0};
  const std::uintptr_t second[2] = {0x2000, 0};
  EXPECT_FALSE(learned.Has(first));
  learned.Learn(first);
  learned.Learn(second);
  EXPECT_TRUE(learned.Has(first));
  EXPECT_FALSE(learned.Has(second));
  EXPECT_TRUE(NativeClass::AnyHas(first));
}

TEST_F(NativeTest, NothingTeachesNothing) {
  class NeverMade : public TalqAss {};
  Join<NeverMade>(nullptr, nullptr, nullptr);
  EXPECT_FALSE(nativeClass<NeverMade>.Has(&*std::make_unique<NeverMade>()));
}

// Another module's object may begin with 0, and none of the class may have been made yet.
TEST_F(NativeTest, ZeroIsNoVirtualTable) {
  const NativeClass unknown;
  const std::uintptr_t words[2] = {};
  EXPECT_FALSE(unknown.Has(words));
  EXPECT_FALSE(NativeClass::AnyHas(words));
}

}  // namespace
