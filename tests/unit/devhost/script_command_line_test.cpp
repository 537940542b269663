// The command line of talq.
#include "devhost/script/command_line.h"

#include <gtest/gtest.h>

#include <vector>

#include "devhost/script/module_list.h"

namespace {

using devhost::script::CommandLine;

struct Reading {
  explicit Reading(std::vector<std::string> words)
      : arguments(std::move(words)), isUnderstood(devhost::script::ReadCommandLine(arguments, commandLine, message)) {}
  std::vector<std::string> arguments;
  CommandLine commandLine;
  std::string message;
  bool isUnderstood;
};

TEST(ScriptCommandLineTest, RunsAScriptWithItsArguments) {
  const Reading reading({"--module", "x.dll", "scene.talq", "--list", "-e"});
  ASSERT_TRUE(reading.isUnderstood);
  EXPECT_EQ(reading.commandLine.action, CommandLine::Action::RunFile);
  EXPECT_EQ(reading.commandLine.script, "scene.talq");
  EXPECT_EQ(reading.commandLine.module, "x.dll");
  EXPECT_TRUE(reading.commandLine.usesModule);
  ASSERT_EQ(reading.commandLine.args.size(), 2U);
  EXPECT_EQ(reading.commandLine.args[0], "--list");
  EXPECT_EQ(reading.commandLine.args[1], "-e");
}

TEST(ScriptCommandLineTest, RunsStatements) {
  const Reading reading({"--no-module", "-e", "Print(1)", "a"});
  ASSERT_TRUE(reading.isUnderstood);
  EXPECT_EQ(reading.commandLine.action, CommandLine::Action::RunText);
  EXPECT_EQ(reading.commandLine.script, "Print(1)");
  EXPECT_FALSE(reading.commandLine.usesModule);
  EXPECT_EQ(reading.commandLine.args.size(), 1U);
}

TEST(ScriptCommandLineTest, KnowsTheModulesArithmetic) {
  EXPECT_TRUE(Reading({"--module-arithmetic", "scene.talq"}).commandLine.moduleArithmetic);
  EXPECT_FALSE(Reading({"scene.talq", "--module-arithmetic"}).commandLine.moduleArithmetic);
}

TEST(ScriptCommandLineTest, KnowsTheTrace) {
  EXPECT_TRUE(Reading({"--trace-gl", "scene.talq"}).commandLine.tracesGl);
  EXPECT_FALSE(Reading({"scene.talq", "--trace-gl"}).commandLine.tracesGl);
}

TEST(ScriptCommandLineTest, KnowsHelpListAndProbe) {
  EXPECT_EQ(Reading({"--help"}).commandLine.action, CommandLine::Action::Help);
  EXPECT_EQ(Reading({"--list"}).commandLine.action, CommandLine::Action::List);
  EXPECT_EQ(Reading({"--probe"}).commandLine.action, CommandLine::Action::Probe);
  EXPECT_EQ(Reading({"--no-module", "-i"}).commandLine.action, CommandLine::Action::Interact);
  EXPECT_EQ(Reading({"--help"}).commandLine.topic, "");
  EXPECT_EQ(Reading({"--help", "Sphere"}).commandLine.action, CommandLine::Action::Help);
  EXPECT_EQ(Reading({"--help", "Sphere"}).commandLine.topic, "Sphere");
}

TEST(ScriptCommandLineTest, RefusesWhatItDoesNotUnderstand) {
  EXPECT_EQ(Reading({}).message, "no script is given");
  EXPECT_EQ(Reading({"--nope", "x"}).message, "unknown option --nope");
  EXPECT_EQ(Reading({"--module"}).message, "--module needs a path");
  EXPECT_EQ(Reading({"-e"}).message, "-e needs statements");
  EXPECT_EQ(Reading({"--help", "x", "y"}).message, "--help takes one name");
  EXPECT_EQ(Reading({"--list", "x"}).message, "--list takes no script");
  EXPECT_EQ(Reading({"-i", "x"}).message, "-i takes no script");
  EXPECT_EQ(Reading({"--no-module", "--list"}).message, "");
  EXPECT_EQ(Reading({"--no-module", "--module-arithmetic", "-e", "x;"}).message,
            "--module-arithmetic and --no-module exclude each other");
  EXPECT_FALSE(Reading({"--no-module", "--module-arithmetic", "-e", "x;"}).isUnderstood);
  EXPECT_EQ(Reading({"--trace-gl", "--no-module", "x"}).message, "--trace-gl and --no-module exclude each other");
  EXPECT_FALSE(Reading({"--nope"}).isUnderstood);
}

TEST(ScriptModuleListTest, GroupsMethodsByClass) {
  static constexpr MethodEntry kMethods[] = {
      {nullptr, "A::A(void)"}, {nullptr, "B::Set(number)"}, {nullptr, "A::Get(void)"}, {nullptr, nullptr}};
  static constexpr ErrorEntry kErrors[] = {{0, "It broke", "A_BROKE"}, {2, "It fell", "A_FELL"}, {0, nullptr, nullptr}};
  devhost::Module module;
  module.version = "Version 1";
  module.methods = kMethods;
  module.errors = kErrors;
  module.errorBase = 1000;
  EXPECT_EQ(devhost::script::DescribeModule(module),
            "Version 1\n\nA\n  A::A(void)\n  A::Get(void)\n\nB\n  B::Set(number)\n\n"
            "errors\n  1000 A_BROKE: It broke\n  1002 A_FELL: It fell\n");
}

}  // namespace
