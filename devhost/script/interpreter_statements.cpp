// Effects of statements.
#include <string>

#include "devhost/script/console.h"
#include "devhost/script/depth.h"
#include "devhost/script/interpreter.h"
#include "devhost/script/trace.h"

namespace devhost::script {

using Kind = Statement::Kind;

Interpreter::Interpreter(Scope scriptVariables, Scope callVariables, Variable& callResult)
    : globals(scriptVariables), locals(callVariables), result(callResult) {}

Flow Interpreter::Execute(const Statement& statement) {
  const Depth depth;
  const Flow flow = depth.IsExceeded() ? Flow::Failed : ExecuteStatement(statement);
  // An object that the statement released may have raised an error at its end.
  if (PendingError() == nullptr) return flow;
  CurrentTrace().Locate(statement.at);
  return Flow::Failed;
}

Flow Interpreter::ExecuteStatement(const Statement& statement) {
  switch (statement.kind) {
    case Kind::Evaluate:
      return EvaluateForEffect(statement) ? Flow::Next : Flow::Failed;
    case Kind::Show:
      return Show(statement) ? Flow::Next : Flow::Failed;
    case Kind::Assign: {
      const bool done = statement.op ? AssignCombined(statement, *statement.op) : AssignValue(statement);
      return done ? Flow::Next : Flow::Failed;
    }
    case Kind::Block:
      return ExecuteAll(statement.statements);
    case Kind::If:
      return ExecuteIf(statement);
    case Kind::While:
      return ExecuteWhile(statement);
    case Kind::For:
      return ExecuteFor(statement);
    case Kind::Return:
      return ExecuteReturn(statement);
    case Kind::Break:
      return Flow::Break;
    case Kind::Continue:
      return Flow::Continue;
    case Kind::Try:
      return ExecuteTry(statement);
  }
  return Flow::Next;
}

Flow Interpreter::ExecuteAll(const std::vector<StatementPtr>& statements) {
  for (const StatementPtr& statement : statements) {
    const Flow flow = Execute(*statement);
    if (flow != Flow::Next) return flow;
  }
  return Flow::Next;
}

bool Interpreter::Test(const Expression& condition, bool& truth) {
  Variable value;
  if (!Evaluate(condition, value)) return false;
  truth = IsTrue(value);
  return true;
}

Flow Interpreter::ExecuteIf(const Statement& statement) {
  bool truth = false;
  if (!Test(*statement.expressions[0], truth)) return Flow::Failed;
  const StatementPtr& branch = statement.statements[truth ? 0 : 1];
  return branch != nullptr ? Execute(*branch) : Flow::Next;
}

Flow Interpreter::ExecuteWhile(const Statement& statement) {
  for (;;) {
    bool truth = false;
    if (!Test(*statement.expressions[0], truth)) return Flow::Failed;
    if (!truth) return Flow::Next;
    const Flow flow = Execute(*statement.statements[0]);
    if (flow == Flow::Break) return Flow::Next;
    if (flow == Flow::Return || flow == Flow::Failed) return flow;
  }
}

Flow Interpreter::ExecuteFor(const Statement& statement) {
  const ExpressionPtr& condition = statement.expressions[0];
  const StatementPtr& first = statement.statements[0];
  const StatementPtr& step = statement.statements[1];
  if (first != nullptr && Execute(*first) == Flow::Failed) return Flow::Failed;
  for (;;) {
    bool truth = true;
    if (condition != nullptr && !Test(*condition, truth)) return Flow::Failed;
    if (!truth) return Flow::Next;
    const Flow flow = Execute(*statement.statements[2]);
    if (flow == Flow::Break) return Flow::Next;
    if (flow == Flow::Return || flow == Flow::Failed) return flow;
    if (step != nullptr && Execute(*step) == Flow::Failed) return Flow::Failed;
  }
}

Flow Interpreter::ExecuteTry(const Statement& statement) {
  const Flow flow = Execute(*statement.statements[0]);
  if (flow != Flow::Failed) return flow;
  const Error error = *PendingError();
  ClearError();
  CurrentTrace().Clear();
  Slot& code = SlotOf(*statement.expressions[0]);
  Slot& text = SlotOf(*statement.expressions[1]);
  code.value = error.code;
  AssignText(text.value, error.text);
  code.assigned = text.assigned = true;
  return Execute(*statement.statements[1]);
}

Flow Interpreter::ExecuteReturn(const Statement& statement) {
  const ExpressionPtr& expression = statement.expressions[0];
  Variable value;
  if (expression != nullptr && !Evaluate(*expression, value)) return Flow::Failed;
  Assign(result, value);
  return Flow::Return;
}

bool Interpreter::EvaluateForEffect(const Statement& statement) {
  Variable unused;
  return Evaluate(*statement.expressions[0], unused);
}

// Prints the value as a line, unless it is nothing.
bool Interpreter::Show(const Statement& statement) {
  Variable value;
  if (!Evaluate(*statement.expressions[0], value)) return false;
  if (value.type == kEmptyType) return true;
  Print(TextOf(value) + "\n");
  return true;
}

}  // namespace devhost::script
