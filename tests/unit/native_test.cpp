// Native objects are told apart by the word that they begin with.
#include "binding/native.h"

#include <utility>

#include "classes/material.h"
#include "tests/unit/fixture.h"

namespace {

using NativeTest = ModuleTest;

TEST_F(NativeTest, AClassHasNoTableUntilItsFirstObjectIsJoined) { EXPECT_EQ(virtualTable<NativeTest>, 0U); }

TEST_F(NativeTest, AnObjectIsOfItsOwnClassAlone) {
  Variable material = NewObject("OglMaterial");
  const Variable color = NewObject("OglColor");
  const void* native = material.GetAssID();
  EXPECT_TRUE(IsNative<OGLMaterial>(native));
  EXPECT_FALSE(IsNative<OGLColor>(native));
  EXPECT_FALSE(IsNative<TOpenGL>(native));
  EXPECT_TRUE(IsOwnNative(native));
}

// Another module's object may begin with 0, and no material may have been made yet.
TEST_F(NativeTest, ZeroIsNoVirtualTable) {
  const std::uintptr_t known = std::exchange(virtualTable<OGLMaterial>, 0);
  const std::uintptr_t words[2] = {};
  EXPECT_FALSE(IsNative<OGLMaterial>(words));
  EXPECT_FALSE(IsOwnNative(words));
  virtualTable<OGLMaterial> = known;
}

}  // namespace
