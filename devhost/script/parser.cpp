// Parse, and what all parts of the parser use: tokens, errors, names.
#include "devhost/script/parser.h"

#include <utility>

namespace devhost::script {

std::unique_ptr<Program> Parse(std::string_view text, std::string name, FileReader readFile, SyntaxError& error) {
  auto program = std::make_unique<Program>();
  Compilation compilation{*program, readFile, error, false, 0, {}, {name}};
  program->sources.push_back(std::make_unique<Source>(Source{std::move(name), std::string(text)}));
  if (!Parser(compilation, *program->sources.front()).ParseFile()) return nullptr;
  return program;
}

bool ParseMore(Program& program, std::string_view text, std::string name, FileReader readFile, SyntaxError& error) {
  const std::size_t sourceCount = program.sources.size();
  const std::size_t globalCount = program.globals.size();
  const std::size_t functionCount = program.functions.size();
  const std::size_t statementCount = program.statements.size();
  Compilation compilation{program, readFile, error, false, 0, {}, {name}, true, functionCount};
  for (std::size_t i = 0; i < globalCount; ++i) compilation.globals.emplace(program.globals[i], static_cast<int>(i));
  program.sources.push_back(std::make_unique<Source>(Source{std::move(name), std::string(text)}));
  if (Parser(compilation, *program.sources.back()).ParseFile()) return true;
  program.statements.resize(statementCount);
  program.functions.resize(functionCount);
  program.globals.resize(globalCount);
  program.sources.resize(sourceCount);
  return false;
}

Parser::Parser(Compilation& sharedCompilation, const Source& parsedSource)
    : compilation(sharedCompilation), source(parsedSource), lexer(parsedSource.text) {
  Advance();
}

Parser::Nesting::Nesting(Parser& parser) : level(parser.compilation.nesting) {
  tooDeep = ++level > kMaxNesting;
  if (tooDeep) parser.Fail(parser.token.offset, "nested too deeply: more than 200 levels");
}

Parser::Nesting::~Nesting() { --level; }

void Parser::Advance() {
  previousEnd = token.end;
  token = lexer.Next();
  if (token.kind == TokenKind::Bad) Fail(token.offset, token.text);
}

bool Parser::Accept(TokenKind kind) {
  if (token.kind != kind) return false;
  Advance();
  return true;
}

// `where` completes the message: "expected ')' after the condition".
bool Parser::Expect(TokenKind kind, std::string_view where) {
  if (Accept(kind)) return true;
  return FailExpected(std::string("'").append(SpellingOf(kind)).append("' ").append(where));
}

bool Parser::ExpectName(std::string& name, std::string_view what) {
  if (token.kind != TokenKind::Name) return FailExpected(what);
  name = token.text;
  Advance();
  return true;
}

bool Parser::Fail(std::size_t offset, std::string message) {
  if (!compilation.failed) {
    compilation.failed = true;
    const bool atEnd = token.kind == TokenKind::End || IsOpenComment(token, source.text);
    compilation.error = {Locate({&source, offset}), std::move(message), atEnd};
  }
  return false;
}

bool Parser::FailExpected(std::string_view what) {
  std::string message = std::string("expected ").append(what).append(", found ").append(DescribeToken());
  if (token.kind == TokenKind::Assign) message += " ('=' assigns in a statement of its own, '==' compares)";
  if (token.kind == TokenKind::Increment) message += " (write 'i += 1')";
  if (token.kind == TokenKind::Decrement) message += " (write 'i -= 1')";
  return Fail(token.offset, std::move(message));
}

// The last statement of a text needs no semicolon. A missing one is reported where it should stand.
bool Parser::EndStatement() {
  if (token.kind == TokenKind::End || Accept(TokenKind::Semicolon)) return true;
  const bool hasHint = token.kind == TokenKind::Increment || token.kind == TokenKind::Decrement;
  if (hasHint) return FailExpected("';' at the end of the statement");
  return Fail(previousEnd, "expected ';' at the end of the statement, found " + DescribeToken());
}

std::string Parser::DescribeToken() const {
  if (token.kind == TokenKind::End) return "the end of the text";
  if (token.kind == TokenKind::Text) return "a text";
  constexpr std::size_t kLongestQuote = 40;
  const std::string_view word = std::string_view(source.text).substr(token.offset, token.end - token.offset);
  std::string quoted = "'";
  quoted.append(word.substr(0, kLongestQuote)).append(word.size() > kLongestQuote ? "...'" : "'");
  return quoted;
}

Position Parser::Here() const { return {&source, token.offset}; }

int Parser::GlobalSlot(const std::string& name) {
  std::vector<std::string>& names = compilation.program.globals;
  const auto [found, isNew] = compilation.globals.emplace(name, static_cast<int>(names.size()));
  if (isNew) names.push_back(name);
  return found->second;
}

// The name is assigned here: inside a function that makes it local.
void Parser::Declare(const std::string& name) {
  if (function) function->locals.emplace(name, static_cast<int>(function->locals.size()));
}

void Parser::ResolveNames(const FunctionScope& scope) {
  for (NameExpression* name : scope.names) {
    const auto local = scope.locals.find(name->name);
    const bool isLocal = local != scope.locals.end();
    name->kind = isLocal ? Expression::Kind::Local : Expression::Kind::Global;
    name->slot = isLocal ? local->second : GlobalSlot(name->name);
  }
}

}  // namespace devhost::script
