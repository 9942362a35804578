# Release builds see across the sources of a library when they link it (GNU compilers). The objects
# stay fat: the unit tests link them again without that work.
include(CheckCXXCompilerFlag)
check_cxx_compiler_flag("-flto -ffat-lto-objects" EGFSVG_HAS_FAT_LTO)

set(EGFSVG_LTO_COMPILE "")
set(EGFSVG_LTO_LINK "")
set(EGFSVG_LTO_NO_LINK "")
if(EGFSVG_HAS_FAT_LTO AND CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  set(EGFSVG_LTO_COMPILE "$<$<CONFIG:Release>:-flto;-ffat-lto-objects>")
  set(EGFSVG_LTO_LINK "$<$<CONFIG:Release>:-flto=auto;-O3>")
  set(EGFSVG_LTO_NO_LINK "$<$<CONFIG:Release>:-fno-lto>")
endif()
