// "OglColor".
#include "classes/color.h"

#include "tests/unit/support/fixture.h"
#include "tests/unit/support/host_calls.h"

namespace {

using ColorTest = ModuleTest;

TEST_F(ColorTest, DefaultIsOpaqueWhite) { EXPECT_EQ(ComponentsOf(New("OglColor(void)")), Floats({1, 1, 1, 1})); }

TEST_F(ColorTest, NumbersAreStoredAsGiven) {
  EXPECT_EQ(ComponentsOf(NewColor(-1.5F, 2.0F, 0.25F, 1e30F)), Floats({-1.5F, 2.0F, 0.25F, 1e30F}));
}

TEST_F(ColorTest, GettersTellTheComponents) {
  Variable color = NewColor(0.1F, 0.2F, 0.3F, 0.4F);
  const char* names[] = {"GetRed", "GetGreen", "GetBlue", "GetAlpha"};
  const float expected[] = {0.1F, 0.2F, 0.3F, 0.4F};
  for (int i = 0; i < 4; ++i) {
    Variable component = Call(color, names[i]);
    EXPECT_EQ(component.GetType(), TVAR_FLOAT);
    EXPECT_EQ(static_cast<float>(component), expected[i]) << names[i];
  }
}

TEST_F(ColorTest, SetColorTakesNumbers) {
  Variable color = NewObject("OglColor");
  Call(color, "SetColor(number, number, number, number)", 0.0F, 0.0F, 0.0F, 0.0F);
  EXPECT_EQ(ComponentsOf(color), Floats({0, 0, 0, 0}));
  Call(color, "SetColor(number, number, number, number)", 0.1F, 0.2F, 0.3F, 0.4F);
  EXPECT_EQ(ComponentsOf(color), Floats({0.1F, 0.2F, 0.3F, 0.4F}));
}

TEST_F(ColorTest, CopyHasItsOwnLife) {
  Variable copy;
  {
    Variable source = NewColor(0.1F, 0.2F, 0.3F, 0.4F);
    devhost::Assign(copy, New("OglColor(copy)", source));
    EXPECT_NE(copy.GetAssID(), source.GetAssID());
    Call(source, "*=", 0.0F);
  }
  EXPECT_EQ(ComponentsOf(copy), Floats({0.1F, 0.2F, 0.3F, 0.4F}));
}

TEST_F(ColorTest, ColorRefIsUnpackedFromTheLowByteUp) {
  EXPECT_EQ(ComponentsOf(New("OglColor(refer object ColorRef)", ColorRef(0x00FF8000))),
            Floats({0.0F, 128.0F / 255.0F, 1.0F, 1.0F}));
  EXPECT_EQ(ComponentsOf(New("OglColor(refer object ColorRef)", ColorRef(0x00030201))),
            Floats({1.0F / 255.0F, 2.0F / 255.0F, 3.0F / 255.0F, 1.0F}));
}

TEST_F(ColorTest, ByteAboveBlueIsIgnored) {
  const Variable packed = ColorRef(static_cast<int>(0xABFF8001));
  const Floats expected = {1.0F / 255.0F, 128.0F / 255.0F, 1.0F, 1.0F};
  EXPECT_EQ(ComponentsOf(New("OglColor(refer object ColorRef)", packed)), expected);
  Variable color = NewColor(9, 9, 9, 9);
  Call(color, "SetColor(refer object ColorRef)", packed);
  EXPECT_EQ(ComponentsOf(color), expected);
}

TEST_F(ColorTest, ConstructorDividesInSinglePrecisionAndSetColorInDouble) {
  for (int byte = 0; byte < 256; ++byte) {
    const Variable packed = ColorRef(byte | (255 - byte) << 8 | byte << 16);
    const float inSingle = static_cast<float>(byte) / 255.0F;
    const float inSingleOfRest = static_cast<float>(255 - byte) / 255.0F;
    EXPECT_EQ(ComponentsOf(New("OglColor(refer object ColorRef)", packed)),
              Floats({inSingle, inSingleOfRest, inSingle, 1.0F}));
    const auto inDouble = static_cast<float>(static_cast<double>(byte) / 255.0);
    const auto inDoubleOfRest = static_cast<float>(static_cast<double>(255 - byte) / 255.0);
    Variable color = NewObject("OglColor");
    Call(color, "SetColor(refer object ColorRef)", packed);
    EXPECT_EQ(ComponentsOf(color), Floats({inDouble, inDoubleOfRest, inDouble, 1.0F}));
  }
}

TEST_F(ColorTest, ArgumentWithoutPackedColorIsTheHostsErrorAlone) {
  Variable color = NewColor(1, 2, 3, 4);
  Call(color, "SetColor(refer object ColorRef)", Point3(1, 2, 3));
  ASSERT_TRUE(devhost::PendingError());
  EXPECT_EQ(devhost::PendingError()->code, devhost::kErrorName);
  devhost::ClearError();
  EXPECT_EQ(ComponentsOf(color), Floats({0, 0, 0, 1}));
}

TEST_F(ColorTest, ScalingLeavesAlphaAndNeverClamps) {
  Variable color = NewColor(1.0F, 0.5F, 0.25F, 0.3F);
  Call(color, "*=", 2.0F);
  EXPECT_EQ(ComponentsOf(color), Floats({2.0F, 1.0F, 0.5F, 0.3F}));
  Call(color, "*=", -3.0F);
  EXPECT_EQ(ComponentsOf(color), Floats({-6.0F, -3.0F, -1.5F, 0.3F}));
}

TEST_F(ColorTest, ScalingRoundsToSinglePrecision) {
  Variable color = NewColor(0.1F, 0.7F, 0.3F, 0.9F);
  Call(color, "*=", 0.3F);
  EXPECT_EQ(ComponentsOf(color), Floats({0.1F * 0.3F, 0.7F * 0.3F, 0.3F * 0.3F, 0.9F}));
}

TEST_F(ColorTest, ProductIsANewObject) {
  Variable color = NewColor(1.0F, 0.5F, 0.25F, 0.3F);
  Variable product = Call(color, "*", 2.0F);
  EXPECT_EQ(devhost::KindOf(product), "OglColor");
  EXPECT_EQ(ComponentsOf(product), Floats({2.0F, 1.0F, 0.5F, 0.3F}));
  EXPECT_EQ(ComponentsOf(color), Floats({1.0F, 0.5F, 0.25F, 0.3F}));
  EXPECT_NE(product.GetAssID(), color.GetAssID());
  Call(product, "~OglColor");
  EXPECT_EQ(ComponentsOf(color), Floats({1.0F, 0.5F, 0.25F, 0.3F}));
}

TEST_F(ColorTest, ProductWithoutMemoryHasNoNative) {
  Variable color = NewObject("OglColor");
  Variable product;
  {
    const FailingAllocation failure(1);
    devhost::Assign(product, Call(color, "*", 2.0F));
  }
  EXPECT_EQ(devhost::KindOf(product), "OglColor");
  EXPECT_EQ(product.GetAssID(), nullptr);
  EXPECT_EQ(devhost::RaisedCount(), 0);
}

TEST_F(ColorTest, InstancesOwnColorIsUnjoinedBeforeItGoes) {
  Variable color = NewColor(1.0F, 0.5F, 0.25F, 0.3F);
  Host() = {};
  const Variable product = Call(color, "*", 2.0F);
  EXPECT_EQ(Host().brokenJoints, 1);
}

TEST_F(ColorTest, ProductIsMadeWhenTheInstanceComesWithoutAColor) {
  Variable color = NewColor(1.0F, 0.5F, 0.25F, 0.3F);
  const FailingAllocation failure(2);  // the instance's own default colour
  EXPECT_EQ(ComponentsOf(Call(color, "*", 2.0F)), Floats({2.0F, 1.0F, 0.5F, 0.3F}));
  EXPECT_TRUE(failure.Happened());
}

TEST_F(ColorTest, NativeAssignmentCopiesAndReturnsTheTarget) {
  const OGLColor source(0.1F, 0.2F, 0.3F, 0.4F);
  OGLColor target;
  EXPECT_EQ(&(target = source), &target);
  EXPECT_EQ(target.alpha, 0.4F);
  EXPECT_EQ(&(target *= 2.0F), &target);
  EXPECT_EQ(target.blue, 0.6F);
}

}  // namespace
