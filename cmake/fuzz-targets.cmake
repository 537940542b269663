# random_calls: the module's handlers under random calls. fuzz_NAME: a libFuzzer target for each reader of the
# development host, which reports to libFuzzer where it has been. Part of the preset native-asan.
target_compile_options(host_part PRIVATE -fsanitize=fuzzer-no-link)

add_executable(random_calls)
foreach(name random_calls world arguments invariants)
  target_sources(random_calls PRIVATE "fuzz/${name}.cpp")
endforeach()
target_link_libraries(random_calls PRIVATE project_options ${tested_parts})
precompile_standard_headers(random_calls)
wrap_calls(random_calls support_part)

foreach(name signature script obj png)
  add_executable(fuzz_${name} fuzz/${name}_target.cpp)
  target_link_libraries(fuzz_${name} PRIVATE project_options host_part)
  target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
endforeach()
