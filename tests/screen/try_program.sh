#!/usr/bin/env bash
# Uses the built program as an engineer does, on a screen of its own: by keys, and looking at which
# windows show and which files stand.
# usage: try_program.sh KALVOFLUME SAMPLES_FOLDER [PICTURES_FOLDER]
set -uo pipefail
for tool in Xvfb xdotool setxkbmap pdfinfo pdftotext; do
  command -v "$tool" >/dev/null && continue
  printf '%s is missing\n' "$tool"
  [ "${CI-}" != true ] || exit 1
  exit 77 # skipped
done
export LC_ALL=C.UTF-8
program=$1
samples=$2
pictures=${3-}
home=$(mktemp -d)
export KALVOFLUME_HOME=$home/program XDG_STATE_HOME=$home/state XDG_RUNTIME_DIR=$home/runtime
export QT_QPA_PLATFORM=xcb
mkdir -m 700 "$XDG_RUNTIME_DIR"
unset WAYLAND_DISPLAY
work=$KALVOFLUME_HOME
pid=

end() {
  [ -z "$pid" ] || kill -9 "$pid" 2>/dev/null
  [ -z "${screen-}" ] || kill "$screen" 2>/dev/null
  rm -rf "$home"
}
trap end EXIT
stage=

fail() {
  printf 'FAILED in "%s": %s\n' "$stage" "$*"
  printf 'windows on the screen:\n'
  xdotool search --onlyvisible --name . 2>/dev/null |
    while read -r window; do xdotool getwindowname "$window"; done | sort -u
  printf 'the program %s, its output:\n' "$(running)"
  tail -20 "$home/output" 2>/dev/null
  [ -z "$pictures" ] || import -window root "$pictures/failed.png"
  exit 1
}

stage() {
  stage=$1
  printf -- '-- %s\n' "$stage"
}

# within SECONDS command...: the command succeeds before that time is over.
within() {
  local end=$((SECONDS + $1))
  shift
  until "$@" >/dev/null 2>&1; do
    [ "$SECONDS" -lt "$end" ] || return 1
    sleep 0.05
  done
}

shows() { xdotool search --onlyvisible --name "$1"; }
shows_not() { ! shows "$1"; }
see() { within 20 shows "$1" || fail "no window \"$1\""; }
see_no_more() { within 20 shows_not "$1" || fail "window \"$1\" still shows"; }
stands() { [ -s "$work/$1" ]; }
see_file() { within 20 stands "$1" || fail "no file $1"; }
see_no_file() { [ ! -e "$work/$1" ] || fail "$1 still stands"; }

# in_front NAME: the window of that name takes the keys.
in_front() {
  local window
  window=$(xdotool getwindowfocus 2>/dev/null) || return 1
  [[ $(xdotool getwindowname "$window") == *"$1"* ]]
}

# keys WINDOW KEY...: presses them in the window.
keys() {
  see "$1"
  within 20 in_front "$1" || fail "\"$1\" does not take the keys"
  shift
  xdotool key --delay 60 "$@"
}

# One press may come before a window listens: presses until the next window shows.
press_to() {
  local from=$1 key=$2 to=$3 tries
  for tries in 1 2 3 4 5; do
    keys "$from" "$key"
    within 4 shows "$to" && return
  done
  fail "\"$to\" does not come by $key (tried $tries times)"
}

picture() { [ -z "$pictures" ] || { sleep 0.4; import -window root "$pictures/$1.png"; }; }

start() {
  "$program" "$@" >"$home/output" 2>&1 &
  pid=$!
  disown
}

gone() { ! kill -0 "$pid" 2>/dev/null; }
running() { if gone; then echo ended; else echo runs; fi; }

die_by_kill() {
  kill -9 "$pid"
  within 10 gone || fail "the program outlives its end"
  pid=
}

# Another program that reads workbooks; Debian's own python has it.
read_workbook=("${KALVO_PYTHON-/usr/bin/python3}" -B
  "$(dirname "$0")/../workbooks/read_workbook.py")

readonly title='^Kalvoflume$'
readonly kind='ΕΠΙΛΟΓΗ ΣΥΣΤΗΜΑΤΟΣ ΣΩΛΗΝΩΝ'
readonly main='Πρόγραμμα Υπολογισμού Σωλήνων Ροής Υγρών'
readonly studies='Ανάκληση Αρχείου'
readonly save='Δημιουργία Αρχείου'
readonly sheet='ΣΥΓΚΕΝΤΡΩΤΙΚΑ ΑΠΟΤΕΛΕΣΜΑΤΑ'
readonly one='^ΑΠΟΤΕΛΕΣΜΑΤΑ ΥΠΟΛΟΓΙΣΜΩΝ'
readonly list='Διαθέσιμες Διάμετροι'
readonly attention='ΠΡΟΣΟΧΗ'
readonly go_to='Πήγαινε \(GoTo\)'
readonly print='ΕΚΤΥΠΩΣΗ ΑΠΟΤΕΛΕΣΜΑΤΩΝ'
readonly made='^Εκτύπωση$'
readonly left_over='Ημιτελής Παλαιά Μελέτη'

