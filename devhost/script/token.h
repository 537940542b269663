// The words of the script language.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace devhost::script {

enum class TokenKind {
  End,
  Bad,  // something that is no token; text says why
  Name,
  Integer,
  Real,
  Text,
  // Keywords
  Param,
  If,
  Else,
  While,
  For,
  Function,
  Return,
  Break,
  Continue,
  Try,
  Catch,
  Include,
  New,
  True,
  False,
  // Signs
  LeftParen,
  RightParen,
  LeftBracket,
  RightBracket,
  LeftBrace,
  RightBrace,
  Comma,
  Semicolon,
  Dot,
  Arrow,
  Assign,
  AssignSum,
  AssignDifference,
  AssignProduct,
  AssignQuotient,
  Plus,
  Minus,
  Star,
  Slash,
  Percent,
  And,
  Or,
  Xor,
  Tilde,
  ShiftLeft,
  ShiftRight,
  Equal,
  NotEqual,
  Less,
  LessEqual,
  Greater,
  GreaterEqual,
  AndAnd,
  OrOr,
  Not,
  Increment,  // not of the language; known so that its message can say what to write
  Decrement,
};

// A word and where it stands; `integer` and `real` are the value of a number.
struct Token {
  TokenKind kind = TokenKind::End;
  std::size_t offset = 0;  // of its first byte
  std::size_t end = 0;     // behind its last byte
  std::string text;        // a name, the bytes of a text, the message of something bad
  long long integer = 0;
  double real = 0;
};

// The words that name nothing else.
std::vector<std::string> Keywords();

// How a keyword or sign is written; empty for the other kinds.
std::string_view SpellingOf(TokenKind kind);

}  // namespace devhost::script
