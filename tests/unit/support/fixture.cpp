#include "tests/unit/support/fixture.h"

#include "module/exports.h"
#include "tests/unit/support/fake_bitmap.h"
#include "tests/unit/support/handler_registers.h"
#include "tests/unit/support/load_module.h"

const MethodEntry* RowOf(const std::string& className, std::string_view name) {
  const bool whole = name.ends_with(')');
  const std::string start = className + "::" + std::string(name) + (whole ? "" : "(");
  const MethodEntry* found = nullptr;
  for (const MethodEntry* row = GetMethodTable(nullptr); row->signature; ++row) {
    const std::string_view signature = row->signature;
    if (whole ? signature != start : !signature.starts_with(start)) continue;
    EXPECT_TRUE(!found || found->handler == row->handler) << start << "...) names handlers that differ";
    found = row;
  }
  EXPECT_TRUE(found) << "no row " << start;
  return found;
}

bool IsUntouched(const Variable& result) { return result.type == TVAR_INT32 && result.slot.int32 == kUntouched; }

std::vector<std::string> ParametersOf(std::string_view signature) {
  std::string_view list = signature.substr(signature.find('(') + 1);
  list.remove_suffix(1);
  std::vector<std::string> parameters;
  while (!list.empty() && list != "void") {
    const std::size_t comma = list.find(',');
    std::string_view parameter = list.substr(0, comma);
    parameter.remove_prefix(parameter.find_first_not_of(' '));
    parameters.emplace_back(parameter.substr(0, parameter.find_last_not_of(' ') + 1));
    list = comma == std::string_view::npos ? std::string_view() : list.substr(comma + 1);
  }
  return parameters;
}

Variable CallRow(Variable& object, std::string_view name, std::span<const Variable> args) {
  const MethodEntry* row = RowOf(devhost::KindOf(object), name);
  if (!row) return Variable();
  VarRegister result;
  result = kUntouched;
  HandlerRegisters(args, object).Call(row->handler, result);
  return result.GetVar();
}

Variable Unjoined(std::string_view className) {
  Variable object = NewObject(className);
  Call(object, "~" + std::string(className));
  EXPECT_EQ(object.GetAssID(), nullptr);
  return object;
}

Variable NewColor(float red, float green, float blue, float alpha) {
  return New("OglColor(number, number, number, number)", red, green, blue, alpha);
}

Variable NewRenderer() { return New("TOpenGL(void)"); }

Variable OpenRenderer() {
  Variable renderer = NewRenderer();
  Call(renderer, "Open", NewObject("MDC"));
  TakeLog();
  return renderer;
}

void ExpectError(int code, std::string_view text) {
  const devhost::Error* error = devhost::PendingError();
  ASSERT_TRUE(error) << "no error raised; expected " << code;
  EXPECT_EQ(error->code, code) << error->text;
  EXPECT_THAT(error->text, HasSubstr(text));
  EXPECT_EQ(devhost::RaisedCount(), 1);
  devhost::ClearError();
}

void ExpectNoNative(std::string_view className) { ExpectError(43, "The " + std::string(className) + " object"); }

void ExpectModuleError(int code, std::string_view text) {
  const devhost::Error* error = devhost::PendingError();
  ASSERT_TRUE(error) << "no error raised; expected module error " << code;
  EXPECT_EQ(error->text, text);
  ExpectError(kModuleErrorBase + code, text);
}

void ModuleTest::SetUp() {
  Device() = {};
  recorder::Reset();
  module = LoadTestedModule();
  ASSERT_TRUE(module);
  ASSERT_EQ(module->errorBase, kModuleErrorBase);
}

void ModuleTest::TearDown() {
  devhost::Assign(Bitmap().pixels, Variable());
  if (const devhost::Error* error = devhost::PendingError()) ADD_FAILURE() << "still pending: " << error->text;
  devhost::ClearError();
  EXPECT_EQ(devhost::UnloadModules(), 0) << "native objects outlive their script objects";
  for (const std::string& problem : recorder::Get().balance.Problems()) ADD_FAILURE() << problem;
}