start_to_kind() {
  start
  see "$title"
  press_to Kalvoflume Return "$kind"
}

open_hotel() {
  press_to "$main" ctrl+o "$studies"
  picture studies
  keys "$studies" slash BackSpace
  xdotool type --delay 40 'ξενοδ'
  picture studies-found
  keys "$studies" Return
  see_no_more "$studies"
  see_file DATARES.TMP
}

stage "a screen"
# Without -noreset the screen throws out every client when its last one ends, also one just come.
exec {number}< <(exec Xvfb -displayfd 1 -screen 0 1400x950x24 -nolisten tcp -noreset 2>/dev/null)
screen=$!
read -r -t 20 -u "$number" display || fail "no screen"
export DISPLAY=:$display
# Greek letters that stand on no key would be put on one, and taken off again, while typing.
setxkbmap -layout us,gr || fail "no Greek keyboard"
mkdir -p "$work/PFILES"
cp "$samples"/* "$work/PFILES"

stage "start, kind, menu"
start_to_kind
picture kind
press_to "$kind" Return "$main"
picture main-empty

stage "killed with nothing open: nothing is offered back, options stand"
keys "$main" shift+Escape
within 5 grep -q FolderCommands=0 "$work/Kalvoflume.opt" || fail "the option is not remembered"
die_by_kill
start_to_kind
press_to "$kind" Return "$main"

stage "the hotel by its title"
open_hotel
picture main

stage "killed with the hotel open: it comes back as it stood"
cp "$work/DATARES.TMP" "$home/rows"
die_by_kill
start_to_kind
press_to "$kind" Return "$left_over"
picture left-over
press_to "$left_over" Return "$main"
cmp -s "$home/rows" "$work/DATARES.TMP" || fail "the rows changed"

stage "results, section by section, and back"
press_to "$main" F9 "$sheet"
see_file FIRSTONE.TMP
picture sheet
press_to "$sheet" shift+F12 "$one"
press_to ΑΠΟΤΕΛΕΣΜΑΤΑ F5 "$go_to"
picture go-to
keys GoTo Down Down Return
see_no_more "$go_to"
picture one
press_to ΑΠΟΤΕΛΕΣΜΑΤΑ Escape "$main"
see_no_more "$one"
see_no_file FIRSTONE.TMP

stage "saved under a new name"
press_to "$main" ctrl+shift+s "$save"
keys "$save" ctrl+a
xdotool type --delay 40 'NEO'
picture save
keys "$save" Return
see_no_more "$save"
see_file PFILES/NEO.PCK

readonly pdf=$work/PFILES/ASCII/NEO_RCO.PDF
readonly workbook=$work/PFILES/ASCII/NEO_RCO.XLS

# The results of the hotel, 604 sections at 40 a page.
look_at_pdf() {
  local pages text
  pages=$(pdfinfo "$pdf" | awk '/^Pages:/ {print $2}')
  [ "$pages" = 16 ] || fail "$pages pages, not 16"
  text=$(pdftotext -layout "$pdf" -)
  for words in ΑΠΟΤΕΛΕΣΜΑΤΑ 'Θέρμανση ξενοδοχείου πέντε ορόφων' 'Παροχή Αντλίας' \
    'Σελίδα 1 από 16' 'Σελίδα 16 από 16'; do
    grep -q "$words" <<<"$text" || fail "no \"$words\" in the PDF"
  done
}

# What the saved study has is in the workbook, and nothing else.
look_at_workbook() {
  "${read_workbook[@]}" results "$workbook" "$work/PFILES/NEO.PCK" "$work" "$work" '' \
    >"$home/faults" 2>&1 || fail "the workbook is not the study: $(tail -5 "$home/faults")"
}

# To the question whether a workbook is to be made; its tick comes behind printer and copies.
ask_for_workbook() {
  press_to "$sheet" ctrl+p "$print"
  sleep 0.3
  keys ΕΚΤΥΠΩΣΗ Tab Tab Tab Tab space
  picture print-workbook
  press_to ΕΚΤΥΠΩΣΗ ctrl+Return "$attention"
}

# As a window manager does when a box has closed.
give_keys() { xdotool search --onlyvisible --name "$1" windowfocus; }

# Yes to the question that shows; the next one has the same name.
to_second_question() {
  local first
  first=$(shows "$attention")
  keys "$attention" n
  within 20 shows_other "$attention" "$first" || fail "no second question"
}
shows_other() { [[ $(shows "$1") =~ [0-9] && $(shows "$1") != "$2" ]]; }

# That the file is made; it is not to be opened.
see_made() {
  see "$made"
  keys Εκτύπωση Return
  see_no_more "$made"
}

stage "results printed into a PDF, and into a workbook twice"
press_to "$main" ctrl+r "$sheet"
press_to "$sheet" ctrl+p "$print"
picture print
press_to ΕΚΤΥΠΩΣΗ ctrl+shift+s "$made"
look_at_pdf
see_made
give_keys "$print"
keys ΕΚΤΥΠΩΣΗ Escape
see_no_more "$print"
ask_for_workbook
press_to "$attention" n "$made"
look_at_workbook
see_made
see_no_more "$print"
printf 'an older file' >"$workbook"
cp "$workbook" "$home/older"
ask_for_workbook
to_second_question
picture replace
keys "$attention" Return
see_no_more "$attention"
cmp -s "$home/older" "$workbook" || fail "replaced without a yes"
give_keys "$print"
press_to ΕΚΤΥΠΩΣΗ ctrl+Return "$attention"
to_second_question
press_to "$attention" n "$made"
look_at_workbook
see_made
see_no_more "$print"
press_to "$sheet" Escape "$main"

# change_one KEY...: from the results of one section, by the menu of the right button.
change_one() {
  keys ΑΠΟΤΕΛΕΣΜΑΤΑ Menu
  sleep 0.5
  keys ΑΠΟΤΕΛΕΣΜΑΤΑ Up Up Up Return
  see "$list"
  keys "$list" "$@"
}

rows_differ() { ! cmp -s "$1" "$work/DATARES.TMP"; }

stage "a diameter is changed, calculated, taken back, made again, compared and kept"
press_to "$main" ctrl+r "$sheet"
see_file FIRSTONE.TMP
cp "$work/DATARES.TMP" "$home/rows"
press_to "$sheet" shift+F12 "$one"
change_one Down Return
within 10 rows_differ "$home/rows" || fail "nothing was replaced"
picture waiting
keys "$list" Escape
see_no_more "$list"
press_to ΑΠΟΤΕΛΕΣΜΑΤΑ shift+F12 "$sheet"
see_file DATARES.PRV
cp "$work/DATARES.TMP" "$home/changed"
keys "$sheet" ctrl+z
within 10 cmp -s "$home/rows" "$work/DATARES.TMP" || fail "not taken back byte for byte"
keys "$sheet" ctrl+y
within 10 cmp -s "$home/changed" "$work/DATARES.TMP" || fail "not made again byte for byte"
press_to "$sheet" Escape "$attention"
picture kept
keys "$attention" n
press_to "$attention" Return "$main"
see_no_file FIRSTONE.TMP
keys "$main" ctrl+s
within 10 cmp -s "$home/changed" "$work/PFILES/NEO.PCK" || fail "not saved as calculated"

stage "killed with a change that waits: the rows of before come back, the others are kept"
press_to "$main" ctrl+r "$sheet"
press_to "$sheet" shift+F12 "$one"
rm -f "$work/DATARES.PRV" # as after a calculation: a change from the menu waits
change_one Up Return
within 10 rows_differ "$home/changed" || fail "nothing was replaced"
die_by_kill
start_to_kind
press_to "$kind" Return "$left_over"
cmp -s "$home/changed" "$work/DATARES.TMP" || fail "the rows of before do not come back"
ls "$work"/PFILES/ASFALEIA/* >/dev/null 2>&1 || fail "the displaced rows are not kept"
press_to "$left_over" Return "$main"

stage "killed with results on the screen: they come back"
press_to "$main" F9 "$attention"
press_to "$attention" Return "$sheet" # the diameter that was chosen stays
see_file FIRSTONE.TMP
cmp -s "$home/changed" "$work/DATARES.TMP" || fail "not calculated to the same rows"
cp "$work/DATARES.TMP" "$home/rows"
die_by_kill
start_to_kind
press_to "$kind" Return "$left_over"
press_to "$left_over" Return "$main"
cmp -s "$home/rows" "$work/DATARES.TMP" || fail "the results changed"

stage "killed in the dialog of files, then refused: a safety copy stands"
press_to "$main" ctrl+shift+s "$attention" # without a calculation the chosen diameter goes
press_to "$attention" n "$save"
die_by_kill
start_to_kind
press_to "$kind" Return "$left_over"
press_to "$left_over" alt+x "$main"
see_no_file DATARES.TMP
ls "$work"/PFILES/ASFALEIA/* >/dev/null 2>&1 || fail "no safety copy"

stage "left: the choice of kind, then the end"
press_to "$main" alt+F4 "$kind"
keys "$kind" Escape
within 10 gone || fail "the program does not end"
pid=
[ ! -s "$home/output" ] || fail "the program wrote: $(head -3 "$home/output")"
printf 'all stages passed\n'
