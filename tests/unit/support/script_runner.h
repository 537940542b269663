// Runs scripts in tests.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "devhost/runtime/runtime.h"
#include "devhost/script/parse.h"
#include "devhost/script/path.h"
#include "devhost/script/script.h"
#include "devhost/script/trace.h"

using testing::HasSubstr;
using testing::Not;

// What a script returns, as text; for one that fails, the whole message.
inline std::string RunScript(std::string_view text, const std::vector<std::string>& arguments = {},
                             devhost::script::FileReader readFile = nullptr, const char* name = "test.talq") {
  devhost::ClearError();
  devhost::script::SyntaxError error;
  const auto program = devhost::script::Parse(text, name, readFile, error);
  if (!program) return Describe(error.at, error.message);
  std::vector<Variable> args(arguments.size());
  for (std::size_t i = 0; i < args.size(); ++i) devhost::AssignText(args[i], arguments[i]);
  Variable result;
  std::string message;
  {
    devhost::script::Script script(*program);
    if (!script.Run(result, args)) message = devhost::script::CurrentTrace().Report();
  }
  devhost::ClearError();
  return message.empty() ? devhost::TextOf(result) : message;
}

// The value of an expression, as text.
inline std::string ValueOf(const std::string& expression) { return RunScript("return " + expression + ";"); }

// The first line of a message without the file's name: "line:column: message".
inline std::string HeadlineOf(std::string_view text) {
  const std::string message = RunScript(text);
  const std::size_t name = message.find("test.talq:");
  return name == 0 ? message.substr(10, message.find('\n') - 10) : "no message: " + message;
}

// For messages whose end is the runtime's business.
inline bool HeadlineStarts(std::string_view text, std::string_view start) {
  return HeadlineOf(text).starts_with(start);
}
