# Flags that every target of the project shares. Floating point must be exact and repeatable:
# no contraction, no fast-math, no machine-specific options. Records are built with designated
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

# Records of several hundred bytes are copied whole: by the library's calls, which use wide
# registers, rather than by string instructions, which are slow to start.
include(CheckCXXCompilerFlag)
set(EGFSVG_COPY_BY_CALL -mmemcpy-strategy=libcall:-1:noalign -mmemset-strategy=libcall:-1:noalign)
check_cxx_compiler_flag("${EGFSVG_COPY_BY_CALL}" EGFSVG_HAS_COPY_BY_CALL)
if(EGFSVG_HAS_COPY_BY_CALL)
  target_compile_options(egfsvg_flags INTERFACE ${EGFSVG_COPY_BY_CALL})
  target_link_options(egfsvg_flags INTERFACE ${EGFSVG_COPY_BY_CALL})
endif()
