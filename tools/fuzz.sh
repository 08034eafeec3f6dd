#!/usr/bin/env bash
# Runs every fuzz target for a while, from the inputs kept in fuzz/corpus/<name>/. New inputs that
# reach new code are left in build/fuzz/found/<name>/, the ones that break in build/fuzz/broken/.
# usage: tools/fuzz.sh [SECONDS-EACH [NAME...]]     60 seconds and every target without them
set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1
. tools/common.sh
seconds=${1:-60}
[[ $seconds =~ ^[0-9]+$ ]] || die "usage: tools/fuzz.sh [SECONDS-EACH [NAME...]]"
shift $(($# > 0 ? 1 : 0))
need_packages $BUILD_PACKAGES clang libclang-rt-14-dev
build_preset fuzz

if [ $# -eq 0 ]; then
  for source in fuzz/*_fuzz.cpp; do
    [ -f "$source" ] || die "there is no fuzz target"
    name=$(basename "$source" _fuzz.cpp)
    set -- "$@" "$name"
  done
fi
mkdir -p build/fuzz/broken
failed=""
for name in "$@"; do
  folders="build/fuzz/found/$name"
  mkdir -p "$folders"
  [ ! -d "fuzz/corpus/$name" ] || folders="$folders fuzz/corpus/$name"
  say "fuzzing $name for $seconds seconds"
  log=build/fuzz/$name.log
  if "build/fuzz/bin/kalvo_${name}_fuzz" -max_total_time="$seconds" -timeout=10 \
    -rss_limit_mb=2048 -artifact_prefix="build/fuzz/broken/$name-" $folders >"$log" 2>&1; then
    tail -n 1 "$log"
  else
    tail -n 40 "$log"
    failed="$failed $name"
  fi
done
[ -z "$failed" ] || die "broken:$failed (inputs in build/fuzz/broken/)"
