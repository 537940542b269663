#include "devhost/runtime/signature.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using devhost::ParameterKind;
using devhost::ParseSignature;
using devhost::Signature;

Signature Parsed(std::string_view text) {
  Signature signature;
  std::string fault;
  EXPECT_TRUE(ParseSignature(text, signature, fault)) << text << ": " << fault;
  return signature;
}

std::string FaultOf(std::string_view text) {
  Signature signature;
  std::string fault;
  EXPECT_FALSE(ParseSignature(text, signature, fault)) << text;
  return fault;
}

TEST(DevhostSignatureTest, ReadsClassMethodAndParameters) {
  const Signature signature = Parsed("TOpenGL::Sphere(refer object POINT3 , number, int)");
  EXPECT_EQ(signature.className, "TOpenGL");
  EXPECT_EQ(signature.method, "Sphere");
  ASSERT_EQ(signature.parameters.size(), 3u);
  EXPECT_EQ(signature.parameters[0].kind, ParameterKind::Reference);
  EXPECT_EQ(signature.parameters[0].className, "POINT3");
  EXPECT_EQ(signature.parameters[1].kind, ParameterKind::Number);
  EXPECT_EQ(signature.parameters[2].kind, ParameterKind::Int);
  EXPECT_FALSE(signature.hasRest);
}

TEST(DevhostSignatureTest, ReadsEveryParameterKind) {
  EXPECT_TRUE(Parsed("C::M(void)").parameters.empty());
  EXPECT_EQ(Parsed("C::M(boolean)").parameters[0].kind, ParameterKind::Boolean);
  EXPECT_EQ(Parsed("C::M(object Matrix)").parameters[0].kind, ParameterKind::Value);
  EXPECT_EQ(Parsed("C::C(copy)").parameters[0].kind, ParameterKind::Copy);
  EXPECT_EQ(Parsed("C::M(any)").parameters[0].kind, ParameterKind::Any);
  EXPECT_TRUE(Parsed("C::M(number, ...)").hasRest);
  EXPECT_TRUE(Parsed("C::M(...)").hasRest);
}

TEST(DevhostSignatureTest, ReadsOperatorsDestructorsAndPlainFunctions) {
  EXPECT_EQ(Parsed("OglColor::*=(number)").method, "*=");
  EXPECT_EQ(Parsed("OglColor::~OglColor(void)").method, "~OglColor");
  EXPECT_EQ(Parsed("sin(number)").className, "");
  EXPECT_EQ(Parsed("sin(number)").method, "sin");
}

TEST(DevhostSignatureTest, TellsTheFaultOfMalformedRows) {
  EXPECT_EQ(FaultOf(""), "a parameter list in brackets is missing");
  EXPECT_EQ(FaultOf("C::M"), "a parameter list in brackets is missing");
  EXPECT_EQ(FaultOf("C::M(void) "), "a parameter list in brackets is missing");
  EXPECT_EQ(FaultOf("C::M()"), "\"\" is not a parameter");
  EXPECT_EQ(FaultOf("C::M(number,, int)"), "\"\" is not a parameter");
  EXPECT_EQ(FaultOf("C::M(void, int)"), "\"void\" is not a parameter");
  EXPECT_EQ(FaultOf("C::M(numbr)"), "\"numbr\" is not a parameter");
  EXPECT_EQ(FaultOf("C::M(refer Vector)"), "\"refer Vector\" is not a parameter");
  EXPECT_EQ(FaultOf("C::M(refer object )"), "\"refer object\" is not a parameter");
  EXPECT_EQ(FaultOf("C::M(refer object 3D)"), "\"refer object 3D\" is not a parameter");
  EXPECT_EQ(FaultOf("C::M(..., int)"), "\"...\" is not the last parameter");
  EXPECT_EQ(FaultOf("C::M(copy)"), "\"copy\" is the only parameter of a constructor");
  EXPECT_EQ(FaultOf("C::C(copy, int)"), "\"copy\" is the only parameter of a constructor");
  EXPECT_EQ(FaultOf("C::C(copy, ...)"), "\"copy\" is the only parameter of a constructor");
  EXPECT_EQ(FaultOf("C::~C(int)"), "a destructor takes no parameters");
  EXPECT_EQ(FaultOf("C::~D(void)"), "\"~D\" is not a method name");
  EXPECT_EQ(FaultOf("C::(void)"), "\"\" is not a method name");
  EXPECT_EQ(FaultOf("C::?(void)"), "\"?\" is not a method name");
  EXPECT_EQ(FaultOf("::M(void)"), "\"\" is not a class name");
  EXPECT_EQ(FaultOf("(void)"), "\"\" is not a function name");
  EXPECT_EQ(FaultOf("C::M(void)(void)"), "\"void)(void\" is not a parameter");
}

TEST(DevhostSignatureTest, ShowsTheParametersAsAnAuthorReadsThem) {
  EXPECT_EQ(ParameterListText(Parsed("C::M(refer object POINT3 , number)")), "(POINT3, number)");
  EXPECT_EQ(ParameterListText(Parsed("C::M(void)")), "()");
  EXPECT_EQ(ParameterListText(Parsed("C::M(int, boolean, ...)")), "(int, boolean, ...)");
  EXPECT_EQ(ParameterListText(Parsed("C::M(...)")), "(...)");
  EXPECT_EQ(ParameterListText(Parsed("C::C(copy)")), "(copy)");
}

}  // namespace
