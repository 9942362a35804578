# Address and undefined-behaviour sanitizers for every target; a finding ends the program.
option(EGFSVG_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)

if(EGFSVG_SANITIZE)
  add_compile_options(-fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
  add_compile_definitions(EGFSVG_SANITIZED=1 _GLIBCXX_ASSERTIONS=1)
endif()

# What a test that runs under the sanitizers finds in its environment.
set(EGFSVG_TEST_ENVIRONMENT
  "ASAN_OPTIONS=detect_leaks=1:strict_string_checks=1:detect_stack_use_after_return=1"
  "UBSAN_OPTIONS=print_stacktrace=1"
  "LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/cmake/lsan.supp:print_suppressions=0")
