# project_options: what every target of the project is compiled with; rtti_option: what gives a target RTTI.
add_library(project_options INTERFACE)
target_include_directories(project_options INTERFACE "${PROJECT_SOURCE_DIR}")
if(CMAKE_CXX_COMPILER_FRONTEND_VARIANT STREQUAL "MSVC" OR CMAKE_CXX_COMPILER_ID STREQUAL "MSVC")
  # Each product is rounded by itself, as in the cross build.
  target_compile_options(project_options INTERFACE /W4 /permissive- /utf-8 /fp:precise)
  set(rtti_option /GR)
  target_compile_definitions(project_options INTERFACE _CRT_SECURE_NO_WARNINGS NOMINMAX)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    # offsetof as below; clang's precise model would contract products into sums.
    target_compile_options(project_options INTERFACE -Wno-invalid-offsetof /clang:-ffp-contract=off)
  endif()
else()
  set(rtti_option -frtti)
  # offsetof on classes with virtual functions: the layouts that the host shares are asserted.
  target_compile_options(project_options INTERFACE
    -Wall -Wextra -Wconversion -Wshadow -Wold-style-cast -Wno-invalid-offsetof -Werror -ffp-contract=off)
endif()

# The PNG reader and writer of the development host are single headers; they lie in a folder of their own, so that a
# cross build does not see the rest of the Linux headers.
find_path(STB_INCLUDE_DIR stb_image.h PATHS /usr/include/stb NO_CMAKE_FIND_ROOT_PATH REQUIRED)
