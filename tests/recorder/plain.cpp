// The functions that are only noted, each with its arguments.
#include <cstddef>
#include <tuple>

#include "devhost/gl_trace/kinds.h"
#include "tests/recorder/recorder.h"

namespace {

template <class... Arguments>
std::tuple<Arguments...> ArgumentsOf(void (*function)(Arguments...));
// The type of the function's parameter at this place.
template <auto function, std::size_t place>
using Argument = std::tuple_element_t<place, decltype(ArgumentsOf(function))>;

template <class... Kinds, class... Arguments>
void Note(const char* name, Arguments... values) {
  [[maybe_unused]] const std::tuple<Arguments...> arguments(values...);
  recorder::Get().calls.push_back({name, {Kinds::Text(values, arguments)...}, {}});
}

}  // namespace

using gl_trace::Array;
using gl_trace::Buffers;
using gl_trace::Constant;
using gl_trace::Handle;
using gl_trace::ListNames;
using gl_trace::Number;
using gl_trace::ValuesOf;

// The parameters of a function that has so many, and behind the function's name their names.
#define PARAMETERS_0(function)
#define PARAMETERS_1(function) Argument<function, 0> a
#define PARAMETERS_2(function) PARAMETERS_1(function), Argument<function, 1> b
#define PARAMETERS_3(function) PARAMETERS_2(function), Argument<function, 2> c
#define PARAMETERS_4(function) PARAMETERS_3(function), Argument<function, 3> d
#define PARAMETERS_5(function) PARAMETERS_4(function), Argument<function, 4> e
#define PARAMETERS_6(function) PARAMETERS_5(function), Argument<function, 5> f
#define PARAMETERS_7(function) PARAMETERS_6(function), Argument<function, 6> g
#define PARAMETERS_8(function) PARAMETERS_7(function), Argument<function, 7> h
#define PARAMETERS_9(function) PARAMETERS_8(function), Argument<function, 8> i
#define NAMES_0
#define NAMES_1 , a
#define NAMES_2 NAMES_1, b
#define NAMES_3 NAMES_2, c
#define NAMES_4 NAMES_3, d
#define NAMES_5 NAMES_4, e
#define NAMES_6 NAMES_5, f
#define NAMES_7 NAMES_6, g
#define NAMES_8 NAMES_7, h
#define NAMES_9 NAMES_8, i

// How many arguments the macro has.
#define TENTH(a, b, c, d, e, f, g, h, i, tenth, ...) tenth
#define COUNT(...) TENTH(__VA_ARGS__ __VA_OPT__(, ) 9, 8, 7, 6, 5, 4, 3, 2, 1, 0)

#define STAND_IN(function, count, ...) \
  void function(PARAMETERS_##count(function)) { Note<__VA_ARGS__>(#function NAMES_##count); }
#define COUNTED(function, count, ...) STAND_IN(function, count, __VA_ARGS__)

#define PLAIN(function, ...) COUNTED(function, COUNT(__VA_ARGS__), __VA_ARGS__)
#define SPECIAL(result, function, ...)
#include "devhost/gl_trace/functions.def"
