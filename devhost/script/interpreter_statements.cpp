// Effects of statements.

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
  if (!PendingError()) return flow;
  CurrentTrace().Locate(statement.at);
  return Flow::Failed;
}

Flow Interpreter::ExecuteStatement(const Statement& statement) {
  switch (statement.kind) {
    case Kind::Evaluate:
      return EvaluateForEffect(*As<ExpressionStatement>(statement).expression) ? Flow::Next : Flow::Failed;
    case Kind::Show:
      return Show(*As<ExpressionStatement>(statement).expression) ? Flow::Next : Flow::Failed;
    case Kind::Assign: {
      const auto& assignment = As<AssignStatement>(statement);
      const bool done = assignment.op ? AssignCombined(assignment, *assignment.op) : AssignValue(assignment);
      return done ? Flow::Next : Flow::Failed;
    }
    case Kind::Block:
      return ExecuteAll(As<BlockStatement>(statement).statements);
    case Kind::If:
      return ExecuteIf(As<IfStatement>(statement));
    case Kind::While:
      return ExecuteWhile(As<WhileStatement>(statement));
    case Kind::For:
      return ExecuteFor(As<ForStatement>(statement));
    case Kind::Return:
      return ExecuteReturn(As<ReturnStatement>(statement));
    case Kind::Try:
      return ExecuteTry(As<TryStatement>(statement));
    case Kind::Break:
      return Flow::Break;
    case Kind::Continue:
      return Flow::Continue;
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

Flow Interpreter::ExecuteIf(const IfStatement& statement) {
  bool truth = false;
  if (!Test(*statement.condition, truth)) return Flow::Failed;
  const StatementPtr& branch = truth ? statement.thenBranch : statement.elseBranch;
  return branch ? Execute(*branch) : Flow::Next;
}

Flow Interpreter::ExecuteWhile(const WhileStatement& statement) {
  for (;;) {
    bool truth = false;
    if (!Test(*statement.condition, truth)) return Flow::Failed;
    if (!truth) return Flow::Next;
    const Flow flow = Execute(*statement.body);
    if (flow == Flow::Break) return Flow::Next;
    if (flow == Flow::Return || flow == Flow::Failed) return flow;
  }
}

Flow Interpreter::ExecuteFor(const ForStatement& statement) {
  if (statement.first && Execute(*statement.first) == Flow::Failed) return Flow::Failed;
  for (;;) {
    bool truth = true;
    if (statement.condition && !Test(*statement.condition, truth)) return Flow::Failed;
    if (!truth) return Flow::Next;
    const Flow flow = Execute(*statement.body);
    if (flow == Flow::Break) return Flow::Next;
    if (flow == Flow::Return || flow == Flow::Failed) return flow;
    if (statement.step && Execute(*statement.step) == Flow::Failed) return Flow::Failed;
  }
}

Flow Interpreter::ExecuteTry(const TryStatement& statement) {
  const Flow flow = Execute(*statement.body);
  if (flow != Flow::Failed) return flow;
  const Error error = *PendingError();
  ClearError();
  CurrentTrace().Clear();
  Slot& code = SlotOf(*statement.code);
  Slot& text = SlotOf(*statement.text);
  code.value = error.code;
  AssignText(text.value, error.text);
  code.assigned = text.assigned = true;
  return Execute(*statement.handler);
}

Flow Interpreter::ExecuteReturn(const ReturnStatement& statement) {
  Variable value;
  if (statement.value && !Evaluate(*statement.value, value)) return Flow::Failed;
  Assign(result, value);
  return Flow::Return;
}

bool Interpreter::EvaluateForEffect(const Expression& expression) {
  Variable unused;
  return Evaluate(expression, unused);
}

// Prints the value as a line, unless it is nothing.
bool Interpreter::Show(const Expression& expression) {
  Variable value;
  if (!Evaluate(expression, value)) return false;
  if (value.type == kEmptyType) return true;
  Print(TextOf(value) + "\n");
  return true;
}

}  // namespace devhost::script
