# All bench/*_bench.cpp make one program, kalvo_bench.

kalvo_sources(bench_sources "bench/*.cpp" "bench/*.h")
if(bench_sources)
  find_package(benchmark REQUIRED)
  kalvo_links(bench_links cli)
  add_executable(kalvo_bench ${bench_sources})
  target_include_directories(kalvo_bench PRIVATE "${PROJECT_SOURCE_DIR}")
  target_compile_definitions(kalvo_bench PRIVATE KALVO_LIBRARY_DIR="${KALVO_LIBRARY_DIR}"
                             KALVO_SAMPLES_DIR="${KALVO_SAMPLES_DIR}"
                             KALVO_BINARY="$<TARGET_FILE:kalvo>")
  target_link_libraries(kalvo_bench PRIVATE ${bench_links} benchmark::benchmark_main
                        kalvo_warnings)
  foreach(need IN ITEMS kalvo kalvo_pipes kalvo_samples)
    if(TARGET ${need})
      add_dependencies(kalvo_bench ${need})
    endif()
  endforeach()
endif()
