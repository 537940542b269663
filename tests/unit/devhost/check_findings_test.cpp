// What the check says, and what it knows from the reference.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <GL/gl.h>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "devhost/check/explain.h"
#include "devhost/check/findings.h"
#include "devhost/check/method_facts.h"
#include "devhost/check/pixels.h"
#include "devhost/gl_trace/name_filter.h"
#include "devhost/runtime/counts_hint.h"

namespace {

using devhost::check::FactsOf;
using devhost::check::Findings;
using devhost::check::Kind;
using devhost::check::Need;
using gl_trace::Function;
using testing::HasSubstr;

std::string WhyOf(Function function, std::vector<double> numbers, unsigned error) {
  const std::vector<gl_trace::Value> values(numbers.begin(), numbers.end());
  return devhost::check::WhyRefused({function, values, {}}, error);
}

std::string OddityOf(std::vector<double> numbers) {
  const std::vector<gl_trace::Value> values(numbers.begin(), numbers.end());
  return devhost::check::WhyOddProjection({Function::glFrustum, values, {}});
}

devhost::check::MethodFacts FactsOfText(std::string_view text) {
  devhost::ReferenceEntry entry;
  entry.text = text;
  return FactsOf("TOpenGL", "Method", &entry);
}

TEST(CheckFindingsTest, NothingFoundSaysNothing) { EXPECT_EQ(Findings().Report(), ""); }

TEST(CheckFindingsTest, AFindingIsOnceALineWithACount) {
  Findings findings;
  const devhost::check::Where line{{"a.talq", 12}, "TOpenGL::Sphere"};
  findings.Add(Kind::NotOpen, line, "first");
  findings.Add(Kind::OneColor, {{"b.talq", 3}, "MDC::GetDIBits"}, "second");
  findings.Add(Kind::NotOpen, line, "not shown");
  findings.Add(Kind::NotOpen, {{"a.talq", 13}, "TOpenGL::Sphere"}, "third");
  const std::string report = findings.Report();
  EXPECT_THAT(report, HasSubstr("a.talq:12: TOpenGL::Sphere: first [NOT_OPEN] (2 times)\n  hint: gl->Open"));
  EXPECT_THAT(report, HasSubstr("b.talq:3: MDC::GetDIBits: second [ONE_COLOR]\n"));
  EXPECT_LT(report.find("first"), report.find("second"));
  EXPECT_TRUE(report.ends_with("talq: 3 findings: 2 NOT_OPEN, 1 ONE_COLOR\n")) << report;
}

TEST(CheckFindingsTest, EveryKindHasANameAndAnAdviceInTheReference) {
  for (int kind = 0; kind <= static_cast<int>(Kind::RowLength); ++kind) {
    EXPECT_NE(devhost::AdviceInReference(NameOf(static_cast<Kind>(kind))), "") << NameOf(static_cast<Kind>(kind));
  }
}

TEST(CheckExplainTest, RefusedValuesAreNamed) {
  const std::vector<std::pair<std::string, std::string>> reasons = {
      {WhyOf(Function::glFrustum, {-1, 1, -1, 1, 0, 9}, GL_INVALID_VALUE), "the near plane (0) has to be above 0"},
      {WhyOf(Function::glFrustum, {-1, 1, -1, 1, 1, -9}, GL_INVALID_VALUE), "the far plane (-9) has to be above 0"},
      {WhyOf(Function::glFrustum, {-1, 1, -1, 1, 5, 5}, GL_INVALID_VALUE),
       "the near plane (5) and the far one are equal"},
      {WhyOf(Function::glFrustum, {-0.0, 0, -1, 1, 1, 9}, GL_INVALID_VALUE),
       "the left edge (0) and the right one are equal: the aspect is 0; whole numbers divide to whole numbers, so "
       "write 48 / 64.0"},
      {WhyOf(Function::glFrustum, {0, 0, 0, 0, 1, 9}, GL_INVALID_VALUE),
       "the bottom (0) and the top are equal: the field of view is 0"},
      {WhyOf(Function::glViewport, {0, 0, -4, 3}, GL_INVALID_VALUE),
       "a viewport of -4 x 3 pixels has a negative size: its right edge comes before its left one, or its bottom before "
       "its top"},
      {WhyOf(Function::glLineWidth, {-1}, GL_INVALID_VALUE), "the width (-1) has to be above 0"},
      {WhyOf(Function::glPointSize, {0}, GL_INVALID_VALUE), "the size (0) has to be above 0"},
      {WhyOf(Function::glLightf, {0, 0, 120}, GL_INVALID_VALUE), "the angle (120) has to be 0 to 90, or 180"},
      {WhyOf(Function::glFogf, {0, -2}, GL_INVALID_VALUE), "the density (-2) must not be negative"},
      {WhyOf(Function::glMaterialf, {0, 0, 200}, GL_INVALID_VALUE), "the shininess (200) has to be 0 to 128"},
      {WhyOf(Function::glNewList, {0, 0}, GL_INVALID_VALUE), "a list's number is above 0"},
      {WhyOf(Function::glNewList, {1, 0}, GL_INVALID_OPERATION), "a list is being recorded already"},
      {WhyOf(Function::glEndList, {}, GL_INVALID_OPERATION), "no list is being recorded"},
      {WhyOf(Function::glLoadName, {1}, GL_INVALID_OPERATION), "the name stack is empty"},
      {WhyOf(Function::glPopMatrix, {}, GL_STACK_UNDERFLOW), "nothing is left that was pushed"},
      {WhyOf(Function::glPushName, {1}, GL_STACK_OVERFLOW), "more is pushed than fits; each push needs its pop"},
      {WhyOf(Function::glReadPixels, {0, 0, -1, 2}, GL_INVALID_VALUE),
       "a rectangle of -1 x 2 pixels has a negative size"},
      {WhyOf(Function::glBitmap, {-8, 2}, GL_INVALID_VALUE), "a bitmap of -8 x 2 pixels has a negative size"},
      {WhyOf(Function::glCallLists, {-1}, GL_INVALID_VALUE), "the number of lists is negative"},
      {WhyOf(Function::glFlush, {}, GL_OUT_OF_MEMORY), ""},
  };
  for (const auto& [reason, expected] : reasons) EXPECT_EQ(reason, expected);
}

TEST(CheckExplainTest, ErrorsHaveOpenGlsNames) {
  EXPECT_EQ(devhost::check::ErrorText(GL_STACK_UNDERFLOW), "GL_STACK_UNDERFLOW");
  EXPECT_EQ(devhost::check::ErrorText(7), "the error 7");
}

TEST(CheckExplainTest, OddProjectionsAreTold) {
  EXPECT_EQ(OddityOf({-1, 1, -1, 1, 1, 9}), "");
  EXPECT_EQ(OddityOf({1, -1, -1, 1, 1, 9}), "");  // a mirror
  EXPECT_EQ(OddityOf({-1, 1, -1, 1, 10, 1}), "the far plane (1) is nearer than the near one (10)");
  EXPECT_THAT(OddityOf({1, -1, 1, -1, 1, 9}), HasSubstr("stands on its head"));
}

TEST(CheckMethodFactsTest, NeedsAreReadFromSentencesBrokenAnywhere) {
  EXPECT_EQ(FactsOfText("Draws it. Draws nothing\nunless the renderer is open\nand bound.").need,
            Need::OpenAndBoundRenderer);
  EXPECT_TRUE(FactsOfText("Draws nothing unless the renderer is open and bound.").draws);
  EXPECT_FALSE(FactsOfText("Does nothing unless the renderer is open and bound.").draws);
  EXPECT_EQ(FactsOfText("Does nothing while the renderer\nis closed, and is not kept.").need, Need::OpenRenderer);
  EXPECT_EQ(FactsOfText("Kept while it is closed.").need, Need::Nothing);
  EXPECT_EQ(FactsOfText("Takes effect at\nthe next `EnableFog(true)`, or at an `Open`.").sentBy, "EnableFog");
  EXPECT_EQ(FactsOfText("Takes effect at once.").sentBy, "");
}

TEST(CheckMethodFactsTest, WhatIsNotInTheReferenceNeedsNothing) {
  const auto facts = FactsOf("MDC", "GetDIBits", nullptr);
  EXPECT_EQ(facts.name, "MDC::GetDIBits");
  EXPECT_FALSE(facts.isInReference);
  EXPECT_EQ(facts.need, Need::Nothing);
}

// What the reference says is what the check goes by: a sentence that is put otherwise would switch it off.
TEST(CheckMethodFactsTest, TheReferenceSaysWhatMethodsNeed) {
  const std::set<std::string_view> drawingGroups = {"Points and lines", "Triangles and quads", "Indexed meshes",
                                                    "Solids", "Bitmaps"};
  std::vector<std::string> openOnly;
  std::vector<std::string> waiting;
  for (const devhost::ReferenceEntry& entry : devhost::Reference()) {
    const auto facts = FactsOf(entry.ClassName(), entry.MethodName(), &entry);
    EXPECT_EQ(facts.draws, drawingGroups.contains(entry.group)) << facts.name;
    const bool needsBoth = facts.draws || facts.method == "Clear" || facts.method == "GetDIBits";
    EXPECT_EQ(facts.need == Need::OpenAndBoundRenderer, needsBoth) << facts.name;
    if (facts.need == Need::OpenRenderer) openOnly.push_back(facts.method);
    if (!facts.sentBy.empty()) waiting.push_back(facts.method + " for " + facts.sentBy);
  }
  EXPECT_THAT(openOnly, testing::IsSupersetOf({"SetColor", "SetMaterial", "SetPointSize", "SetLineWidth", "Translate",
                                               "Rotate", "SetScale", "PushModelMatrix", "PopModelMatrix", "NewList",
                                               "CallList", "CallLists"}));
  EXPECT_THAT(waiting, testing::IsSupersetOf(
                           {"SetAmbientLightColor for SetLightPosition", "SetSpot for SetLightPosition",
                            "SetDiffuseLightColor for SetLightPosition", "SetSpecularLightColor for SetLightPosition",
                            "EnableTwoSide for EnableLight", "SetFogColor for EnableFog", "SetFogDensity for EnableFog",
                            "SetFogLinearMode for EnableFog", "SetFogExpMode for EnableFog"}));
}

TEST(CountsRuleTest, TheRuleIsTheSentenceBeforeError8) {
  EXPECT_EQ(devhost::CountsRule("Draws. Takes points in threes,\nand normals;\nelse error 8. Then more."),
            "takes points in threes, and normals");
  EXPECT_EQ(devhost::CountsRule("Takes anything."), "");
}

TEST(CountsRuleTest, EveryMethodThatTakesVectorsOfPointsAndNormalsHasARule) {
  for (const char* method :
       {"Triangles", "ColorTriangles", "TriangleStrip", "Quads", "ColorQuads", "QuadStrip", "Polygon", "ColorPolygon",
        "TrianglesEx", "SplineCurve2D", "SplineCurve3D", "SplineSurface"}) {
    EXPECT_NE(devhost::CountsRule(devhost::FindInReference("TOpenGL", method)->text), "") << method;
  }
}

TEST(PixelsTest, OneColorIsToldFromTwoInPaddedRows) {
  // Two rows of three pixels, padded to 12 bytes with what is no pixel.
  std::vector<unsigned char> rows = {1, 2, 3, 1, 2, 3, 1, 2, 3, 9, 8, 7, 1, 2, 3, 1, 2, 3, 1, 2, 3, 6, 5, 4};
  EXPECT_EQ(devhost::check::PaddedRowBytes(3), 12);
  EXPECT_EQ(devhost::check::PaddedRowBytes(4), 12);
  EXPECT_TRUE(devhost::check::IsOneColor(rows.data(), 3, 2, 12));
  rows[20] = 4;
  EXPECT_FALSE(devhost::check::IsOneColor(rows.data(), 3, 2, 12));
}

TEST(NameFilterTest, StarsStandForAnyLetters) {
  EXPECT_TRUE(gl_trace::Fits("glLight*", "glLightfv"));
  EXPECT_TRUE(gl_trace::Fits("glLight*", "glLight"));
  EXPECT_TRUE(gl_trace::Fits("*Matri*", "glPushMatrix"));
  EXPECT_FALSE(gl_trace::Fits("glLight", "glLightfv"));
  EXPECT_FALSE(gl_trace::Fits("glLight*v", "glLightf"));
  EXPECT_TRUE(gl_trace::IsListed("glFrustum,glLight*", "glLightf"));
  EXPECT_FALSE(gl_trace::IsListed("glFrustum,glLight*", "glFlush"));
  EXPECT_FALSE(gl_trace::IsListed("", "glFlush"));
  EXPECT_EQ(gl_trace::PatternWithoutFunction("glFrustum,glNone,glLight*"), "glNone");
  EXPECT_EQ(gl_trace::PatternWithoutFunction("*"), "");
}

}  // namespace
