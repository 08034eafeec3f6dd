#!/usr/bin/env bash
# Pictures of every window over the hotel sample, light and dark, and of a page of each report: in
# docs/pictures as on a screen of 96 dots per inch, in build/release/pictures-192 as on one of 192.
# usage: tools/pictures.sh
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. tools/common.sh
need_packages $BUILD_PACKAGES $WINDOW_PACKAGES
build_preset release kalvo_desktop_tests

# take SCALE FOLDER
take() {
  mkdir -p "$2"
  QT_SCALE_FACTOR=$1 QT_QPA_PLATFORM=offscreen KALVO_PICTURES=$2 \
    build/release/bin/kalvo_desktop_tests --gtest_filter='*AllScreensIn.Show*:*ReportPages*:Pictures.OfTheSmallWidgets' >/dev/null 2>&1 ||
    die "the windows are not whole at scale $1"
}
take 2 build/release/pictures-192
take 1 docs/pictures
mv docs/pictures/*-least.png build/release/pictures-192/  # at their least size: to be looked at, not kept
du -sh docs/pictures build/release/pictures-192
