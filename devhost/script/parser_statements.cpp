// Statements.
#include <utility>

#include "devhost/script/parser.h"

namespace devhost::script {

StatementPtr Parser::NewStatement(Statement::Kind kind) {
  auto statement = std::make_unique<Statement>();
  statement->kind = kind;
  statement->at = Here();
  return statement;
}

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
      return ParseLoopExit(Statement::Kind::Break);
    case TokenKind::Continue:
      return ParseLoopExit(Statement::Kind::Continue);
    case TokenKind::Semicolon: {
      StatementPtr nothing = NewStatement(Statement::Kind::Block);
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
      if (statement == nullptr || !EndStatement()) return nullptr;
      return statement;
    }
  }
}

StatementPtr Parser::ParseBlock() {
  StatementPtr block = NewStatement(Statement::Kind::Block);
  const std::size_t open = token.offset;
  Advance();
  while (token.kind != TokenKind::RightBrace) {
    if (token.kind == TokenKind::End) {
      Fail(open, "the '{' here has no '}'");
      return nullptr;
    }
    StatementPtr statement = ParseStatement();
    if (statement == nullptr) return nullptr;
    block->statements.push_back(std::move(statement));
  }
  Advance();
  return block;
}

// "(condition)" behind if and while.
bool Parser::ParseCondition(Statement& statement) {
  if (!Expect(TokenKind::LeftParen, "before the condition")) return false;
  statement.expressions.push_back(ParseExpression());
  return statement.expressions.back() != nullptr && Expect(TokenKind::RightParen, "after the condition");
}

StatementPtr Parser::ParseIf() {
  StatementPtr statement = NewStatement(Statement::Kind::If);
  Advance();
  if (!ParseCondition(*statement)) return nullptr;
  StatementPtr thenBranch = ParseStatement();
  if (thenBranch == nullptr) return nullptr;
  StatementPtr elseBranch;
  if (Accept(TokenKind::Else)) {
    elseBranch = ParseStatement();
    if (elseBranch == nullptr) return nullptr;
  }
  statement->statements.push_back(std::move(thenBranch));
  statement->statements.push_back(std::move(elseBranch));
  return statement;
}

StatementPtr Parser::ParseLoopBody() {
  ++loops;
  StatementPtr body = ParseStatement();
  --loops;
  return body;
}

StatementPtr Parser::ParseWhile() {
  StatementPtr statement = NewStatement(Statement::Kind::While);
  Advance();
  if (!ParseCondition(*statement)) return nullptr;
  statement->statements.push_back(ParseLoopBody());
  return statement->statements.back() != nullptr ? std::move(statement) : nullptr;
}

StatementPtr Parser::ParseFor() {
  StatementPtr statement = NewStatement(Statement::Kind::For);
  Advance();
  if (!Expect(TokenKind::LeftParen, "after 'for'")) return nullptr;
  StatementPtr first;
  ExpressionPtr condition;
  StatementPtr step;
  if (token.kind != TokenKind::Semicolon && (first = ParseSimple()) == nullptr) return nullptr;
  if (!Expect(TokenKind::Semicolon, "after the first part of 'for'")) return nullptr;
  if (token.kind != TokenKind::Semicolon && (condition = ParseExpression()) == nullptr) return nullptr;
  if (!Expect(TokenKind::Semicolon, "after the condition of 'for'")) return nullptr;
  if (token.kind != TokenKind::RightParen && (step = ParseSimple()) == nullptr) return nullptr;
  if (!Expect(TokenKind::RightParen, "after the step of 'for'")) return nullptr;
  StatementPtr body = ParseLoopBody();
  if (body == nullptr) return nullptr;
  statement->expressions.push_back(std::move(condition));
  statement->statements.push_back(std::move(first));
  statement->statements.push_back(std::move(step));
  statement->statements.push_back(std::move(body));
  return statement;
}

