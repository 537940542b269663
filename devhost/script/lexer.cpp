#include "devhost/script/lexer.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace devhost::script {
namespace {

struct Spelling {
  std::string_view text;
  TokenKind kind;
};

constexpr Spelling kKeywords[] = {
    {"param", TokenKind::Param},   {"if", TokenKind::If},       {"else", TokenKind::Else},
    {"while", TokenKind::While},   {"for", TokenKind::For},     {"function", TokenKind::Function},
    {"return", TokenKind::Return}, {"break", TokenKind::Break}, {"continue", TokenKind::Continue},
    {"try", TokenKind::Try},       {"catch", TokenKind::Catch}, {"include", TokenKind::Include},
    {"new", TokenKind::New},       {"true", TokenKind::True},   {"false", TokenKind::False},
};

// A sign that begins with another one comes before it.
constexpr Spelling kSigns[] = {
    {"->", TokenKind::Arrow},
    {"++", TokenKind::Increment},
    {"--", TokenKind::Decrement},
    {"+=", TokenKind::AssignSum},
    {"-=", TokenKind::AssignDifference},
    {"*=", TokenKind::AssignProduct},
    {"/=", TokenKind::AssignQuotient},
    {"<<", TokenKind::ShiftLeft},
    {">>", TokenKind::ShiftRight},
    {"==", TokenKind::Equal},
    {"!=", TokenKind::NotEqual},
    {"<=", TokenKind::LessEqual},
    {">=", TokenKind::GreaterEqual},
    {"&&", TokenKind::AndAnd},
    {"||", TokenKind::OrOr},
    {"(", TokenKind::LeftParen},
    {")", TokenKind::RightParen},
    {"[", TokenKind::LeftBracket},
    {"]", TokenKind::RightBracket},
    {"{", TokenKind::LeftBrace},
    {"}", TokenKind::RightBrace},
    {",", TokenKind::Comma},
    {";", TokenKind::Semicolon},
    {".", TokenKind::Dot},
    {"=", TokenKind::Assign},
    {"+", TokenKind::Plus},
    {"-", TokenKind::Minus},
    {"*", TokenKind::Star},
    {"/", TokenKind::Slash},
    {"%", TokenKind::Percent},
    {"&", TokenKind::And},
    {"|", TokenKind::Or},
    {"^", TokenKind::Xor},
    {"~", TokenKind::Tilde},
    {"<", TokenKind::Less},
    {">", TokenKind::Greater},
    {"!", TokenKind::Not},
};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool StartsName(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; }
bool ContinuesName(char c) { return StartsName(c) || IsDigit(c); }

int HexadecimalDigit(char c) {
  if (IsDigit(c)) return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// False when the next digit makes the number too large.
bool AppendDigit(long long& number, int base, int digit) {
  if (number > (std::numeric_limits<long long>::max() - digit) / base) return false;
  number = number * base + digit;
  return true;
}

constexpr const char* kTooLarge = "the number is too large: integers have 64 bits";

}  // namespace

std::vector<std::string> Keywords() {
  std::vector<std::string> words;
  for (const Spelling& keyword : kKeywords) words.emplace_back(keyword.text);
  return words;
}

std::string_view SpellingOf(TokenKind kind) {
  const auto isKind = [kind](const Spelling& spelling) { return spelling.kind == kind; };
  const auto keyword = std::find_if(std::begin(kKeywords), std::end(kKeywords), isKind);
  if (keyword != std::end(kKeywords)) return keyword->text;
  const auto sign = std::find_if(std::begin(kSigns), std::end(kSigns), isKind);
  return sign != std::end(kSigns) ? sign->text : std::string_view{};
}

Lexer::Lexer(std::string_view scriptText) : text(scriptText) {
  if (text.starts_with("\xEF\xBB\xBF")) at = 3;  // editors' mark of UTF-8
}

Token Lexer::Next() {
  Token token;
  if (!SkipBlanks(token)) return token;
  const std::size_t start = at;
  const char c = Peek();
  if (at >= text.size()) {
    token.kind = TokenKind::End;
  } else if (StartsName(c)) {
    token = ReadName();
  } else if (IsDigit(c) || (c == '.' && IsDigit(Peek(1)))) {
    token = ReadNumber();
  } else if (c == '"') {
    token = ReadText();
  } else {
    token = ReadSign();
  }
  if (token.kind != TokenKind::Bad) token.offset = start;
  token.end = at;
  return token;
}

char Lexer::Peek(std::size_t ahead) const { return at + ahead < text.size() ? text[at + ahead] : '\0'; }

// Skips blanks and comments; false with a bad token for a comment without an end.
bool Lexer::SkipBlanks(Token& bad) {
  for (;;) {
    const char c = Peek();
    if (c == ' ' || c == '\t' || c == '\r' || c == '\n') {
      ++at;
    } else if (c == '/' && Peek(1) == '/') {
      at = std::min(text.find('\n', at), text.size());
    } else if (c == '/' && Peek(1) == '*') {
      const std::size_t start = at;
      const std::size_t close = text.find("*/", at + 2);
      at = close == text.npos ? text.size() : close + 2;
      if (close == text.npos) {
        bad = Bad(start, "the comment that begins here has no '*/'");
        return false;
      }
    } else {
      return true;
    }
  }
}

Token Lexer::ReadName() {
  Token token;
  const std::size_t start = at;
  while (ContinuesName(Peek())) ++at;
  token.text = text.substr(start, at - start);
  const auto keyword = std::find_if(std::begin(kKeywords), std::end(kKeywords),
                                    [&token](const Spelling& spelling) { return spelling.text == token.text; });
  token.kind = keyword != std::end(kKeywords) ? keyword->kind : TokenKind::Name;
  return token;
}

Token Lexer::ReadNumber() {
  if (Peek() == '0' && (Peek(1) == 'x' || Peek(1) == 'X')) return ReadHexadecimal();
  Token token;
  token.kind = TokenKind::Integer;
  const std::size_t start = at;
  bool fits = true;
  for (; IsDigit(Peek()); ++at) fits = fits && AppendDigit(token.integer, 10, Peek() - '0');
  if (Peek() == '.' && IsDigit(Peek(1))) {
    token.kind = TokenKind::Real;
    for (++at; IsDigit(Peek());) ++at;
  }
  const std::size_t sign = Peek(1) == '+' || Peek(1) == '-' ? 1 : 0;
  if ((Peek() == 'e' || Peek() == 'E') && IsDigit(Peek(1 + sign))) {
    token.kind = TokenKind::Real;
    for (at += 1 + sign; IsDigit(Peek());) ++at;
  }
  if (ContinuesName(Peek())) return Bad(at, "a number ends here: a letter cannot follow it");
  if (token.kind == TokenKind::Integer && !fits) return Bad(start, kTooLarge);
  token.real = std::strtod(std::string(text.substr(start, at - start)).c_str(), nullptr);
  return token;
}

Token Lexer::ReadHexadecimal() {
  Token token;
  token.kind = TokenKind::Integer;
  const std::size_t start = at;
  bool fits = true;
  for (at += 2; HexadecimalDigit(Peek()) >= 0; ++at) {
    fits = fits && AppendDigit(token.integer, 16, HexadecimalDigit(Peek()));
  }
  if (at == start + 2 || ContinuesName(Peek())) return Bad(at, "expected a hexadecimal digit");
  return fits ? token : Bad(start, kTooLarge);
}

Token Lexer::ReadText() {
  Token token;
  token.kind = TokenKind::Text;
  const std::size_t start = at++;
  while (Peek() != '"') {
    if (at >= text.size() || Peek() == '\n')
      return Bad(start, "the text that begins here has no closing '\"' on its line");
    if (Peek() != '\\') {
      token.text += text[at++];
    } else if (!ReadEscape(token)) {
      return Bad(at, "unknown escape; the known ones are \\n \\t \\r \\0 \\\\ \\\" \\' and \\xHH");
    }
  }
  ++at;
  return token;
}

bool Lexer::ReadEscape(Token& token) {
  static constexpr std::string_view kLetters = "ntr0\\\"'";
  static constexpr std::string_view kMeanings("\n\t\r\0\\\"'", 7);
  const std::size_t letter = at + 1 < text.size() ? kLetters.find(text[at + 1]) : kLetters.npos;
  if (letter != kLetters.npos) {
    token.text += kMeanings[letter];
    at += 2;
    return true;
  }
  const int high = HexadecimalDigit(Peek(2));
  const int low = HexadecimalDigit(Peek(3));
  if (Peek(1) != 'x' || high < 0 || low < 0) return false;
  token.text += static_cast<char>(high * 16 + low);
  at += 4;
  return true;
}

Token Lexer::ReadSign() {
  const std::string_view rest = text.substr(at);
  const auto sign = std::find_if(std::begin(kSigns), std::end(kSigns),
                                 [rest](const Spelling& spelling) { return rest.starts_with(spelling.text); });
  if (sign == std::end(kSigns)) {
    const unsigned char byte = static_cast<unsigned char>(rest.front());
    char message[48];
    std::snprintf(message, sizeof message,
                  byte > ' ' && byte < 0x7F ? "unexpected character '%c'" : "unexpected byte 0x%02X", byte);
    ++at;
    return Bad(at - 1, message);
  }
  Token token;
  token.kind = sign->kind;
  at += sign->text.size();
  return token;
}

Token Lexer::Bad(std::size_t offset, std::string message) const {
  Token token;
  token.kind = TokenKind::Bad;
  token.offset = offset;
  token.end = at;
  token.text = std::move(message);
  return token;
}

bool IsOpenComment(const Token& token, std::string_view text) {
  return token.kind == TokenKind::Bad && text.substr(token.offset).starts_with("/*");
}

}  // namespace devhost::script
