#!/usr/bin/env bash
# The benchmarks.
# usage: tools/bench.sh [--window] [BENCHMARK-OPTION...]     e.g. --benchmark_filter=Critical
#        --window     what a user waits for in the windows, instead of the engine
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. tools/common.sh
need_packages $BUILD_PACKAGES libbenchmark-dev
build_preset bench
program=kalvo_bench
if [ "${1-}" = --window ]; then
  program=kalvo_window_bench
  shift
fi
exec "build/bench/bin/$program" "$@"
