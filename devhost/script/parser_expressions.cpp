// Expressions, by operator precedence.
#include <algorithm>
#include <limits>
#include <utility>

#include "devhost/script/builtins.h"
#include "devhost/script/parser.h"

namespace devhost::script {
namespace {

using Kind = Expression::Kind;

struct BinaryOperator {
  TokenKind token;
  int rank;  // a higher one binds tighter
  Kind kind = Kind::Negate;
  Operator op = Operator::Add;
};

constexpr BinaryOperator kBinaryOperators[] = {
    {TokenKind::OrOr, 1, Kind::Or},
    {TokenKind::AndAnd, 2, Kind::And},
    {TokenKind::Or, 3, Kind::Compute, Operator::Or},
    {TokenKind::Xor, 4, Kind::Compute, Operator::Xor},
    {TokenKind::And, 5, Kind::Compute, Operator::And},
    {TokenKind::Equal, 6, Kind::Equal},
    {TokenKind::NotEqual, 6, Kind::NotEqual},
    {TokenKind::Less, 7, Kind::Less},
    {TokenKind::LessEqual, 7, Kind::LessEqual},
    {TokenKind::Greater, 7, Kind::Greater},
    {TokenKind::GreaterEqual, 7, Kind::GreaterEqual},
    {TokenKind::ShiftLeft, 8, Kind::ShiftLeft},
    {TokenKind::ShiftRight, 8, Kind::ShiftRight},
    {TokenKind::Plus, 9, Kind::Compute, Operator::Add},
    {TokenKind::Minus, 9, Kind::Compute, Operator::Subtract},
    {TokenKind::Star, 10, Kind::Compute, Operator::Multiply},
    {TokenKind::Slash, 10, Kind::Compute, Operator::Divide},
    {TokenKind::Percent, 10, Kind::Compute, Operator::Remainder},
};

const BinaryOperator* FindBinaryOperator(TokenKind token) {
  const auto found = std::find_if(std::begin(kBinaryOperators), std::end(kBinaryOperators),
                                  [token](const BinaryOperator& candidate) { return candidate.token == token; });
  return found != std::end(kBinaryOperators) ? found : nullptr;
}

}  // namespace

std::unique_ptr<NameExpression> Parser::NewName(std::string name, Position at) {
  auto expression = std::make_unique<NameExpression>(Kind::Global, at);
  expression->name = std::move(name);
  if (function) {
    function->names.push_back(expression.get());
  } else {
    expression->slot = GlobalSlot(expression->name);
  }
  return expression;
}

// Puts the operand into its place in the parent. False for a null operand, and when the tree grows too high: chains
// such as 1 + 1 + 1 + ... deepen it without nesting in the text.
bool Parser::Attach(Expression& parent, ExpressionPtr& place, ExpressionPtr operand) {
  if (!operand) return false;
  parent.height = std::max(parent.height, operand->height + 1);
  place = std::move(operand);
  if (parent.height <= kMaxNesting) return true;
  return Fail(parent.at.offset, "the expression is too long: more than 200 operations deep");
}

ExpressionPtr Parser::ParseExpression() { return ParseBinary(1); }

ExpressionPtr Parser::ParseBinary(int lowestRank) {
  ExpressionPtr left = ParseUnary();
  while (left) {
    const BinaryOperator* found = FindBinaryOperator(token.kind);
    if (!found || found->rank < lowestRank) break;
    auto parent = std::make_unique<BinaryExpression>(found->kind, Here());
    parent->op = found->op;
    Advance();
    if (!Attach(*parent, parent->left, std::move(left))) return nullptr;
    if (!Attach(*parent, parent->right, ParseBinary(found->rank + 1))) return nullptr;
    left = std::move(parent);
  }
  return left;
}

ExpressionPtr Parser::ParseUnary() {
  const Nesting nesting(*this);
  if (nesting.tooDeep) return nullptr;
  Kind kind = Kind::Negate;
  if (token.kind == TokenKind::Tilde) {
    kind = Kind::Invert;
  } else if (token.kind == TokenKind::Not) {
    kind = Kind::Not;
  } else if (token.kind != TokenKind::Minus) {
    return ParsePostfix();
  }
  auto unary = std::make_unique<UnaryExpression>(kind, Here());
  Advance();
  if (!Attach(*unary, unary->operand, ParseUnary())) return nullptr;
  return unary;
}

ExpressionPtr Parser::ParsePostfix() {
  ExpressionPtr expression = ParsePrimary();
  while (expression) {
    if (token.kind == TokenKind::LeftParen) {
      expression = ParseCall(std::move(expression));
    } else if (token.kind == TokenKind::LeftBracket) {
      expression = ParseIndex(std::move(expression));
    } else if (token.kind == TokenKind::Dot || token.kind == TokenKind::Arrow) {
      expression = ParseMember(std::move(expression));
    } else {
      break;
    }
  }
  return expression;
}

// "(arguments)" behind a function.
ExpressionPtr Parser::ParseCall(ExpressionPtr callee) {
  auto call = std::make_unique<CallExpression>(Kind::Call, callee->at);
  if (callee->IsName()) call->builtin = FindBuiltin(As<NameExpression>(*callee).name);
  if (!Attach(*call, call->function, std::move(callee))) return nullptr;
  Advance();
  if (!ParseArguments(*call, call->arguments, &call->firstArgument)) return nullptr;
  return call;
}

ExpressionPtr Parser::ParseIndex(ExpressionPtr container) {
  auto element = std::make_unique<IndexExpression>(Kind::Index, Here());
  Advance();
  if (!Attach(*element, element->container, std::move(container))) return nullptr;
  if (!Attach(*element, element->index, ParseExpression())) return nullptr;
  if (!Expect(TokenKind::RightBracket, "after the index")) return nullptr;
  return element;
}

// ".field", "->field" or "->Method(arguments)" behind an object.
ExpressionPtr Parser::ParseMember(ExpressionPtr object) {
  Advance();
  auto field = std::make_unique<FieldExpression>(Kind::Field, Here());
  if (!Attach(*field, field->object, std::move(object))) return nullptr;
  if (!ExpectName(field->name, "the name of a field or method")) return nullptr;
  if (!Accept(TokenKind::LeftParen)) return field;
  auto call = std::make_unique<CallMethodExpression>(Kind::CallMethod, field->at);
  call->method = std::move(field->name);
  if (!Attach(*call, call->object, std::move(field->object))) return nullptr;
  if (!ParseArguments(*call, call->arguments)) return nullptr;
  return call;
}

// What stands behind the "(" of a call. Fills `first`, if it is not null, with the first argument as the source has it.
bool Parser::ParseArguments(Expression& call, std::vector<ExpressionPtr>& arguments, std::string_view* first) {
  return ParseOperands(call, arguments, TokenKind::RightParen, "or ',' after the argument", first);
}

// Expressions divided by commas, up to and with the token that ends them.
bool Parser::ParseOperands(Expression& parent, std::vector<ExpressionPtr>& operands, TokenKind end,
                           std::string_view where, std::string_view* first) {
  if (Accept(end)) return true;
  do {
    const std::size_t start = token.offset;
    ExpressionPtr operand = ParseExpression();
    if (!Attach(parent, operands.emplace_back(), std::move(operand))) return false;
    if (first && operands.size() == 1) *first = std::string_view(source.text).substr(start, previousEnd - start);
  } while (Accept(TokenKind::Comma));
  return Expect(end, where);
}

ExpressionPtr Parser::ParsePrimary() {
  switch (token.kind) {
    case TokenKind::Name: {
      const Position at = Here();
      std::string name = std::move(token.text);
      Advance();
      return NewName(std::move(name), at);
    }
    case TokenKind::LeftParen: {
      Advance();
      ExpressionPtr inner = ParseExpression();
      if (!inner || !Expect(TokenKind::RightParen, "after the expression")) return nullptr;
      return inner;
    }
    case TokenKind::LeftBracket:
      return ParseArray();
    case TokenKind::Text:
      return ParseText();
    case TokenKind::New:
      return ParseNew();
    default:
      return ParseNumber();
  }
}

ExpressionPtr Parser::ParseArray() {
  auto array = std::make_unique<ArrayExpression>(Kind::Array, Here());
  Advance();
  if (!ParseOperands(*array, array->elements, TokenKind::RightBracket, "or ',' after the element")) return nullptr;
  return array;
}

ExpressionPtr Parser::ParseText() {
  auto text = std::make_unique<TextExpression>(Kind::Text, Here());
  text->bytes = std::move(token.text);
  Advance();
  return text;
}

ExpressionPtr Parser::ParseNumber() {
  auto literal = std::make_unique<NumberExpression>(Kind::Number, Here());
  switch (token.kind) {
    case TokenKind::Integer:
      if (token.integer <= std::numeric_limits<int>::max()) {
        literal->number = static_cast<int>(token.integer);
      } else {
        literal->number = token.integer;
      }
      break;
    case TokenKind::Real:
      literal->number = token.real;
      break;
    case TokenKind::True:
    case TokenKind::False:
      AssignBool(literal->number, token.kind == TokenKind::True);
      break;
    default:
      FailExpected("a value");
      return nullptr;
  }
  Advance();
  return literal;
}

ExpressionPtr Parser::ParseNew() {
  Advance();
  auto object = std::make_unique<NewExpression>(Kind::New, Here());
  if (!ExpectName(object->className, "the name of a class after 'new'")) return nullptr;
  if (!Expect(TokenKind::LeftParen, "after the name of the class")) return nullptr;
  if (!ParseArguments(*object, object->arguments)) return nullptr;
  return object;
}

}  // namespace devhost::script
