// The development host's runtime as the script language sees it: values, classes, calls, errors, modules.
//
// A script value is the host's own `Variable` (host/talq.h). Numbers are held in place; byte strings, arrays, objects
// and functions are counted references, so assigning one shares it. Exceptions do not exist here: an operation that
// fails raises an error on the processor, returns false or an empty value, and the caller unwinds.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/talq.h"

namespace devhost {

// Tags of values that a module never names.
inline constexpr TVARTYPE kEmptyType{0};
inline constexpr TVARTYPE kObjectType{2048};
inline constexpr TVARTYPE kReferenceType{4096};  // what IsPointer and GetPointer answer to: a reference to a Variable

// Error codes of the host itself. Modules' own codes lie above their bases (1000, 2000, ...).
enum HostError : int {
  kErrorBadCounts = 8,  // arrays whose lengths do not fit together
  kErrorDivisionByZero = 10,
  kErrorConversion = 20,  // a value that is not what an operation needs
  kErrorName = 21,        // an unknown variable, field, function, class or method
  kErrorNoOverload = 22,  // no form of a method or function takes these arguments
  kErrorFile = 23,        // a file that cannot be read or written, or is malformed
  kErrorAssertion = 24,
  kErrorSyntax = 25,
  kErrorTooDeep = 26,         // calls within calls without an end
  kErrorFailed = 27,          // a script called Fail
  kErrorNoNativeObject = 43,  // a script object without its native object
};

// A raised error.
struct Error {
  int code = 0;
  std::string text;  // complete sentence for the user; of a module's error: its message, then what it was raised with
  std::string hint;  // what would help: "did you mean ...?", or the forms of a method; "" when nothing is known
};

// ---- Errors -------------------------------------------------------------------------------------------------------

// The one interpreter state; Processor handles passed to modules point to it.
Processor* CurrentProcessor();
// Raises an error; while one is pending, later ones are counted but do not replace it.
void Raise(int code, std::string text, std::string hint = {});
// Gives the pending error a hint, where it has none.
void GiveHint(std::string hint);
// The pending error, or null.
const Error* PendingError();
// How many errors were raised since the last ClearError.
int RaisedCount();
// Nothing is pending and none is counted any more.
void ClearError();
// Name of an error code ("OGL_WRONG_DC"; "" for a code without one).
std::string ErrorName(int code);

// ---- Values -------------------------------------------------------------------------------------------------------

// target = source: numbers are copied, everything else is shared.
void Assign(Variable& target, const Variable& source);
// The target becomes a new text, or the number 1 or 0.
void AssignText(Variable& target, std::string_view text);
void AssignBool(Variable& target, bool value);
// Truth of a value: a non-zero number, a non-empty text or array, any object.
bool IsTrue(const Variable& value);
// What kind of value it is, in a script author's words: "number", "String", "Vector", "POINT3", "function", "nothing".
std::string KindOf(const Variable& value);
// How print shows it: 1.5, text as it is, [1, 2, [3]], POINT3(1, 2, 3), rows of a Matrix.
std::string TextOf(const Variable& value);

enum class Operator { Add, Subtract, Multiply, Divide, Remainder, Or, And, Xor };
// result = a op b: numbers by type promotion, texts by concatenation, objects through the method named "+", "*", ... of
// the left operand's class.
bool Compute(Variable& result, Operator op, const Variable& a, const Variable& b);
// Ordering of two numbers or two texts: negative, zero, positive. Raises kErrorConversion for anything else.
bool Compare(int& order, const Variable& a, const Variable& b);
// Equality of any two values (numbers by value, texts by bytes, the rest by identity).
bool Equal(const Variable& a, const Variable& b);

// Element and field as assignable places; null with an error raised when there is none. Elements are range-checked
// here (a script author gets an error), unlike Variable::operator[]. The byte of a String and a field that is computed
// (colour.Red, through GetRed) come as copies: assigning to them changes nothing.
Variable* Element(Variable& container, Variable& index);
Variable* Field(Variable& object, std::string_view name);

// A callable script function; the language derives from it.
class Function {
 public:
  virtual ~Function() = default;
  // Runs with the arguments; false when an error is pending.
  virtual bool Call(Variable& result, std::span<Variable> args) = 0;
  int references = 0;
};
// Makes the value hold the function (takes ownership).
void AssignFunction(Variable& target, Function* function);
// The function in a value, or null.
Function* FunctionOf(const Variable& value);
// Compiles "param a, b; ..." text; null with kErrorSyntax raised. Defined by the language (devhost/script).
Function* CompileFunction(std::string_view source);

// ---- Classes and functions ----------------------------------------------------------------------------------------

// Registers rows of "Class::Method(parameters)" or, for plain functions, "Name(parameters)"; the table ends with a null
// row. A malformed row raises kErrorSyntax with its text and registers nothing of the table.
bool RegisterMethods(const MethodEntry* table);
bool HasClass(std::string_view className);
bool HasFunction(std::string_view name);
// Signatures of a class (of all plain functions with ""), or of one method of it, in table order.
std::vector<std::string> SignaturesOf(std::string_view className, std::string_view method = {});
std::vector<std::string> ClassNames();
// Names of a class's methods (of all plain functions with ""), each once.
std::vector<std::string> MethodNames(std::string_view className);

// Each resolves the overload by count and kinds of the arguments; when none fits, the error's hint says which forms
// exist. False when an error is pending afterwards.
bool Construct(Variable& target, std::string_view className, std::span<Variable> args);
bool CallMethod(Variable& result, Variable& object, std::string_view method, std::span<Variable> args);
bool CallFunction(Variable& result, std::string_view name, std::span<Variable> args);

// ---- Modules ------------------------------------------------------------------------------------------------------

// A module and what its exports said.
struct Module {
  std::string path;
  std::string version;                   // text of export ordinal 2
  const MethodEntry* methods = nullptr;  // ordinal 3
  const ErrorEntry* errors = nullptr;    // ordinal 4
  HINSTANCE__* handle = nullptr;
  unsigned short errorBase = 0;
};

// Loads a module library, registers its methods and gives it an error base; null with an error raised. (On Windows;
// natively the tests register the module's tables themselves through AddModule.)
const Module* LoadModule(const std::string& path);
const Module* AddModule(Module module);
// Until modules are unloaded, scripts compute two numbers of one type with the routines Add, Sub, Mul, Div, Rest, Or,
// And and Xor that the module exports. False with an error raised when it does not export them all.
bool UseArithmeticOf(const Module& module);
// Until the module is unloaded, each call that it makes of OpenGL, GLU, WGL or GDI is printed to standard error, behind
// the script's line that it comes from. `functions` leaves out others: names with commas between, in which * stands for
// any letters; empty: all. False with an error raised when the module imports a function of theirs that cannot be
// traced, or a name fits none.
bool TraceOpenGl(const Module& module, std::string_view functions);
// Until FinishCheck, looks for what goes wrong in OpenGL without an error. False with an error raised as by
// TraceOpenGl.
bool StartCheck(const Module& module);
// What was found, a line or two each, and a line that counts it; "" when nothing was.
std::string FinishCheck();
// What this machine's OpenGL gives to the module: it opens renderers on a memory bitmap and on windows, and the pixel
// formats that it asks for are tried on other devices too. What fails stands in the report, with the system's error
// number.
std::string ProbeOpenGl(const Module& module);
// Destroys every remaining script object and unloads the modules; prints each native object still joined.
// Returns how many those were.
int UnloadModules();

}  // namespace devhost
