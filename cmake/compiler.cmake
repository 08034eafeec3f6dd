# Language, warnings and sanitizers for the whole tree.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")

# A plain `cmake -B build` builds what the release preset builds.
if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release)
endif()
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")

find_program(KALVO_CCACHE ccache)
if(KALVO_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${KALVO_CCACHE}")
endif()

# A multiplication and an addition must not be fused: the rounding of results would then depend
# on the processor.
add_compile_options(-ffp-contract=off)

if(KALVO_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    message(FATAL_ERROR "KALVO_FUZZ needs clang: use the preset fuzz")
  endif()
  # The fuzzers steer by the coverage of the libraries below them.
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
add_compile_definitions($<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>)
if(KALVO_SANITIZE)
  add_compile_options(-fsanitize=${KALVO_SANITIZE} -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${KALVO_SANITIZE})
endif()

add_library(kalvo_warnings INTERFACE)
target_compile_options(kalvo_warnings INTERFACE -Wall -Wextra -Wconversion -Wshadow -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  # In clang -Wconversion includes the sign conversions that g++ keeps apart.
  target_compile_options(kalvo_warnings INTERFACE -Wno-sign-conversion)
elseif(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # g++ 12 sees overlapping copies in "text" + std::string at -O2 where there are none
  # (GCC bug 105329).
  target_compile_options(kalvo_warnings INTERFACE -Wno-restrict)
  if(KALVO_SANITIZE)
    # The checks that the sanitizers put in confuse this warning.
    target_compile_options(kalvo_warnings INTERFACE -Wno-maybe-uninitialized)
  endif()
endif()
