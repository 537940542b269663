// Stand-ins for functions: each prints its call, tells the watcher of it, and goes on to the function itself.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

#include "devhost/gl_trace/kinds.h"
#include "devhost/gl_trace/watch.h"

namespace gl_trace {

// A function's name as a template argument: it tells functions of one type apart.
template <std::size_t size>
struct FunctionName {
  consteval FunctionName(const char (&name)[size]) { std::copy_n(name, size, text); }
  char text[size]{};
};

// Whether calls of the function are printed.
bool IsPrinted(const char* function);
// Prints a call's line behind what the script has printed, and before the first one of a script's call the place of
// that; the system's last error stays as it is.
void PrintCall(const std::string& line);
// Who is told of calls, or null.
Watcher* CurrentWatcher();

// "Kinds" is the function's type with a kind in place of each argument's type and of the result's, void as it is.
template <FunctionName name, class Function, class Kinds>
class Traced;

template <FunctionName name, class Result, class... Arguments, class ResultKind, class... Kinds>
class Traced<name, Result(Arguments...), ResultKind(Kinds...)> {
 public:
  // Takes the function itself, or what stands in for it already; gives what stands in for it.
  static void* Replace(void* itself) {
    void* standIn = reinterpret_cast<void*>(Call);
    if (itself != standIn) function = reinterpret_cast<Result (*)(Arguments...)>(itself);
    isPrinted = IsPrinted(name.text);
    return standIn;
  }

 private:
  static_assert(sizeof...(Arguments) == sizeof...(Kinds), "a kind for each argument");
  static_assert(std::is_void_v<Result> == std::is_void_v<ResultKind>, "a kind for the result");

  static Result Call(Arguments... values) {
    Watcher* watcher = CurrentWatcher();
    if (!watcher) return Print(values...);
    const std::array<Value, sizeof...(Arguments)> told{Value(values)...};
    constexpr Function kFunction = FunctionNamed(name.text);
    const gl_trace::Call call{kFunction, told, {}};
    watcher->Before(call);
    if constexpr (std::is_void_v<Result>) {
      Print(values...);
      watcher->After(call);
    } else {
      const Result result = Print(values...);
      watcher->After({kFunction, told, Value(result)});
      return result;
    }
  }

  // A call without an answer is shown before it is made, so that what it calls back or breaks comes behind it.
  static Result Print(Arguments... values) {
    if (!isPrinted) return function(values...);
    const std::tuple<Arguments...> arguments(values...);
    if constexpr (!std::is_void_v<Result>) {
      const Result result = function(values...);
      PrintCall(Text(arguments) + " = " + ResultKind::Text(result, arguments));
      return result;
    } else if constexpr ((kIsAnswer<Kinds> || ...)) {
      function(values...);
      PrintCall(Text(arguments));
    } else {
      PrintCall(Text(arguments));
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
  static inline bool isPrinted = false;
};

}  // namespace gl_trace
