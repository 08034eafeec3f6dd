#!/usr/bin/env bash
# Opens every report of the samples in LibreOffice, without a window, and compares its pages with
# those of our PDF: how many there are, and the words on each. Differences are printed; files and
# pictures of first pages are left in build/<preset>/pages.
# usage: tools/compare_pages.sh [BUILD-FOLDER]     build/release, built first, without it
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. tools/common.sh
need_packages $BUILD_PACKAGES $WINDOW_PACKAGES poppler-utils libreoffice-calc-nogui
build=${1-}
if [ -z "$build" ]; then
  build=build/release
  build_preset release kalvo workbook_pdf kalvo_samples kalvo_templates
fi
pages=$build/pages
rm -rf "$pages"
install -d -m 700 "$pages/office" "$pages/runtime"
export XDG_RUNTIME_DIR=$PWD/$pages/runtime

# make_reports STUDY KIND...: calculated, as workbooks.
make_reports() {
  local study=$1 kind
  shift
  "$build/bin/kalvo" --quiet calc "$build/data/samples/$study" --save "$pages/$study" >/dev/null 2>&1
  for kind in "$@"; do
    "$build/bin/kalvo" report "$pages/$study" --kind "$kind" --out "$pages/${study%.*}-$kind.xls" \
      --designer 'Μ. Μηχανικός'
  done
}

count_pages() { pdfinfo "$1" | awk '/^Pages:/ {print $2}'; }
words_of() { pdftotext -f "$2" -l "$2" "$1" - | tr -s ' \n\f' '\n' | sort; }

# compare WORKBOOK: what differs between its two PDFs.
compare() {
  local name ours theirs page last
  name=$(basename "$1" .xls)
  ours=$pages/$name.pdf
  theirs=$pages/office/$name.pdf
  "$build/bin/workbook_pdf" "$1" "$ours"
  pdftoppm -r 60 -l 1 -png "$ours" "$pages/$name-ours"
  pdftoppm -r 60 -l 1 -png "$theirs" "$pages/$name-theirs"
  printf '%s: %s pages, theirs %s\n' "$name" "$(count_pages "$ours")" "$(count_pages "$theirs")"
  last=$(count_pages "$ours")
  for ((page = 1; page <= last; ++page)); do
    diff <(words_of "$ours" "$page") <(words_of "$theirs" "$page") | grep '^[<>]' |
      sed "s/^/  page $page /" || true
  done
}

make_reports hotel.PCK results data quantities
make_reports fancoil.PCK results data quantities
make_reports single.PCK results data quantities
make_reports apartments.PCA results data quantities
make_reports house.PCA results data quantities
# Its own profile: a running office would answer instead. Numbers are written as in Greece.
LC_ALL=el_GR.UTF-8 soffice "-env:UserInstallation=file://$PWD/$pages/profile" --headless \
  --convert-to pdf --outdir "$pages/office" "$pages"/*.xls 2>&1 >/dev/null |
  grep -v javaldx >&2 || true # it asks for Java, and needs none
for workbook in "$pages"/*.xls; do compare "$workbook"; done
