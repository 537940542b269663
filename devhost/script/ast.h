// A parsed script. Names are already resolved to the numbers of their variables.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "devhost/runtime/runtime.h"
#include "devhost/script/source.h"

namespace devhost::script {

struct Builtin;
struct Expression;
struct Statement;
using ExpressionPtr = std::unique_ptr<Expression>;
using StatementPtr = std::unique_ptr<Statement>;

struct Expression {
  // With what each kind keeps in `operands` and `text`.
  enum class Kind {
    Number,      // (number)
    Text,        // text: the bytes
    True,        // -
    False,       // -
    Global,      // (slot) text: the name
    Local,       // (slot) text: the name
    Array,       // the elements
    Index,       // container, index
    Field,       // object; text: the name
    Call,        // function, arguments...; text of a builtin: the source of the first argument
    CallMethod,  // object, arguments...; text: the name
    New,         // arguments...; text: the class
    Negate,      // operand
    Invert,      // operand
    Not,         // operand
    Compute,     // left, right (op)
    ShiftLeft,   // left, right
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

  Kind kind = Kind::Number;
  Position at;
  int height = 1;  // levels of the tree from here down
  int slot = 0;
  Operator op = Operator::Add;
  const Builtin* builtin = nullptr;  // what a call means when no variable has the function's name
  Variable number;
  std::string text;
  std::vector<ExpressionPtr> operands;

  // Whether it names a variable; whether it can be assigned to.
  bool IsName() const { return kind == Kind::Global || kind == Kind::Local; }
  bool IsPlace() const { return IsName() || kind == Kind::Index || kind == Kind::Field; }
};

struct Statement {
  // With what each kind keeps in `expressions` and in `statements`.
  enum class Kind {
    Evaluate,  // expression;
    Show,      // expression; at the prompt: its value is printed
    Assign,    // place, value (op)
    Block,     // ; the statements
    If,        // condition; then, else or null
    While,     // condition; body
    For,       // condition or null; first or null, step or null, body
    Return,    // value or null
    Break,     // -
    Continue,  // -
    Try,       // the code's name, the text's name; body, handler
  };

  Kind kind = Kind::Block;
  Position at;
  std::optional<Operator> op;  // += -= *= /=; none for =
  std::vector<ExpressionPtr> expressions;
  std::vector<StatementPtr> statements;
};

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
