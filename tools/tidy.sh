#!/usr/bin/env bash
# Runs clang-tidy on the sources of the floors study to platform, and of further folders when they
# are named, by the compile commands of build/release. A source is passed over when neither it, nor a project header it includes, nor
# .clang-tidy has changed since it was last found clean.
# usage: tools/tidy.sh [FOLDER...]     after the preset release has been built; e.g. tools/tidy.sh cli
set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1
. tools/common.sh

readonly BUILD=build/release
extra="$*"
readonly FOLDERS="study|engine|form|entry|results|shell|platform${extra:+|${extra// /|}}"
readonly CLEAN=build/tidy  # <source with dots for slashes> holds the key it was found clean with

# "source header..." for every object of the last build, by paths from the project's root.
dependencies() {
  ninja -C "$BUILD" -t deps | awk -v root="$PWD/" '
    /^[^ ]/ { if (line) print line; line = "" }
    /^ /    { sub(/^ +/, "")
              if (index($0, root) == 1) line = line (line ? " " : "") substr($0, length(root) + 1) }
    END     { if (line) print line }'
}

# "source key" for every source that has to be looked at.
outdated() {
  local source headers key
  declare -A includes
  dependencies >"$CLEAN/dependencies"
  while read -r source headers; do includes[$source]=$headers; done <"$CLEAN/dependencies"
  project_sources | grep -E "^($FOLDERS)/.*\.cpp\$" |
    while read -r source; do
      key=$(cat .clang-tidy "$source" ${includes[$source]-} | sha256sum | cut -c1-64)
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
todo=$(outdated)
count=$(printf '%s' "$todo" | grep -c '')
say "lint: $count sources have changed since they were found clean"
[ "$count" -gt 0 ] || exit 0
printf '%s\n' "$todo" | xargs -P "$(nproc)" -L 1 tools/tidy.sh --one | show_findings "$count"
[ "${PIPESTATUS[1]}" -eq 0 ] || exit 1
