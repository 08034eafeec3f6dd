# All bench/*_bench.cpp make one program, kalvo_bench; bench/window/*.cpp make kalvo_window_bench,
# on the same studies.

kalvo_sources(bench_sources "bench/*.cpp" "bench/*.h")
find_package(benchmark REQUIRED)
add_executable(kalvo_bench ${bench_sources})
target_link_libraries(kalvo_bench PRIVATE benchmark::benchmark_main)
set(bench_programs kalvo_bench)
if(TARGET kalvo_desktop)
  kalvo_sources(window_bench_sources "bench/window/*.cpp")
  add_executable(kalvo_window_bench ${window_bench_sources} bench/bench_program.cpp
                                    bench/building_network.cpp bench/supply_network.cpp)
  target_link_libraries(kalvo_window_bench PRIVATE kalvo_desktop benchmark::benchmark)
  list(APPEND bench_programs kalvo_window_bench)
endif()
foreach(program IN LISTS bench_programs)
  target_compile_definitions(${program} PRIVATE KALVO_SOURCE_DIR="${PROJECT_SOURCE_DIR}"
                             KALVO_LIBRARY_DIR="${KALVO_LIBRARY_DIR}"
                             KALVO_SAMPLES_DIR="${KALVO_SAMPLES_DIR}"
                             KALVO_BINARY="$<TARGET_FILE:kalvo>")
  target_link_libraries(${program} PRIVATE kalvo_cli kalvo_platform kalvo_warnings)
  add_dependencies(${program} kalvo kalvo_pipes kalvo_samples)
  if(TARGET kalvo_manual)
    add_dependencies(${program} kalvo_chapters kalvo_pictures kalvo_manual)
  endif()
endforeach()
