# The headers of the builds for Windows on Linux: libc++ for C++, clang's own, MinGW's for C and Windows.
# In: LLVM_VERSION. Out: header_folders, in the order in which they are searched, and header_definitions.
set(libcxx "/usr/lib/llvm-${LLVM_VERSION}/include/c++/v1")

# libc++'s build settings: no threads, no localisation, no vcruntime; everything else as Debian ships it.
file(READ "${libcxx}/__config_site" site)
foreach(name _LIBCPP_HAS_NO_LOCALIZATION _LIBCPP_HAS_NO_THREADS _LIBCPP_HAS_NO_FILESYSTEM
             _LIBCPP_HAS_NO_MONOTONIC_CLOCK _LIBCPP_NO_VCRUNTIME)
  string(REPLACE "/* #undef ${name} */" "#define ${name}" site "${site}")
endforeach()
file(CONFIGURE OUTPUT "${CMAKE_BINARY_DIR}/libcxx-config/__config_site" CONTENT "${site}" @ONLY)

# MinGW's inline functions of <math.h> would be emitted into every object, used or not; the runtime has them too.
set(header_definitions -D_LIBCPP_DISABLE_VISIBILITY_ANNOTATIONS -D_LIBCPP_NO_AUTO_LINK -D__CRT__NO_INLINE)
set(header_folders
  "${CMAKE_BINARY_DIR}/libcxx-config" "${libcxx}" "/usr/lib/llvm-${LLVM_VERSION}/lib/clang/${LLVM_VERSION}/include"
  /usr/x86_64-w64-mingw32/include)
