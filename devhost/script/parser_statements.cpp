// Statements.
#include <utility>

#include "devhost/script/parser.h"

namespace devhost::script {

using Kind = Statement::Kind;

namespace {

// What += and its like compute before they assign; none for any other token.
std::optional<Operator> OperatorOf(TokenKind token) {
  switch (token) {
    case TokenKind::AssignSum:
      return Operator::Add;
    case TokenKind::AssignDifference:
      return Operator::Subtract;
    case TokenKind::AssignProduct:
      return Operator::Multiply;
    case TokenKind::AssignQuotient:
      return Operator::Divide;
    default:
      return std::nullopt;
  }
}

bool IsAssignment(TokenKind token) { return token == TokenKind::Assign || OperatorOf(token); }

}  // namespace

StatementPtr Parser::ParseStatement() {
  const Nesting nesting(*this);
  if (nesting.tooDeep) return nullptr;
  return ParseStatementOfKind();
}

StatementPtr Parser::ParseStatementOfKind() {
  switch (token.kind) {
    case TokenKind::LeftBrace:
      return ParseBlock();
    case TokenKind::If:
      return ParseIf();
    case TokenKind::While:
      return ParseWhile();
    case TokenKind::For:
      return ParseFor();
    case TokenKind::Try:
      return ParseTry();
    case TokenKind::Return:
      return ParseReturn();
    case TokenKind::Break:
      return ParseLoopExit(Kind::Break);
    case TokenKind::Continue:
      return ParseLoopExit(Kind::Continue);
    case TokenKind::Semicolon: {
      auto nothing = std::make_unique<BlockStatement>(Kind::Block, Here());
      Advance();
      return nothing;
    }
    case TokenKind::Param:
      Fail(token.offset, "'param' must be the script's first statement");
      return nullptr;
    case TokenKind::Include:
    case TokenKind::Function:
      Fail(token.offset, "'" + std::string(SpellingOf(token.kind)) + "' stands at the script's top level only");
      return nullptr;
    default: {
      StatementPtr statement = ParseSimple(StandsAtPrompt());
      if (!statement || !EndStatement()) return nullptr;
      return statement;
    }
  }
}

StatementPtr Parser::ParseBlock() {
  auto block = std::make_unique<BlockStatement>(Kind::Block, Here());
  Advance();
  while (token.kind != TokenKind::RightBrace) {
    if (token.kind == TokenKind::End) {
      Fail(block->at.offset, "the '{' here has no '}'");
      return nullptr;
    }
    StatementPtr statement = ParseStatement();
    if (!statement) return nullptr;
    block->statements.push_back(std::move(statement));
  }
  Advance();
  return block;
}

// "(condition)" behind if and while.
ExpressionPtr Parser::ParseCondition() {
  if (!Expect(TokenKind::LeftParen, "before the condition")) return nullptr;
  ExpressionPtr condition = ParseExpression();
  if (!condition || !Expect(TokenKind::RightParen, "after the condition")) return nullptr;
  return condition;
}

StatementPtr Parser::ParseIf() {
  auto statement = std::make_unique<IfStatement>(Kind::If, Here());
  Advance();
  if (!(statement->condition = ParseCondition())) return nullptr;
  if (!(statement->thenBranch = ParseStatement())) return nullptr;
  if (Accept(TokenKind::Else) && !(statement->elseBranch = ParseStatement())) return nullptr;
  return statement;
}

StatementPtr Parser::ParseLoopBody() {
  ++loops;
  StatementPtr body = ParseStatement();
  --loops;
  return body;
}

StatementPtr Parser::ParseWhile() {
  auto statement = std::make_unique<WhileStatement>(Kind::While, Here());
  Advance();
  if (!(statement->condition = ParseCondition())) return nullptr;
  if (!(statement->body = ParseLoopBody())) return nullptr;
  return statement;
}

StatementPtr Parser::ParseFor() {
  auto statement = std::make_unique<ForStatement>(Kind::For, Here());
  Advance();
  if (!Expect(TokenKind::LeftParen, "after 'for'")) return nullptr;
  if (token.kind != TokenKind::Semicolon && !(statement->first = ParseSimple())) return nullptr;
  if (!Expect(TokenKind::Semicolon, "after the first part of 'for'")) return nullptr;
  if (token.kind != TokenKind::Semicolon && !(statement->condition = ParseExpression())) return nullptr;
  if (!Expect(TokenKind::Semicolon, "after the condition of 'for'")) return nullptr;
  if (token.kind != TokenKind::RightParen && !(statement->step = ParseSimple())) return nullptr;
  if (!Expect(TokenKind::RightParen, "after the step of 'for'")) return nullptr;
  if (!(statement->body = ParseLoopBody())) return nullptr;
  return statement;
}

StatementPtr Parser::ParseTry() {
  auto statement = std::make_unique<TryStatement>(Kind::Try, Here());
  Advance();
  if (!(statement->body = ParseBlockBehind("'try'"))) return nullptr;
  if (!Expect(TokenKind::Catch, "after the statements of 'try'")) return nullptr;
  if (!Expect(TokenKind::LeftParen, "after 'catch'")) return nullptr;
  if (!(statement->code = ParseCaughtName("a name for the error's code"))) return nullptr;
  if (!Expect(TokenKind::Comma, "after the name for the error's code")) return nullptr;
  if (!(statement->text = ParseCaughtName("a name for the error's text"))) return nullptr;
  if (!Expect(TokenKind::RightParen, "after the name for the error's text")) return nullptr;
  if (!(statement->handler = ParseBlockBehind("'catch (...)'"))) return nullptr;
  return statement;
}

// "{ ... }" where nothing else may stand.
StatementPtr Parser::ParseBlockBehind(std::string_view what) {
  if (token.kind == TokenKind::LeftBrace) return ParseBlock();
  FailExpected(std::string("'{' after ").append(what));
  return nullptr;
}

// A variable that takes a part of the error.
std::unique_ptr<NameExpression> Parser::ParseCaughtName(std::string_view what) {
  const Position at = Here();
  std::string name;
  if (!ExpectName(name, what)) return nullptr;
  Declare(name);
  return NewName(std::move(name), at);
}

StatementPtr Parser::ParseReturn() {
  auto statement = std::make_unique<ReturnStatement>(Kind::Return, Here());
  Advance();
  const bool isBare = token.kind == TokenKind::Semicolon || token.kind == TokenKind::End;
  if (!isBare && !(statement->value = ParseExpression())) return nullptr;
  if (!EndStatement()) return nullptr;
  return statement;
}

StatementPtr Parser::ParseLoopExit(Kind kind) {
  if (loops == 0) {
    Fail(token.offset, "'" + std::string(SpellingOf(token.kind)) + "' stands inside a loop only");
    return nullptr;
  }
  auto statement = std::make_unique<Statement>(kind, Here());
  Advance();
  if (!EndStatement()) return nullptr;
  return statement;
}

// Whether the statement was entered at a prompt by itself, in no block, loop, function or file.
bool Parser::StandsAtPrompt() const { return compilation.atPrompt && compilation.nesting == 1 && !function; }

// An assignment or a call, without a semicolon; or any value, to be shown.
StatementPtr Parser::ParseSimple(bool showsValue) {
  const Position at = Here();
  ExpressionPtr expression = ParseExpression();
  if (!expression) return nullptr;
  if (IsAssignment(token.kind)) return ParseAssignment(std::move(expression), at);
  const Expression::Kind kind = expression->kind;
  const bool isCall = kind == Expression::Kind::Call || kind == Expression::Kind::CallMethod;
  if (!showsValue && !isCall && kind != Expression::Kind::New) {
    FailExpected("an assignment or a call: this value would not be used");
    return nullptr;
  }
  auto statement = std::make_unique<ExpressionStatement>(showsValue ? Kind::Show : Kind::Evaluate, at);
  statement->expression = std::move(expression);
  return statement;
}

// "= value" or its like behind a place.
StatementPtr Parser::ParseAssignment(ExpressionPtr place, Position at) {
  if (!place->IsPlace()) {
    Fail(place->at.offset, "expected a variable, an element or a field left of the assignment");
    return nullptr;
  }
  if (place->IsName()) Declare(As<NameExpression>(*place).name);
  auto statement = std::make_unique<AssignStatement>(Kind::Assign, at);
  statement->place = std::move(place);
  statement->op = OperatorOf(token.kind);
  Advance();
  if (!(statement->value = ParseExpression())) return nullptr;
  return statement;
}

}  // namespace devhost::script
