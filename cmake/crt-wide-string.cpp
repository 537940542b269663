// As crt-string.cpp, for strings of UTF-16.
#include <string>

_LIBCPP_BEGIN_NAMESPACE_STD
template class basic_string<wchar_t>;
_LIBCPP_END_NAMESPACE_STD