StatementPtr Parser::ParseTry() {
  StatementPtr statement = NewStatement(Statement::Kind::Try);
  Advance();
  if (token.kind != TokenKind::LeftBrace) {
    FailExpected("'{' after 'try'");
    return nullptr;
  }
  StatementPtr body = ParseBlock();
  if (body == nullptr || !Expect(TokenKind::Catch, "after the statements of 'try'")) return nullptr;
  if (!Expect(TokenKind::LeftParen, "after 'catch'")) return nullptr;
  for (const char* what : {"a name for the error's code", "a name for the error's text"}) {
    const std::size_t offset = token.offset;
    std::string name;
    if (!statement->expressions.empty() && !Expect(TokenKind::Comma, "after the name for the error's code"))
      return nullptr;
    if (!ExpectName(name, what)) return nullptr;
    Declare(name);
    statement->expressions.push_back(NewName(std::move(name), offset));
  }
  if (!Expect(TokenKind::RightParen, "after the name for the error's text")) return nullptr;
  if (token.kind != TokenKind::LeftBrace) {
    FailExpected("'{' after 'catch (...)'");
    return nullptr;
  }
  StatementPtr handler = ParseBlock();
  if (handler == nullptr) return nullptr;
  statement->statements.push_back(std::move(body));
  statement->statements.push_back(std::move(handler));
  return statement;
}

StatementPtr Parser::ParseReturn() {
  StatementPtr statement = NewStatement(Statement::Kind::Return);
  Advance();
  ExpressionPtr value;
  const bool isBare = token.kind == TokenKind::Semicolon || token.kind == TokenKind::End;
  if (!isBare && (value = ParseExpression()) == nullptr) return nullptr;
  statement->expressions.push_back(std::move(value));
  return EndStatement() ? std::move(statement) : nullptr;
}

StatementPtr Parser::ParseLoopExit(Statement::Kind kind) {
  if (loops == 0) {
    Fail(token.offset, "'" + std::string(SpellingOf(token.kind)) + "' stands inside a loop only");
    return nullptr;
  }
  StatementPtr statement = NewStatement(kind);
  Advance();
  if (!EndStatement()) return nullptr;
  return statement;
}

// Whether the statement was entered at a prompt by itself, in no block, loop, function or file.
bool Parser::StandsAtPrompt() const { return compilation.atPrompt && compilation.nesting == 1 && function == nullptr; }

// An assignment or a call, without a semicolon; or any value, to be shown.
StatementPtr Parser::ParseSimple(bool showsValue) {
  StatementPtr statement = NewStatement(Statement::Kind::Assign);
  ExpressionPtr target = ParseExpression();
  if (target == nullptr) return nullptr;
  switch (token.kind) {
    case TokenKind::Assign:
      break;
    case TokenKind::AssignSum:
      statement->op = Operator::Add;
      break;
    case TokenKind::AssignDifference:
      statement->op = Operator::Subtract;
      break;
    case TokenKind::AssignProduct:
      statement->op = Operator::Multiply;
      break;
    case TokenKind::AssignQuotient:
      statement->op = Operator::Divide;
      break;
    default:
      statement->kind = showsValue ? Statement::Kind::Show : Statement::Kind::Evaluate;
  }
  using Kind = Expression::Kind;
  if (statement->kind != Statement::Kind::Assign) {
    if (!showsValue && target->kind != Kind::Call && target->kind != Kind::CallMethod && target->kind != Kind::New) {
      FailExpected("an assignment or a call: this value would not be used");
      return nullptr;
    }
    statement->expressions.push_back(std::move(target));
    return statement;
  }
  if (!target->IsPlace()) {
    Fail(target->at.offset, "expected a variable, an element or a field left of the assignment");
    return nullptr;
  }
  if (target->IsName()) Declare(target->text);
  Advance();
  statement->expressions.push_back(std::move(target));
  statement->expressions.push_back(ParseExpression());
  return statement->expressions.back() != nullptr ? std::move(statement) : nullptr;
}

}  // namespace devhost::script
