// The recursive-descent parser behind Parse: one object a source file, all sharing one Compilation.
//
// A parse function that fails returns null or false with the error recorded; the first error stands.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "devhost/script/lexer.h"
#include "devhost/script/parse.h"

namespace devhost::script {

// Levels of brackets, operators and blocks: more would overrun the stack of whoever walks the tree.
inline constexpr int kMaxNesting = 200;

// What the files of one script share while they are parsed.
struct Compilation {
  Program& program;
  FileReader readFile;
  SyntaxError& error;
  bool failed = false;
  int nesting = 0;
  std::map<std::string, int, std::less<>> globals;
  std::vector<std::string> files;  // read already; each is read once
  bool atPrompt = false;
  std::size_t firstFunction = 0;  // of this text; those before it may be defined anew
};

class Parser {
 public:
  Parser(Compilation& compilation, const Source& source);

  // All statements of the source, appended to the program.
  bool ParseFile();

 private:
  // The function being parsed. A name is local when the function assigns it, wherever that stands, so names are
  // resolved at the function's end.
  struct FunctionScope {
    std::map<std::string, int, std::less<>> locals;
    std::vector<NameExpression*> names;
  };
  // One level deeper while it lives.
  class Nesting {
   public:
    explicit Nesting(Parser& parser);
    ~Nesting();
    bool tooDeep;

   private:
    int& level;
  };

  // parser.cpp
  void Advance();
  bool Accept(TokenKind kind);
  bool Expect(TokenKind kind, std::string_view where);
  bool ExpectName(std::string& name, std::string_view what);
  bool Fail(std::size_t offset, std::string message);
  bool FailExpected(std::string_view what);
  bool EndStatement();
  std::string DescribeToken() const;
  Position Here() const;
  int GlobalSlot(const std::string& name);
  void Declare(const std::string& name);
  void ResolveNames(const FunctionScope& scope);

  // parser_definitions.cpp
  bool ParseTopLevel();
  bool ParseParameters();
  bool ParseInclude();
  bool ParseFileNamed(const std::string& name, std::size_t offset);
  bool ParseIncluded(std::string path, std::string text);
  bool ParseFunction();
  bool ParseNameList(TokenKind end, std::vector<std::string>& names);

  // parser_statements.cpp
  StatementPtr ParseStatement();
  StatementPtr ParseStatementOfKind();
  StatementPtr ParseBlock();
  StatementPtr ParseIf();
  StatementPtr ParseWhile();
  StatementPtr ParseFor();
  StatementPtr ParseLoopBody();
  StatementPtr ParseTry();
  StatementPtr ParseBlockBehind(std::string_view what);
  StatementPtr ParseReturn();
  StatementPtr ParseLoopExit(Statement::Kind kind);
  StatementPtr ParseSimple(bool showsValue = false);
  StatementPtr ParseAssignment(ExpressionPtr place, Position at);
  bool StandsAtPrompt() const;
  ExpressionPtr ParseCondition();
  std::unique_ptr<NameExpression> ParseCaughtName(std::string_view what);

  // parser_expressions.cpp
  std::unique_ptr<NameExpression> NewName(std::string name, Position at);
  bool Attach(Expression& parent, ExpressionPtr& place, ExpressionPtr operand);
  ExpressionPtr ParseExpression();
  ExpressionPtr ParseBinary(int lowestRank);
  ExpressionPtr ParseUnary();
  ExpressionPtr ParsePostfix();
  ExpressionPtr ParseCall(ExpressionPtr callee);
  ExpressionPtr ParseIndex(ExpressionPtr container);
  ExpressionPtr ParseMember(ExpressionPtr object);
  bool ParseArguments(Expression& call, std::vector<ExpressionPtr>& arguments, std::string_view* first = nullptr);
  ExpressionPtr ParsePrimary();
  ExpressionPtr ParseArray();
  ExpressionPtr ParseText();
  ExpressionPtr ParseNumber();
  ExpressionPtr ParseNew();
  bool ParseOperands(Expression& parent, std::vector<ExpressionPtr>& operands, TokenKind end, std::string_view where,
                     std::string_view* first = nullptr);

  Compilation& compilation;
  const Source& source;
  Lexer lexer;
  Token token;                  // the one looked at
  std::size_t previousEnd = 0;  // where the one before it ended
  FunctionScope* function = nullptr;
  int loops = 0;  // around the place, in this function
};

}  // namespace devhost::script
