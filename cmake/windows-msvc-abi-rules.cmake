# How the cross build links: MinGW's start-up objects, GNU ld, GNU import libraries. The output is stripped, holds no
# section that nothing uses, and carries no time stamp, so that equal sources give equal files.
#
# GNU ld does not read the export directives of Microsoft-ABI objects: every DLL lists its exports in a .def file.
set(mingw /usr/x86_64-w64-mingw32/lib)
file(GLOB gcc_dir "/usr/lib/gcc/x86_64-w64-mingw32/*-win32")
set(runtime "-L${mingw} -L${gcc_dir} --start-group -lmingw32 -lgcc -lmingwex -lmsvcrt -lkernel32 --end-group")
set(link "x86_64-w64-mingw32-ld -m i386pep --subsystem console --gc-sections --no-insert-timestamp -s -o <TARGET>")

set(CMAKE_CXX_STANDARD_LIBRARIES_INIT "")
set(CMAKE_CXX_FLAGS_RELEASE_INIT "-O2 -DNDEBUG")
set(CMAKE_SHARED_LIBRARY_PREFIX "")
set(CMAKE_STATIC_LIBRARY_PREFIX "lib")
set(CMAKE_STATIC_LIBRARY_SUFFIX ".a")
set(CMAKE_IMPORT_LIBRARY_PREFIX "lib")
set(CMAKE_IMPORT_LIBRARY_SUFFIX ".a")
set(CMAKE_LINK_DEF_FILE_FLAG "")
set(CMAKE_CXX_CREATE_CONSOLE_EXE "")
set(CMAKE_LINK_LIBRARY_FLAG "-l")
set(CMAKE_LINK_LIBRARY_SUFFIX "")
set(CMAKE_FIND_LIBRARY_PREFIXES "lib")
set(CMAKE_FIND_LIBRARY_SUFFIXES ".a")

set(CMAKE_CXX_CREATE_SHARED_LIBRARY
  "${link} -shared --entry DllMainCRTStartup --out-implib <TARGET_IMPLIB> <LINK_FLAGS> ${mingw}/dllcrt2.o <OBJECTS> <LINK_LIBRARIES> ${runtime}")
set(CMAKE_CXX_LINK_EXECUTABLE
  "${link} --entry mainCRTStartup <LINK_FLAGS> ${mingw}/crt2.o <OBJECTS> <LINK_LIBRARIES> ${runtime}")
