# Sourced by the scripts, from the project's root: installing the Debian packages that are missing
# (quick when none is) and building a preset. All their talk goes to the error output.

readonly BUILD_PACKAGES="g++ cmake ninja-build ccache libcli11-dev nlohmann-json3-dev \
  libgtest-dev libgmock-dev libgsf-1-dev liblzma-dev pkg-config qt6-base-dev qt6-svg-dev \
  libqpdf-dev fonts-noto-core"
readonly WINDOW_PACKAGES="fonts-noto-core"
readonly SCREEN_PACKAGES="xvfb xdotool x11-xkb-utils fonts-noto-core"
readonly READER_PACKAGES="mdbtools poppler-utils"  # other programs that read our files back in tests
readonly LINT_PACKAGES="git clang-format clang-tidy"

say() { printf '== %s\n' "$*" >&2; }
die() { printf '== error: %s\n' "$*" >&2; exit 1; }

missing_packages() {
  local package
  for package in "$@"; do
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] ||
      printf '%s ' "$package"
  done
}

as_root() {
  if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

apt_install() {
  local apt="env DEBIAN_FRONTEND=noninteractive apt-get -qq -y -o DPkg::Lock::Timeout=300"
  as_root $apt update </dev/null &&
    as_root $apt install --no-install-recommends "$@" </dev/null
}

# need_packages package...
need_packages() {
  if ! command -v dpkg-query >/dev/null; then
    say "not a Debian system: taking its tools as they are"
    return
  fi
  local missing log
  missing=$(missing_packages "$@")
  [ -n "$missing" ] || return 0
  say "installing: $missing"
  [ "$(id -u)" -eq 0 ] || command -v sudo >/dev/null ||
    die "packages are missing and there is neither root nor sudo; install: $missing"
  log=$(mktemp)
  if ! apt_install $missing >"$log" 2>&1; then
    say "apt-get failed, trying once more"
    sleep 5
    if ! apt_install $missing >"$log" 2>&1; then
      tail -n 20 "$log" >&2
      rm -f "$log"
      die "cannot install: $missing"
    fi
  fi
  rm -f "$log"
}

# Passes on what ninja says, but of its lines of progress only one every 15 seconds.
show_progress() {
  local line shown=$SECONDS
  while IFS= read -r line; do
    if [[ $line =~ ^\[[0-9]+/[0-9]+\] ]]; then
      [ $((SECONDS - shown)) -ge 15 ] || continue
      shown=$SECONDS
    fi
    printf '%s\n' "$line"
  done
}

# build_preset preset [target...]
build_preset() {
  local preset=$1 log=build/$1-configure.log target options=()
  shift
  mkdir -p build
  say "configuring build/$preset"
  cmake --preset "$preset" >"$log" 2>&1 </dev/null ||
    { cat "$log" >&2; die "configuring build/$preset failed"; }
  say "building build/$preset${*:+: $*}"
  for target in "$@"; do options+=(--target "$target"); done
  NINJA_STATUS='[%f/%t] ' cmake --build --preset "$preset" "${options[@]}" </dev/null 2>&1 |
    show_progress >&2
  [ "${PIPESTATUS[0]}" -eq 0 ] || die "building build/$preset failed"
}

# The project's C++ files, tracked or new but not ignored; one a line, sorted.
project_sources() {
  if git -c safe.directory='*' rev-parse >/dev/null 2>&1; then
    git -c safe.directory='*' ls-files --cached --others --exclude-standard -- '*.cpp' '*.h'
  else
    find . -name 'build*' -prune -o -name '.?*' -prune -o \
      \( -name '*.cpp' -o -name '*.h' \) -print | sed 's,^\./,,'
  fi | while IFS= read -r file; do [ ! -f "$file" ] || printf '%s\n' "$file"; done | LC_ALL=C sort
}
