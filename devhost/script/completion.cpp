#include "devhost/script/completion.h"

#include <algorithm>

#include "devhost/runtime/runtime.h"
#include "devhost/script/builtins.h"
#include "devhost/script/lexer.h"

namespace devhost::script {
namespace {

// Whether it is a name or keyword.
bool IsWord(TokenKind kind) {
  return kind == TokenKind::Name || (kind >= TokenKind::Param && kind <= TokenKind::False);
}

bool IsMemberSign(TokenKind kind) { return kind == TokenKind::Arrow || kind == TokenKind::Dot; }

// Whether names of one kind alone can follow.
bool IsFollowedByNames(TokenKind kind) { return IsMemberSign(kind) || kind == TokenKind::New; }

// "Sphere" of "TOpenGL::Sphere(number)"
std::string NameIn(const std::string& signature) {
  const std::size_t colons = signature.find("::");
  const std::size_t start = colons == signature.npos ? 0 : colons + 2;
  return signature.substr(start, signature.find('(') - start);
}

void AppendMethods(const std::string& className, std::vector<std::string>& names) {
  for (const std::string& signature : SignaturesOf(className)) {
    const std::string name = NameIn(signature);
    if (name != className && !name.starts_with('~')) names.push_back(name);
  }
}

// The class of the variable's value; "" for what is none.
std::string ClassOfVariable(const std::string& name, const Scope& variables) {
  const auto found = std::find(variables.names.begin(), variables.names.end(), name);
  const auto place = static_cast<std::size_t>(found - variables.names.begin());
  return place < variables.slots.size() ? KindOf(variables.slots[place].value) : "";
}

std::vector<std::string> MethodNames(const std::string& className) {
  std::vector<std::string> names;
  if (!className.empty()) AppendMethods(className, names);
  if (!names.empty()) return names;
  for (const std::string& any : ClassNames()) AppendMethods(any, names);
  return names;
}

std::vector<std::string> PlainNames(const Scope& variables) {
  std::vector<std::string> names = Keywords();
  for (const std::string& name : BuiltinNames()) names.push_back(name);
  for (const std::string& signature : SignaturesOf("")) names.push_back(NameIn(signature));
  names.insert(names.end(), variables.names.begin(), variables.names.end());
  return names;
}

// Names that can follow the tokens, of which the last is complete.
std::vector<std::string> NamesBehind(const std::vector<Token>& tokens, const Scope& variables) {
  const TokenKind before = tokens.empty() ? TokenKind::End : tokens.back().kind;
  if (before == TokenKind::New) return ClassNames();
  if (!IsMemberSign(before)) return PlainNames(variables);
  const std::size_t count = tokens.size();
  const bool isField = count > 2 && IsMemberSign(tokens[count - 3].kind);
  const bool isVariable = count > 1 && tokens[count - 2].kind == TokenKind::Name && !isField;
  return MethodNames(isVariable ? ClassOfVariable(tokens[count - 2].text, variables) : "");
}

// In order, each once, of those that begin with the word.
std::vector<std::string> Matching(std::vector<std::string> names, const std::string& word) {
  std::erase_if(names, [&word](const std::string& name) { return !name.starts_with(word); });
  std::sort(names.begin(), names.end());
  names.erase(std::unique(names.begin(), names.end()), names.end());
  return names;
}

}  // namespace

Completion Complete(std::string_view line, const Scope& variables) {
  std::vector<Token> tokens;
  Lexer lexer(line);
  for (Token token = lexer.Next(); token.kind != TokenKind::End; token = lexer.Next()) {
    if (token.kind == TokenKind::Bad) return {" ", {}};  // in a text or comment
    tokens.push_back(std::move(token));
  }
  std::string word;
  if (!tokens.empty() && tokens.back().end == line.size() && IsWord(tokens.back().kind)) {
    word = tokens.back().text;
    tokens.pop_back();
  }
  if (word.empty() && (tokens.empty() || !IsFollowedByNames(tokens.back().kind))) return {" ", {}};

  std::vector<std::string> names = Matching(NamesBehind(tokens, variables), word);
  if (names.empty()) return {};
  // The names stand in order: what the first and the last share, all share.
  const auto [end, unused] =
      std::mismatch(names.front().begin(), names.front().end(), names.back().begin(), names.back().end());
  Completion completion{{names.front().begin() + static_cast<std::ptrdiff_t>(word.size()), end}, {}};
  if (completion.added.empty() && names.size() > 1) completion.choices = std::move(names);
  return completion;
}

}  // namespace devhost::script
