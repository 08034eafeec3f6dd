#!/usr/bin/env bash
# The benchmarks.
# usage: tools/bench.sh [--window] [BENCHMARK-OPTION...]     e.g. --benchmark_filter=Critical
#        --window     what a user waits for in the windows, instead of the engine
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. tools/common.sh
program=kalvo_bench
if [ "${1-}" = --window ]; then
  program=kalvo_window_bench
  shift
fi
need_packages $BUILD_PACKAGES libbenchmark-dev
build_preset bench "$program"
exec "build/bench/bin/$program" "$@"
