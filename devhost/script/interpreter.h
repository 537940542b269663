// Walks the tree of a program.
#pragma once

#include <span>
#include <vector>

#include "devhost/script/ast.h"
#include "devhost/script/script.h"

namespace devhost::script {

// How a statement ended.
enum class Flow { Next, Break, Continue, Return, Failed };

// One call in progress: the script's variables, the call's own, and where its result goes. Whatever fails returns
// false, null or Failed with the error pending and its place in CurrentTrace.
class Interpreter {
 public:
  Interpreter(Scope scriptVariables, Scope callVariables, Variable& callResult);

  Flow Execute(const Statement& statement);

 private:
  // interpreter_statements.cpp
  Flow ExecuteStatement(const Statement& statement);
  Flow ExecuteAll(const std::vector<StatementPtr>& statements);
  Flow ExecuteIf(const Statement& statement);
  Flow ExecuteWhile(const Statement& statement);
  Flow ExecuteFor(const Statement& statement);
  Flow ExecuteTry(const Statement& statement);
  Flow ExecuteReturn(const Statement& statement);
  bool Test(const Expression& condition, bool& truth);
  bool EvaluateForEffect(const Statement& statement);
  bool Show(const Statement& statement);

  // interpreter_expressions.cpp
  bool Evaluate(const Expression& expression, Variable& value);
  bool EvaluateKind(const Expression& expression, Variable& value);
  bool EvaluateName(const Expression& name, Variable& value);
  bool EvaluateArray(const Expression& expression, Variable& value);
  bool EvaluateUnary(const Expression& expression, Variable& value);
  bool EvaluateBinary(const Expression& expression, Variable& value);
  bool EvaluateLogical(const Expression& expression, Variable& value);
  Slot& SlotOf(const Expression& name);

  // interpreter_places.cpp
  struct Place;
  bool EvaluatePlace(const Expression& expression, Variable& value);
  bool AssignValue(const Statement& statement);
  bool AssignCombined(const Statement& statement, Operator op);
  bool CombineInPlace(Operator op, Variable& object, Variable& value, bool& done);
  bool Reach(const Expression& expression, Place& place);
  Variable* Find(const Expression& expression, Place& place);
  bool Store(const Expression& target, Place& place, Variable& value);

  // interpreter_calls.cpp
  bool EvaluateCall(const Expression& call, Variable& value);
  bool CallValue(const Variable& function, Variable& value, std::span<Variable> args);
  bool EvaluateMethodCall(const Expression& call, Variable& value);
  bool EvaluateNew(const Expression& expression, Variable& value);
  bool EvaluateOperands(const Expression& expression, std::size_t first, std::vector<Variable>& values);
  bool FailedCall(const Expression& call, std::string_view name);

  // interpreter_names.cpp
  bool FailUnknown(const Expression& name);
  bool FailUnknownFunction(const Expression& name);
  bool FailAt(const Expression& expression);
  std::vector<std::string> AssignedNames(bool functionsOnly) const;

  Scope globals;
  Scope locals;
  Variable& result;
};

}  // namespace devhost::script
