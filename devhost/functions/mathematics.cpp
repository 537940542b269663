// Mathematics. Angles are in radians, as in C; results are double-precision numbers where nothing else is said.
#include <cmath>
#include <cstdlib>
#include <numbers>

#include "devhost/classes/tables.h"
#include "devhost/runtime/number.h"
#include "devhost/runtime/text.h"

namespace devhost {
namespace {

template <double (*function)(double)>
void Apply(VarRegister& result, VarRegister* args, int, Processor*) {
  result.GetVar() = function(Number(args[0]));
}

template <double (*function)(double, double)>
void Apply2(VarRegister& result, VarRegister* args, int, Processor*) {
  const double first = Number(args[0]);
  result.GetVar() = function(first, Number(args[1]));
}

// Keeps the type of an integer.
void Abs(VarRegister& result, VarRegister* args, int, Processor*) {
  const Variable& value = args[0].GetVar();
  if (DoubleOf(value) >= 0) {
    Assign(result, value);
  } else {
    Compute(result, Operator::Subtract, Variable(0), value);
  }
}

void Min(VarRegister& result, VarRegister* args, int, Processor*) {
  Assign(result, Number(args[1]) < Number(args[0]) ? args[1].GetVar() : args[0].GetVar());
}

void Max(VarRegister& result, VarRegister* args, int, Processor*) {
  Assign(result, Number(args[1]) > Number(args[0]) ? args[1].GetVar() : args[0].GetVar());
}

void Pi(VarRegister& result, VarRegister*, int, Processor*) { result.GetVar() = std::numbers::pi; }

// A fixed start, so that a script's pictures come out the same each time.
constexpr unsigned long long kFirstSeed = 0x9E3779B97F4A7C15;
unsigned long long randomState = kFirstSeed;

// xorshift64*: the upper 53 bits make a number in [0, 1).
void Random(VarRegister& result, VarRegister*, int, Processor*) {
  randomState ^= randomState >> 12;
  randomState ^= randomState << 25;
  randomState ^= randomState >> 27;
  result.GetVar() = static_cast<double>((randomState * 0x2545F4914F6CDD1D) >> 11) / 9007199254740992.0;
}

void SeedRandom(VarRegister&, VarRegister* args, int, Processor*) {
  randomState = kFirstSeed ^ static_cast<unsigned long long>(static_cast<long long>(args[0]));
  if (randomState == 0) randomState = kFirstSeed;  // the state must not be 0
}

constexpr std::string_view kBlanks = " \t\r\n";

// A number, or the one that a text holds, blanks around it aside.
Variable NumberIn(Variable& source) {
  if (IsNumeric(source)) return source;
  const std::string text(TextIn(source));
  char* end = nullptr;
  const double value = std::strtod(text.c_str(), &end);
  if (end == text.c_str() || !Trimmed(end, kBlanks).empty())
    Raise(kErrorConversion, "\"" + text + "\" is not a number.");
  return Variable(value);
}

template <typename T, T (*convert)(const Variable&)>
void Convert(VarRegister& result, VarRegister* args, int, Processor*) {
  const Variable number(convert(NumberIn(args[0])));
  Assign(result, number);
}

float FloatOf(const Variable& number) { return static_cast<float>(DoubleOf(number)); }
unsigned char ByteOf(const Variable& number) { return static_cast<unsigned char>(Int64Of(number)); }

constexpr ScriptHandler kToByte = Convert<unsigned char, ByteOf>;
constexpr ScriptHandler kToInt = Convert<int, Int32Of>;
constexpr ScriptHandler kToInt64 = Convert<long long, Int64Of>;
constexpr ScriptHandler kToFloat = Convert<float, FloatOf>;
constexpr ScriptHandler kToDouble = Convert<double, DoubleOf>;

}  // namespace

const MethodEntry kMathematicsFunctions[] = {
    {Apply<std::sin>, "sin(number)"},
    {Apply<std::cos>, "cos(number)"},
    {Apply<std::tan>, "tan(number)"},
    {Apply<std::asin>, "asin(number)"},
    {Apply<std::acos>, "acos(number)"},
    {Apply<std::atan>, "atan(number)"},
    {Apply2<std::atan2>, "atan2(number, number)"},
    {Apply<std::sqrt>, "sqrt(number)"},
    {Apply<std::exp>, "exp(number)"},
    {Apply<std::log>, "log(number)"},
    {Apply2<std::pow>, "pow(number, number)"},
    {Apply<std::floor>, "floor(number)"},
    {Apply<std::ceil>, "ceil(number)"},
    {Apply<std::round>, "round(number)"},
    {Abs, "abs(number)"},
    {Min, "min(number, number)"},
    {Max, "max(number, number)"},
    {Pi, "pi(void)"},
    {Random, "random(void)"},
    {SeedRandom, "SeedRandom(int)"},
    {kToByte, "byte(number)"},
    {kToByte, "byte(refer object String)"},
    {kToInt, "int(number)"},
    {kToInt, "int(refer object String)"},
    {kToInt64, "int64(number)"},
    {kToInt64, "int64(refer object String)"},
    {kToFloat, "float(number)"},
    {kToFloat, "float(refer object String)"},
    {kToDouble, "double(number)"},
    {kToDouble, "double(refer object String)"},
    {nullptr, nullptr},
};

}  // namespace devhost
