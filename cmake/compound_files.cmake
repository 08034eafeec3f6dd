# libgsf reads and writes the compound files of .XLS workbooks; its headers are not held to our
# warnings. A program with the property KALVO_STATIC gets it, and what it needs, as part of itself.

find_package(PkgConfig REQUIRED)
pkg_check_modules(GSF REQUIRED IMPORTED_TARGET libgsf-1)
target_include_directories(kalvo_platform SYSTEM PRIVATE ${GSF_INCLUDE_DIRS})
set(gsf_alone ${GSF_STATIC_LDFLAGS} -lbz2)
target_link_libraries(
  kalvo_platform
  INTERFACE "$<IF:$<BOOL:$<TARGET_PROPERTY:KALVO_STATIC>>,${gsf_alone},PkgConfig::GSF>")
