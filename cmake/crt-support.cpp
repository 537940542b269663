// The few C++ runtime symbols that MinGW's C runtime does not carry, for the Microsoft ABI without exceptions.
#include <cstdlib>
#include <new>

extern "C" int _fltused = 0;
__asm__(".globl __chkstk\n__chkstk:\n\tjmp ___chkstk_ms\n");  // frames over a page; the same contract on x86-64

// The library names its parameters in its own way.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)
void* operator new(std::size_t size) { return std::malloc(size ? size : 1); }
void* operator new[](std::size_t size) { return std::malloc(size ? size : 1); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return std::malloc(size ? size : 1); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return std::malloc(size ? size : 1); }
void operator delete(void* p) noexcept { std::free(p); }
void operator delete[](void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }
void operator delete[](void* p, std::size_t) noexcept { std::free(p); }
// NOLINTEND(readability-inconsistent-declaration-parameter-name)

// The class of RTTI's type descriptors, which begin with its virtual table. The constructor brings the table about.
class type_info {
 public:
  type_info();
  virtual ~type_info();
};
type_info::type_info() = default;
type_info::~type_info() = default;

namespace std {
extern const nothrow_t nothrow{};
}

_LIBCPP_BEGIN_NAMESPACE_STD
[[noreturn]] void __libcpp_verbose_abort(const char*, ...) { std::abort(); }
_LIBCPP_END_NAMESPACE_STD
