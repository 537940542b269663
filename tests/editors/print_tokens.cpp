// Prints what the script language makes of scripts: of each file a line "file", then a line for each token with its
// first byte, the one behind its last, and its kind: a keyword or sign as it is written, else the kind's name.
#include <cstdio>
#include <string>

#include "devhost/script/lexer.h"

namespace {

using devhost::script::Lexer;
using devhost::script::SpellingOf;
using devhost::script::Token;
using devhost::script::TokenKind;

bool ReadScript(const char* path, std::string& text) {
  text.clear();
  std::FILE* file = std::fopen(path, "rb");
  if (!file) return false;
  for (int c = std::fgetc(file); c != EOF; c = std::fgetc(file)) text += static_cast<char>(c);
  std::fclose(file);
  return true;
}

std::string NameOf(TokenKind kind) {
  switch (kind) {
    case TokenKind::Bad:
      return "bad";
    case TokenKind::Name:
      return "name";
    case TokenKind::Integer:
      return "integer";
    case TokenKind::Real:
      return "real";
    case TokenKind::Text:
      return "text";
    default:
      return std::string(SpellingOf(kind));
  }
}

}  // namespace

int main(int argc, char** argv) {
  std::string text;
  for (int i = 1; i < argc; ++i) {
    if (!ReadScript(argv[i], text)) return 1;
    std::puts("file");
    Lexer lexer(text);
    for (Token token = lexer.Next(); token.kind != TokenKind::End; token = lexer.Next()) {
      std::printf("%u %u %s\n", static_cast<unsigned>(token.offset), static_cast<unsigned>(token.end),
                  NameOf(token.kind).c_str());
    }
  }
  return 0;
}
