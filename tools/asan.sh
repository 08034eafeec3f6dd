#!/usr/bin/env bash
# All tests under the address and undefined behaviour sanitizers.
# usage: tools/asan.sh [CTEST-OPTION...]
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. tools/common.sh
need_packages $BUILD_PACKAGES
build_preset asan
export GTEST_RANDOM_SEED=${GTEST_RANDOM_SEED:-$((RANDOM % 99999 + 1))}
say "running the tests (GTEST_RANDOM_SEED=$GTEST_RANDOM_SEED gives this order again)"
exec ctest --test-dir build/asan -j2 --output-on-failure --no-tests=error "$@"
