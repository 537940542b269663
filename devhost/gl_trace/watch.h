// What stands between the module and OpenGL tells a watcher of each call.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <type_traits>

namespace devhost {
struct Module;
}

namespace gl_trace {

enum class Function {
#define PLAIN(function, ...) function,
#define SPECIAL(result, function, ...) function,
#include "devhost/gl_trace/functions.def"
};

inline constexpr const char* kFunctionNames[] = {
#define PLAIN(function, ...) #function,
#define SPECIAL(result, function, ...) #function,
#include "devhost/gl_trace/functions.def"
};

constexpr const char* NameOf(Function function) { return kFunctionNames[static_cast<std::size_t>(function)]; }

consteval Function FunctionNamed(std::string_view name) {
  std::size_t place = 0;
  while (name != kFunctionNames[place]) ++place;
  return static_cast<Function>(place);
}

// An argument or a result: a number, or an address (memory, a handle, a function).
struct Value {
  double number = 0;
  const void* address = nullptr;

  Value() = default;
  template <class T>
  explicit Value(T value) {
    if constexpr (std::is_pointer_v<T>) {
      address = reinterpret_cast<const void*>(value);
    } else {
      number = static_cast<double>(value);
    }
  }
};

struct Call {
  Function function;
  std::span<const Value> arguments;
  Value result;  // after the call, of one that answers

  double operator[](std::size_t place) const { return arguments[place].number; }
  // The argument at this place as an OpenGL constant, a list's number or a count.
  unsigned Whole(std::size_t place) const { return static_cast<unsigned>(static_cast<long long>((*this)[place])); }
  template <class T>
  const T* Memory(std::size_t place) const {
    return static_cast<const T*>(arguments[place].address);
  }
};

class Watcher {
 public:
  virtual ~Watcher() = default;
  virtual void Before(const Call& call) = 0;
  virtual void After(const Call& call) = 0;
};

// Until the module is unloaded, tells of its calls; null: tells nobody. False with an error raised when the module
// imports a function that is not in the list. On Windows.
bool WatchOpenGl(const devhost::Module& module, Watcher* watcher);

}  // namespace gl_trace
