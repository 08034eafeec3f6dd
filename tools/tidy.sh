#!/usr/bin/env bash
# Runs clang-tidy on the sources of the floors study to platform, and of further folders that need
# no generated header when they are named. Every source is looked at by itself, as the builds, which
# join several sources, do not. A source is passed over when neither it, nor a project header it
# includes, nor .clang-tidy has changed since it was last found clean.
# usage: tools/tidy.sh [FOLDER...]     e.g. tools/tidy.sh cli tests
set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1
. tools/common.sh

readonly BUILD=build/tidy/commands
extra="$*"
readonly FOLDERS="study|engine|form|entry|results|shell|platform${extra:+|${extra// /|}}"
readonly CLEAN=build/tidy  # <source with dots for slashes> holds the key it was found clean with

# "source header..." for every C++ file: the project's headers that it includes, theirs too.
dependencies() {
  project_sources | xargs -d '\n' grep -Ho '^#include "[^"]*"' /dev/null |
    awk -F '[:"]' '
      { includes[$1] = includes[$1] " " $3 }
      function collect(file,    names, count, i) {
        count = split(includes[file], names, " ")
        for (i = 1; i <= count; i++) {
          if (names[i] in seen) continue
          seen[names[i]] = 1
          line = line " " names[i]
          collect(names[i])
        }
      }
      END { for (file in includes) { delete seen; line = file; collect(file); print line } }'
}

# "source key" for every source that has to be looked at.
outdated() {
  local source headers key
  declare -A includes
  dependencies >"$CLEAN/dependencies"
  while read -r source headers; do includes[$source]=$headers; done <"$CLEAN/dependencies"
  project_sources | grep -E "^($FOLDERS)/.*\.cpp\$" |
    while read -r source; do
      key=$(cat .clang-tidy "$source" ${includes[$source]-} 2>/dev/null | sha256sum | cut -c1-64)
      [ "$(cat "$CLEAN/${source//\//.}" 2>/dev/null)" = "$key" ] ||
        printf '%s %s\n' "$source" "$key"
    done
}

# check_one source key: prints the findings, then "done".
check_one() {
  local output status
  output=$(clang-tidy --quiet -p "$BUILD" "$1" 2>&1)
  status=$?
  if [ $status -eq 0 ]; then
    printf '%s\n' "$2" >"$CLEAN/${1//\//.}"
  else
    printf '%s\n' "$output" | grep -vE '^[0-9]+ (warning|error)s? |^Suppressed |^Use -header-filter'
  fi
  echo done
  return $status
}

# Passes on the findings and tells every 20 seconds how far it is.
show_findings() {
  local line finished=0 shown=$SECONDS
  while IFS= read -r line; do
    if [ "$line" != done ]; then printf '%s\n' "$line"; continue; fi
    finished=$((finished + 1))
    [ $((SECONDS - shown)) -ge 20 ] || continue
    shown=$SECONDS
    printf '[%d/%d]\n' "$finished" "$1"
  done
}

if [ "${1-}" = --one ]; then check_one "$2" "$3"; exit; fi

need_packages $LINT_PACKAGES
mkdir -p "$CLEAN"
cmake -S . -B "$BUILD" -G Ninja -DCMAKE_BUILD_TYPE=Release -DKALVO_DESKTOP=OFF \
  >"$CLEAN/configure.log" 2>&1 </dev/null || { cat "$CLEAN/configure.log"; exit 1; }
todo=$(outdated)
count=$(printf '%s' "$todo" | grep -c '')
say "lint: $count sources have changed since they were found clean"
[ "$count" -gt 0 ] || exit 0
printf '%s\n' "$todo" | xargs -P "$(nproc)" -L 1 tools/tidy.sh --one | show_findings "$count"
[ "${PIPESTATUS[1]}" -eq 0 ] || exit 1
