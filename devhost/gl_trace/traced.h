// Stand-ins for functions: each prints its call and goes on to the function itself.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

#include "devhost/gl_trace/kinds.h"

namespace gl_trace {

// A function's name as a template argument: it tells functions of one type apart.
template <std::size_t size>
struct FunctionName {
  consteval FunctionName(const char (&name)[size]) { std::copy_n(name, size, text); }
  char text[size]{};
};

// Prints a line behind what the script has printed; the system's last error stays as it is.
void PrintLine(const std::string& line);

// "Kinds" is the function's type with a kind in place of each argument's type and of the result's, void as it is.
template <FunctionName name, class Function, class Kinds>
class Traced;

template <FunctionName name, class Result, class... Arguments, class ResultKind, class... Kinds>
class Traced<name, Result(Arguments...), ResultKind(Kinds...)> {
 public:
  // Takes the function itself; gives what stands in for it.
  static void* Replace(void* itself) {
    function = reinterpret_cast<Result (*)(Arguments...)>(itself);
    return reinterpret_cast<void*>(Call);
  }

 private:
  static_assert(sizeof...(Arguments) == sizeof...(Kinds), "a kind for each argument");
  static_assert(std::is_void_v<Result> == std::is_void_v<ResultKind>, "a kind for the result");

  // A call without an answer is shown before it is made, so that what it calls back or breaks comes behind it.
  static Result Call(Arguments... values) {
    const std::tuple<Arguments...> arguments(values...);
    if constexpr (!std::is_void_v<Result>) {
      const Result result = function(values...);
      PrintLine(Text(arguments) + " = " + ResultKind::Text(result, arguments));
      return result;
    } else if constexpr ((kIsAnswer<Kinds> || ...)) {
      function(values...);
      PrintLine(Text(arguments));
    } else {
      PrintLine(Text(arguments));
      function(values...);
    }
  }

  static std::string Text(const std::tuple<Arguments...>& arguments) {
    return TextOf(arguments, std::index_sequence_for<Arguments...>());
  }

  template <std::size_t... places>
  static std::string TextOf([[maybe_unused]] const std::tuple<Arguments...>& arguments,
                            std::index_sequence<places...>) {
    const std::string inBrackets =
        (std::string() + ... + ((places > 0 ? ", " : "") + Kinds::Text(std::get<places>(arguments), arguments)));
    return std::string(name.text) + "(" + inBrackets + ")";
  }

  static inline Result (*function)(Arguments...) = nullptr;
};

}  // namespace gl_trace
