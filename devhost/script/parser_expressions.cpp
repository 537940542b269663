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

ExpressionPtr Parser::NewExpression(Kind kind, std::size_t offset) {
  auto expression = std::make_unique<Expression>();
  expression->kind = kind;
  expression->at = {&source, offset};
  return expression;
}

ExpressionPtr Parser::NewName(std::string name, std::size_t offset) {
  ExpressionPtr expression = NewExpression(Kind::Global, offset);
  expression->text = std::move(name);
  if (function != nullptr) {
    function->names.push_back(expression.get());
  } else {
    expression->slot = GlobalSlot(expression->text);
  }
  return expression;
}

// False for a null operand, and when the tree grows too high: chains such as 1 + 1 + 1 + ... deepen it without
// nesting in the text.
bool Parser::AddOperand(Expression& parent, ExpressionPtr operand) {
  if (operand == nullptr) return false;
  parent.height = std::max(parent.height, operand->height + 1);
  parent.operands.push_back(std::move(operand));
  if (parent.height <= kMaxNesting) return true;
  return Fail(parent.at.offset, "the expression is too long: more than 200 operations deep");
}

ExpressionPtr Parser::ParseExpression() { return ParseBinary(1); }

ExpressionPtr Parser::ParseBinary(int lowestRank) {
  ExpressionPtr left = ParseUnary();
  while (left != nullptr) {
    const BinaryOperator* found = FindBinaryOperator(token.kind);
    if (found == nullptr || found->rank < lowestRank) break;
    ExpressionPtr parent = NewExpression(found->kind, token.offset);
    parent->op = found->op;
    Advance();
    if (!AddOperand(*parent, std::move(left)) || !AddOperand(*parent, ParseBinary(found->rank + 1))) return nullptr;
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
  ExpressionPtr expression = NewExpression(kind, token.offset);
  Advance();
  if (!AddOperand(*expression, ParseUnary())) return nullptr;
  return expression;
}

ExpressionPtr Parser::ParsePostfix() {
  ExpressionPtr expression = ParsePrimary();
  while (expression != nullptr) {
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
  ExpressionPtr call = NewExpression(Kind::Call, callee->at.offset);
  if (callee->IsName()) call->builtin = FindBuiltin(callee->text);
  if (!AddOperand(*call, std::move(callee))) return nullptr;
  Advance();
  return ParseOperands(*call, TokenKind::RightParen, "or ',' after the argument") ? std::move(call) : nullptr;
}

ExpressionPtr Parser::ParseIndex(ExpressionPtr container) {
  ExpressionPtr index = NewExpression(Kind::Index, token.offset);
  Advance();
  if (!AddOperand(*index, std::move(container)) || !AddOperand(*index, ParseExpression())) return nullptr;
  return Expect(TokenKind::RightBracket, "after the index") ? std::move(index) : nullptr;
}

// ".field", "->field" or "->Method(arguments)" behind an object.
ExpressionPtr Parser::ParseMember(ExpressionPtr object) {
  Advance();
  ExpressionPtr member = NewExpression(Kind::Field, token.offset);
  if (!AddOperand(*member, std::move(object))) return nullptr;
  if (!ExpectName(member->text, "the name of a field or method")) return nullptr;
  if (!Accept(TokenKind::LeftParen)) return member;
  member->kind = Kind::CallMethod;
  return ParseOperands(*member, TokenKind::RightParen, "or ',' after the argument") ? std::move(member) : nullptr;
}

// Expressions divided by commas, up to and with the token that ends them.
bool Parser::ParseOperands(Expression& parent, TokenKind end, std::string_view where) {
  if (Accept(end)) return true;
  do {
    const std::size_t start = token.offset;
    if (!AddOperand(parent, ParseExpression())) return false;
    if (parent.builtin != nullptr && parent.text.empty()) parent.text = source.text.substr(start, previousEnd - start);
  } while (Accept(TokenKind::Comma));
  return Expect(end, where);
}

ExpressionPtr Parser::ParsePrimary() {
  const std::size_t offset = token.offset;
  switch (token.kind) {
    case TokenKind::Name: {
      std::string name = std::move(token.text);
      Advance();
      return NewName(std::move(name), offset);
    }
    case TokenKind::LeftParen: {
      Advance();
      ExpressionPtr inner = ParseExpression();
      if (inner == nullptr || !Expect(TokenKind::RightParen, "after the expression")) return nullptr;
      return inner;
    }
    case TokenKind::LeftBracket: {
      ExpressionPtr array = NewExpression(Kind::Array, offset);
      Advance();
      return ParseOperands(*array, TokenKind::RightBracket, "or ',' after the element") ? std::move(array) : nullptr;
    }
    case TokenKind::New:
      return ParseNew();
    default:
      return ParseLiteral();
  }
}

ExpressionPtr Parser::ParseLiteral() {
  ExpressionPtr literal = NewExpression(Kind::Number, token.offset);
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
    case TokenKind::Text:
      literal->kind = Kind::Text;
      literal->text = std::move(token.text);
      break;
    case TokenKind::True:
      literal->kind = Kind::True;
      break;
    case TokenKind::False:
      literal->kind = Kind::False;
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
  ExpressionPtr object = NewExpression(Kind::New, token.offset);
  if (!ExpectName(object->text, "the name of a class after 'new'")) return nullptr;
  if (!Expect(TokenKind::LeftParen, "after the name of the class")) return nullptr;
  return ParseOperands(*object, TokenKind::RightParen, "or ',' after the argument") ? std::move(object) : nullptr;
}

}  // namespace devhost::script
