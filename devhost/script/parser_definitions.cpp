// What stands at a script's top level only: param, include, functions.
#include <algorithm>
#include <utility>

#include "devhost/script/parser.h"
#include "devhost/script/path.h"

namespace devhost::script {

bool Parser::ParseFile() {
  const bool isMain = compilation.program.sources.size() == 1 && !compilation.atPrompt;
  if (isMain && token.kind == TokenKind::Param && !ParseParameters()) return false;
  while (!compilation.failed && token.kind != TokenKind::End) {
    if (!ParseTopLevel()) return false;
  }
  return !compilation.failed;
}

bool Parser::ParseTopLevel() {
  if (token.kind == TokenKind::Include) return ParseInclude();
  if (token.kind == TokenKind::Function) return ParseFunction();
  StatementPtr statement = ParseStatement();
  if (!statement) return false;
  compilation.program.statements.push_back(std::move(statement));
  return true;
}

bool Parser::ParseParameters() {
  Advance();
  std::vector<std::string> names;
  if (!ParseNameList(TokenKind::Semicolon, names)) return false;
  for (const std::string& name : names) GlobalSlot(name);
  compilation.program.parameterCount = static_cast<int>(names.size());
  return EndStatement();
}

// "a, b" up to the token that ends the list, which is left.
bool Parser::ParseNameList(TokenKind end, std::vector<std::string>& names) {
  if (token.kind == end) return true;
  do {
    const std::size_t offset = token.offset;
    std::string name;
    if (!ExpectName(name, "a parameter's name")) return false;
    if (std::find(names.begin(), names.end(), name) != names.end()) {
      return Fail(offset, "there are two parameters '" + name + "'");
    }
    names.push_back(std::move(name));
  } while (Accept(TokenKind::Comma));
  return true;
}

bool Parser::ParseInclude() {
  Advance();
  if (token.kind != TokenKind::Text) return FailExpected("the file's name as a text after 'include'");
  const std::size_t offset = token.offset;
  const std::string name = token.text;
  Advance();
  if (!EndStatement()) return false;
  if (!compilation.readFile) return Fail(offset, "files cannot be included here");
  return ParseFileNamed(name, offset);
}

// The first file of that name: beside the source, else in a folder where all scripts look.
bool Parser::ParseFileNamed(const std::string& name, std::size_t offset) {
  std::string folders;
  std::vector<std::string> paths{ResolvePath(source.name, name)};
  for (const std::string& folder : IncludeFolders()) {
    paths.push_back(ResolvePath(folder + "/", name));
    folders.append(folders.empty() ? ", nor find it in " : ", ").append(folder);
  }
  const auto& files = compilation.files;
  for (std::string& path : paths) {
    if (std::find(files.begin(), files.end(), path) != files.end()) return true;
    std::string text;
    if (compilation.readFile(path, text)) return ParseIncluded(std::move(path), std::move(text));
  }
  return Fail(offset, "cannot read the file '" + paths.front() + "'" + folders);
}

bool Parser::ParseIncluded(std::string path, std::string text) {
  const Nesting nesting(*this);
  if (nesting.tooDeep) return false;
  compilation.files.push_back(path);
  compilation.program.sources.push_back(std::make_unique<Source>(Source{std::move(path), std::move(text)}));
  return Parser(compilation, *compilation.program.sources.back()).ParseFile();
}

bool Parser::ParseFunction() {
  Advance();
  auto definition = std::make_unique<FunctionDefinition>();
  const std::size_t offset = token.offset;
  if (!ExpectName(definition->name, "the function's name")) return false;
  const auto& functions = compilation.program.functions;
  for (std::size_t i = compilation.firstFunction; i < functions.size(); ++i) {
    if (functions[i]->name != definition->name) continue;
    return Fail(offset, "the function '" + definition->name + "' is already defined");
  }
  definition->slot = GlobalSlot(definition->name);

  std::vector<std::string> parameters;
  if (!Expect(TokenKind::LeftParen, "after the function's name")) return false;
  if (!ParseNameList(TokenKind::RightParen, parameters)) return false;
  if (!Expect(TokenKind::RightParen, "or ',' after the parameters")) return false;
  definition->parameterCount = static_cast<int>(parameters.size());

  FunctionScope scope;
  function = &scope;
  for (const std::string& name : parameters) Declare(name);
  if (token.kind != TokenKind::LeftBrace) return FailExpected("'{' before the function's statements");
  definition->body = ParseBlock();
  function = nullptr;
  if (!definition->body) return false;
  ResolveNames(scope);
  definition->locals.resize(scope.locals.size());
  for (const auto& [name, slot] : scope.locals) definition->locals[static_cast<std::size_t>(slot)] = name;
  compilation.program.functions.push_back(std::move(definition));
  return true;
}

}  // namespace devhost::script
