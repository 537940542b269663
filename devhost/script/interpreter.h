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
  Flow ExecuteIf(const IfStatement& statement);
  Flow ExecuteWhile(const WhileStatement& statement);
  Flow ExecuteFor(const ForStatement& statement);
  Flow ExecuteTry(const TryStatement& statement);
  Flow ExecuteReturn(const ReturnStatement& statement);
  bool Test(const Expression& condition, bool& truth);
  bool EvaluateForEffect(const Expression& expression);
  bool Show(const Expression& expression);

  // interpreter_expressions.cpp
  bool Evaluate(const Expression& expression, Variable& value);
  bool EvaluateKind(const Expression& expression, Variable& value);
  bool EvaluateName(const NameExpression& name, Variable& value);
  bool EvaluateArray(const ArrayExpression& expression, Variable& value);
  bool EvaluateUnary(const UnaryExpression& expression, Variable& value);
  bool EvaluateBinary(const BinaryExpression& expression, Variable& value);
  bool EvaluateLogical(const BinaryExpression& expression, Variable& value);
  Slot& SlotOf(const NameExpression& name);

  // interpreter_places.cpp
  struct Place;
  bool EvaluatePlace(const Expression& expression, Variable& value);
  bool AssignValue(const AssignStatement& statement);
  bool AssignCombined(const AssignStatement& statement, Operator op);
  bool CombineInPlace(Operator op, Variable& object, Variable& value, bool& done);
  bool Reach(const Expression& expression, Place& place);
  Variable* Find(const Expression& expression, Place& place);
  bool Store(const Expression& target, Place& place, Variable& value);

  // interpreter_calls.cpp
  bool EvaluateCall(const CallExpression& call, Variable& value);
  bool CallNamed(const CallExpression& call, const NameExpression& callee, Variable& value, std::span<Variable> args);
  bool CallValue(const Variable& function, Variable& value, std::span<Variable> args);
  bool EvaluateMethodCall(const CallMethodExpression& call, Variable& value);
  bool EvaluateNew(const NewExpression& expression, Variable& value);
  bool EvaluateArguments(const std::vector<ExpressionPtr>& arguments, std::vector<Variable>& values);
  bool FailedCall(const Expression& call, std::string_view name);

  // interpreter_names.cpp
  bool FailUnknown(const NameExpression& name);
  bool FailUnknownFunction(const NameExpression& name);
  bool FailAt(const Expression& expression);
  std::vector<std::string> AssignedNames(bool functionsOnly) const;

  Scope globals;
  Scope locals;
  Variable& result;
};

}  // namespace devhost::script
