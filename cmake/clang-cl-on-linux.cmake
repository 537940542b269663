# CMake toolchain: the build for Microsoft's tools, tried on Linux.
#
# clang-cl, lld-link and llvm-lib take the command lines that CMake writes for cl, link and lib, so that this build runs
# what cmake/ says for a Windows machine. The headers are those of the other cross build, and MinGW's C runtime and
# import libraries stand in for Microsoft's. Warnings about anything outside standard C++ are errors.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(LLVM_VERSION 19 CACHE STRING "Major version of the LLVM packages")
set(TALQ_MINGW_RUNTIME TRUE)
set(here "${CMAKE_CURRENT_LIST_DIR}")

set(CMAKE_CXX_COMPILER clang-cl-${LLVM_VERSION})
set(CMAKE_CXX_COMPILER_TARGET x86_64-pc-windows-msvc)
set(CMAKE_AR llvm-lib-${LLVM_VERSION})
set(CMAKE_LINKER lld-link-${LLVM_VERSION})
set(CMAKE_MT llvm-mt-${LLVM_VERSION})
set(CMAKE_RC_COMPILER llvm-rc-${LLVM_VERSION})
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
set(CMAKE_CXX_COMPILER_WORKS TRUE)

# Off are what Microsoft's runtime serves: exceptions, RTTI (but in the module), security cookies, statics that wait for
# other threads.
# -fgnuc-version defines the macros by which MinGW's headers choose what they declare, and nothing else.
include("${here}/linux-headers.cmake")
list(TRANSFORM header_folders PREPEND "/imsvc ")
string(JOIN " " flags
  /DWIN32 /D_WINDOWS /EHs-c- /GR- /GS- /Zc:threadSafeInit- /clang:-fgnuc-version=12.2.0
  ${header_definitions} /X -nobuiltininc /FI "${here}/crt-prelude.h" ${header_folders}
  -Wgnu -Wmicrosoft -Wpedantic)
set(CMAKE_CXX_FLAGS "${flags}" CACHE STRING "")
set(CMAKE_COMPILE_WARNING_AS_ERROR ON)

# The project asks for opengl32.lib as Microsoft's linker names it, which is libopengl32.a here.
set(mingw /usr/x86_64-w64-mingw32/lib)
file(GLOB gcc_library "/usr/lib/gcc/x86_64-w64-mingw32/*-win32/libgcc.a")
set(libraries "${CMAKE_BINARY_DIR}/libraries")
file(MAKE_DIRECTORY "${libraries}")
foreach(name opengl32 glu32 gdi32 user32 shell32 kernel32 mingw32 mingwex msvcrt)
  file(CREATE_LINK "${mingw}/lib${name}.a" "${libraries}/${name}.lib" SYMBOLIC)
endforeach()
set(link_flags "/lldmingw /alternatename:__image_base__=__ImageBase /nodefaultlib /timestamp:0 /libpath:${libraries}")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "${link_flags} /entry:DllMainCRTStartup ${mingw}/dllcrt2.o")
set(CMAKE_EXE_LINKER_FLAGS_INIT "${link_flags} /entry:mainCRTStartup ${mingw}/crt2.o")
set(CMAKE_CXX_STANDARD_LIBRARIES "mingw32.lib mingwex.lib msvcrt.lib kernel32.lib ${gcc_library}")
