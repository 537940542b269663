#include "devhost/script/prompt.h"

#include <string_view>

#include "devhost/runtime/reference.h"
#include "devhost/runtime/text.h"
#include "devhost/script/console.h"
#include "devhost/script/help.h"
#include "devhost/script/lexer.h"
#include "devhost/script/line_input.h"
#include "devhost/script/script.h"
#include "devhost/script/trace.h"

namespace devhost::script {
namespace {

constexpr const char* kHelp =
    "A statement runs; a value by itself is printed. Variables and functions stay. A line that leaves a bracket or a\n"
    "comment open goes on in the next one. In a console, Tab completes a name, and Ctrl+C drops what is entered.\n"
    "\n"
    "  help NAME  show the reference's entry, as of TOpenGL::Sphere or Sphere; the methods of a class\n"
    "  exit       leave\n"
    "\n"
    "Nothing is seen? talq --check script says why; docs/black-picture.md lists what may be wrong.\n";

bool OpensBracket(TokenKind kind) {
  return kind == TokenKind::LeftParen || kind == TokenKind::LeftBracket || kind == TokenKind::LeftBrace;
}

bool ClosesBracket(TokenKind kind) {
  return kind == TokenKind::RightParen || kind == TokenKind::RightBracket || kind == TokenKind::RightBrace;
}

// Whether the text ends inside a bracket or a comment.
bool IsOpen(std::string_view text) {
  int level = 0;
  Lexer lexer(text);
  for (Token token = lexer.Next(); token.kind != TokenKind::End; token = lexer.Next()) {
    if (token.kind == TokenKind::Bad) return IsOpenComment(token, text);
    if (OpensBracket(token.kind)) ++level;
    if (ClosesBracket(token.kind)) --level;
  }
  return level > 0;
}

// Whether the text can go on in another line: it ends inside a bracket or a comment, and is sound as far as it goes.
bool IsUnfinished(std::string_view text) {
  if (!IsOpen(text)) return false;
  Program unused;
  SyntaxError error;
  return !ParseMore(unused, text, "prompt", nullptr, error) && error.atEnd;
}

// Prompts for lines until they make a whole, or one of them is dropped, and all with it.
LineInput ReadStatements(std::FILE* input, Completer& completer, std::string& text) {
  const LineInput first = ReadLine(input, "talq> ", completer, text);
  if (first != LineInput::Entered) return first;
  for (std::string line; IsUnfinished(text); text += "\n" + line) {
    const LineInput next = ReadLine(input, "  ... ", completer, line);
    if (next == LineInput::Dropped) return next;
    if (next == LineInput::Ended) break;
  }
  return LineInput::Entered;
}

void ShowHelp(std::string_view topic) {
  std::string text = kHelp;
  std::string message;
  if (topic.empty() || FindHelp(References(), topic, text, message)) {
    Print(text);
  } else {
    Complain(message + "\n");
  }
}

class Prompt : public Completer {
 public:
  explicit Prompt(FileReader fileReader) : script(program), readFile(fileReader) {}

  // False when the text asks to leave.
  bool Take(std::string_view text) {
    std::string_view rest = text.substr(0, text.find_last_not_of("; \t\n") + 1);
    const std::string_view verb = TakeWord(rest);
    const std::string_view topic = TakeWord(rest);
    if (verb == "exit" && topic.empty()) return false;
    if (verb == "help" && rest.empty()) {
      ShowHelp(topic);
    } else {
      Run(text);
    }
    return true;
  }

  Completion CompletionOf(std::string_view line) override { return Complete(line, script.Globals()); }

 private:
  void Run(std::string_view text) {
    SyntaxError error;
    if (!ParseMore(program, text, "prompt", readFile, error)) {
      Complain(Describe(error.at, "syntax error: " + error.message));
      return;
    }
    Variable result;
    if (script.Run(result, {})) return;
    Complain(CurrentTrace().Report());
    ClearError();
    CurrentTrace().Clear();
  }

  Program program;
  Script script;
  FileReader readFile;
};

}  // namespace

bool RunPrompt(std::FILE* input, const std::string& greeting, FileReader readFile) {
  Print(greeting + "\nhelp shows what can be entered, exit leaves.\n");
  {
    Prompt prompt(readFile);
    std::string text;
    LineInput read = LineInput::Dropped;
    while (read == LineInput::Dropped || (read == LineInput::Entered && prompt.Take(text))) {
      read = ReadStatements(input, prompt, text);
    }
    if (read == LineInput::Ended) Print("\n");
  }
  return !PendingError() || Complain(CurrentTrace().Report());
}

}  // namespace devhost::script
