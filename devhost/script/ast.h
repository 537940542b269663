// A parsed script. Names are already resolved to the numbers of their variables.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "devhost/runtime/runtime.h"
#include "devhost/script/source.h"

namespace devhost::script {

struct Builtin;

// What every expression has. Its kind says which of the types below it is.
struct Expression {
  enum class Kind {
    Number,      // NumberExpression
    Text,        // TextExpression
    Global,      // NameExpression
    Local,       // NameExpression
    Array,       // ArrayExpression
    Index,       // IndexExpression
    Field,       // FieldExpression
    Call,        // CallExpression
    CallMethod,  // CallMethodExpression
    New,         // NewExpression
    Negate,      // UnaryExpression, as the next ones
    Invert,
    Not,
    Compute,  // BinaryExpression, as all that follow
    ShiftLeft,
    ShiftRight,
    Equal,
    NotEqual,
    Less,
    LessEqual,
    Greater,
    GreaterEqual,
    And,
    Or,
  };

  Expression(Kind nodeKind, Position position) : kind(nodeKind), at(position) {}
  virtual ~Expression() = default;

  // Whether it names a variable; whether it can be assigned to.
  bool IsName() const { return kind == Kind::Global || kind == Kind::Local; }
  bool IsPlace() const { return IsName() || kind == Kind::Index || kind == Kind::Field; }

  Kind kind;
  Position at;
  int height = 1;  // levels of the tree from here down
};
using ExpressionPtr = std::unique_ptr<Expression>;

// A number, true or false.
struct NumberExpression : Expression {
  using Expression::Expression;
  Variable number;
};

struct TextExpression : Expression {
  using Expression::Expression;
  std::string bytes;
};

// A variable; while a function is parsed, its names are taken for global ones.
struct NameExpression : Expression {
  using Expression::Expression;
  std::string name;
  int slot = 0;
};

struct ArrayExpression : Expression {
  using Expression::Expression;
  std::vector<ExpressionPtr> elements;
};

struct IndexExpression : Expression {
  using Expression::Expression;
  ExpressionPtr container;
  ExpressionPtr index;
};

struct FieldExpression : Expression {
  using Expression::Expression;
  ExpressionPtr object;
  std::string name;
};

struct CallExpression : Expression {
  using Expression::Expression;
  ExpressionPtr function;
  std::vector<ExpressionPtr> arguments;
  std::string_view firstArgument;    // as the source has it
  const Builtin* builtin = nullptr;  // what the call means when no variable has the function's name
};

struct CallMethodExpression : Expression {
  using Expression::Expression;
  ExpressionPtr object;
  std::string method;
  std::vector<ExpressionPtr> arguments;
};

struct NewExpression : Expression {
  using Expression::Expression;
  std::string className;
  std::vector<ExpressionPtr> arguments;
};

struct UnaryExpression : Expression {
  using Expression::Expression;
  ExpressionPtr operand;
};

struct BinaryExpression : Expression {
  using Expression::Expression;
  Operator op = Operator::Add;  // of the kind Compute
  ExpressionPtr left;
  ExpressionPtr right;
};

// What every statement has. Its kind says which of the types below it is.
struct Statement {
  enum class Kind {
    Evaluate,  // ExpressionStatement
    Show,      // ExpressionStatement
    Assign,    // AssignStatement
    Block,     // BlockStatement
    If,        // IfStatement
    While,     // WhileStatement
    For,       // ForStatement
    Return,    // ReturnStatement
    Try,       // TryStatement
    Break,     // nothing more
    Continue,  // nothing more
  };

  Statement(Kind nodeKind, Position position) : kind(nodeKind), at(position) {}
  virtual ~Statement() = default;

  Kind kind;
  Position at;
};
using StatementPtr = std::unique_ptr<Statement>;

// Evaluates for what that does, or, at the prompt, shows the value.
struct ExpressionStatement : Statement {
  using Statement::Statement;
  ExpressionPtr expression;
};

struct AssignStatement : Statement {
  using Statement::Statement;
  ExpressionPtr place;
  std::optional<Operator> op;  // += -= *= /=; none for =
  ExpressionPtr value;
};

struct BlockStatement : Statement {
  using Statement::Statement;
  std::vector<StatementPtr> statements;
};

struct IfStatement : Statement {
  using Statement::Statement;
  ExpressionPtr condition;
  StatementPtr thenBranch;
  StatementPtr elseBranch;  // may be null
};

struct WhileStatement : Statement {
  using Statement::Statement;
  ExpressionPtr condition;
  StatementPtr body;
};

// Each part but the body may be null.
struct ForStatement : Statement {
  using Statement::Statement;
  StatementPtr first;
  ExpressionPtr condition;
  StatementPtr step;
  StatementPtr body;
};

struct ReturnStatement : Statement {
  using Statement::Statement;
  ExpressionPtr value;  // may be null
};

struct TryStatement : Statement {
  using Statement::Statement;
  StatementPtr body;
  std::unique_ptr<NameExpression> code;  // what the error's number and text are assigned to
  std::unique_ptr<NameExpression> text;
  StatementPtr handler;
};

// A node as the type that its kind says.
template <typename Node, typename Base>
const Node& As(const Base& node) {
  return static_cast<const Node&>(node);
}

// A function that the script defines.
struct FunctionDefinition {
  std::string name;
  int slot = 0;                     // of the script-level variable that holds it
  int parameterCount = 0;           // they are the first locals
  std::vector<std::string> locals;  // their names, by slot
  StatementPtr body;
};

// A whole script.
struct Program {
  std::vector<std::unique_ptr<Source>> sources;  // the script and what it includes
  int parameterCount = 0;                        // of `param`; they are the first globals
  std::vector<std::string> globals;              // their names, by slot
  std::vector<std::unique_ptr<FunctionDefinition>> functions;
  std::vector<StatementPtr> statements;
};

}  // namespace devhost::script
