# CMake toolchain: Windows x86-64 binaries with the Microsoft C++ ABI, built on Linux.
#
# clang compiles for the Microsoft target (decorated names, virtual tables and deleting destructors as Microsoft's
# compiler makes them), libc++ headers give the C++ library, MinGW gives the C headers, the C runtime, the import
# libraries and the linker: GNU ld, because it writes the export ordinal base that the .def file asks for.
#
# There are no exceptions, no RTTI but that of the module's classes, no threads, streams, locales or file system library;
# the rest of the C++ library that needs only headers is there. `operator new` returns null when memory is out.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(LLVM_VERSION 19 CACHE STRING "Major version of the LLVM packages")
set(TALQ_MSVC_ABI_CROSS TRUE)
set(TALQ_MINGW_RUNTIME TRUE)
set(here "${CMAKE_CURRENT_LIST_DIR}")

set(CMAKE_CXX_COMPILER clang++-${LLVM_VERSION})
set(CMAKE_CXX_COMPILER_TARGET x86_64-pc-windows-msvc)
set(CMAKE_AR x86_64-w64-mingw32-ar)
set(CMAKE_RANLIB x86_64-w64-mingw32-ranlib)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
set(CMAKE_CXX_COMPILER_WORKS TRUE)
set(CMAKE_MSVC_RUNTIME_LIBRARY "")

# -fgnuc-version defines the macros by which MinGW's headers choose what they declare, and nothing else.
include("${here}/linux-headers.cmake")
list(TRANSFORM header_folders PREPEND "-isystem ")
string(JOIN " " CMAKE_CXX_FLAGS_INIT
  -fgnuc-version=12.2.0 -fno-exceptions -fno-rtti -fno-threadsafe-statics
  -ffunction-sections -fdata-sections "-ffile-prefix-map=${CMAKE_SOURCE_DIR}/="
  ${header_definitions} -nostdinc++ -nostdlibinc -include "${here}/crt-prelude.h" ${header_folders})
set(CMAKE_CXX_FLAGS_RELEASE_INIT "-O2 -DNDEBUG")

set(CMAKE_USER_MAKE_RULES_OVERRIDE_CXX "${here}/windows-msvc-abi-rules.cmake")
