# The packaged libraries. The filter itself uses none of them.
find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)

pkg_check_modules(HOST_LIBRARIES REQUIRED IMPORTED_TARGET
  zlib libpng libjpeg libtiff-4 fontconfig freetype2)
pkg_check_modules(CAIRO REQUIRED IMPORTED_TARGET cairo)
pkg_check_modules(PNG REQUIRED IMPORTED_TARGET libpng)
