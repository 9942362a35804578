# Flags that every target of the project shares. Floating point must be exact and repeatable:
# no contraction, no fast-math, no machine-specific code. Records are built with designated
# initialisers that leave the fields they do not name at zero.
option(EGFSVG_WERROR "Treat warnings as errors" OFF)

add_library(egfsvg_flags INTERFACE)
target_compile_options(egfsvg_flags INTERFACE
  -ffp-contract=off -fno-fast-math
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wimplicit-fallthrough
  -Wno-missing-field-initializers
  -Werror=address-of-packed-member -Werror=return-type
  $<$<BOOL:${EGFSVG_WERROR}>:-Werror>)
target_include_directories(egfsvg_flags INTERFACE ${CMAKE_SOURCE_DIR} ${CMAKE_SOURCE_DIR}/filter)
