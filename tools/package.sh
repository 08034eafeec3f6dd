#!/usr/bin/env bash
# Makes the Debian package, build/release/kalvoflume_<version>_<architecture>.deb.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. tools/common.sh
need_packages $BUILD_PACKAGES dpkg-dev file
build_preset release
say "packing"
cd build/release
cpack >package.log 2>&1 || { tail -n 20 package.log >&2; die "packing failed"; }
ls "$PWD"/kalvoflume_*.deb
