# libgsf reads and writes the compound files of .XLS workbooks; its headers are not held to our
# warnings.

find_package(PkgConfig REQUIRED)
pkg_check_modules(GSF REQUIRED IMPORTED_TARGET libgsf-1)
target_link_libraries(kalvo_platform PRIVATE PkgConfig::GSF)
