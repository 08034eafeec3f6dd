# fuzz/<name>_fuzz.cpp holds LLVMFuzzerTestOneInput for one reader. With KALVO_FUZZ it becomes the
# libFuzzer program kalvo_<name>_fuzz; with the tests, kalvo_<name>_replay runs it over every file
# of fuzz/corpus/<name>/.

kalvo_sources(fuzz_sources "fuzz/*_fuzz.cpp")
foreach(source IN LISTS fuzz_sources)
  cmake_path(GET source STEM stem)
  string(REGEX REPLACE "_fuzz$" "" name ${stem})
  set(programs "")
  if(KALVO_FUZZ)
    add_executable(kalvo_${name}_fuzz ${source})
    target_link_options(kalvo_${name}_fuzz PRIVATE -fsanitize=fuzzer)
    list(APPEND programs kalvo_${name}_fuzz)
  endif()
  if(KALVO_TESTS)
    add_executable(kalvo_${name}_replay
                   ${source} "${PROJECT_SOURCE_DIR}/tests/support/fuzz_replay_main.cpp")
    list(APPEND programs kalvo_${name}_replay)
    add_test(NAME kalvo_${name}_replay
             COMMAND kalvo_${name}_replay "${PROJECT_SOURCE_DIR}/fuzz/corpus/${name}")
    set_tests_properties(kalvo_${name}_replay PROPERTIES TIMEOUT 300)
  endif()
  foreach(program IN LISTS programs)
    target_link_libraries(${program} PRIVATE kalvo_cli kalvo_platform kalvo_warnings)
  endforeach()
endforeach()
