# random_calls: the module's handlers under random calls. fuzz_NAME: a libFuzzer target for each reader of the
# development host. Configured by the preset native-fuzz.
add_library(fuzzed_host OBJECT ${host_sources})
target_compile_definitions(fuzzed_host PRIVATE TALQ_HOST_BUILD)
target_include_directories(fuzzed_host SYSTEM PRIVATE tests/recorder/include "${STB_INCLUDE_DIR}")
# stb_image hands null to memcpy, with the size 0, for some broken PNGs.
target_compile_options(fuzzed_host PRIVATE -fsanitize=fuzzer-no-link -fno-sanitize=nonnull-attribute)
target_link_libraries(fuzzed_host PRIVATE project_options)

collect_sources(random_call_sources tests/recorder)
foreach(name random_calls world arguments invariants)
  list(APPEND random_call_sources "fuzz/${name}.cpp")
endforeach()
foreach(name allocation allocation_limit fake_device load_module values)
  list(APPEND random_call_sources "tests/unit/${name}.cpp")
endforeach()
add_executable(random_calls ${module_sources} ${random_call_sources})
target_compile_definitions(random_calls PRIVATE TALQ_HOST_BUILD)
target_include_directories(random_calls SYSTEM PRIVATE tests/recorder/include)
target_link_libraries(random_calls PRIVATE project_options fuzzed_host)
target_link_options(random_calls PRIVATE -fsanitize=fuzzer-no-link LINKER:--wrap=calloc)

foreach(name signature script obj png)
  add_executable(fuzz_${name} fuzz/${name}_target.cpp)
  target_compile_definitions(fuzz_${name} PRIVATE TALQ_HOST_BUILD)
  target_link_libraries(fuzz_${name} PRIVATE project_options fuzzed_host)
  target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
endforeach()
