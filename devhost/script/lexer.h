// Cuts a script's text into tokens.
#pragma once

#include "devhost/script/source.h"
#include "devhost/script/token.h"

namespace devhost::script {

class Lexer {
 public:
  // The text outlives the lexer.
  explicit Lexer(std::string_view text);

  // The next token; End for ever once the text is used up. Other characters come as a Bad one, and reading goes on
  // behind it.
  Token Next();

 private:
  char Peek(std::size_t ahead = 0) const;
  bool SkipBlanks(Token& bad);
  Token ReadName();
  Token ReadNumber();
  Token ReadHexadecimal();
  Token ReadText();
  bool ReadEscape(Token& token);
  Token ReadSign();
  Token Bad(std::size_t offset, std::string message) const;

  std::string_view text;
  std::size_t at = 0;
};

// Whether a token of that text is a comment that nothing closes.
bool IsOpenComment(const Token& token, std::string_view text);

}  // namespace devhost::script
