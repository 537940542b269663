// The parts of libc++'s string that its headers leave to the compiled library. A file of its own, so that only programs
// that use strings carry them.
#include <string>

_LIBCPP_BEGIN_NAMESPACE_STD
template class basic_string<char>;
template string operator+ <char, char_traits<char>, allocator<char>>(const char*, const string&);
_LIBCPP_END_NAMESPACE_STD
