#!/usr/bin/env bash
# The benchmarks.
# usage: tools/bench.sh [BENCHMARK-OPTION...]     e.g. --benchmark_filter=Critical
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. tools/common.sh
need_packages $BUILD_PACKAGES libbenchmark-dev
build_preset bench
exec build/bench/bin/kalvo_bench "$@"
