# Fuzzing: clang's libFuzzer with the sanitizers; all code is instrumented, only the fuzz targets
# link the fuzzer's main.
option(EGFSVG_FUZZ "Build the fuzz targets (clang)" OFF)
option(EGFSVG_BENCH "Build the benchmarks" OFF)

if(EGFSVG_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID MATCHES Clang)
    message(FATAL_ERROR "The fuzz targets need clang++: cmake --preset fuzz")
  endif()
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
  add_compile_definitions(EGFSVG_SANITIZED=1)
endif()
