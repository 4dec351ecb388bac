#!/usr/bin/env bash
# The window under a real X server, driven by keystrokes as an author would:
# the sample opens, the error list and the options open by their keys, a
# second project arrives from a second start, and after kill -9 a new start
# with the sample shows its window again. Screenshots go to $PF_SHOTS (a
# folder of the build) for a person to look at.
#   xvfb_check.sh <bin dir> <source dir> <screenshot dir> [real data dir]
set -uo pipefail
bin=$1 source=$2 shots=$3 realdata=${4:-}
for tool in xvfb-run xdotool import; do
    command -v "$tool" >/dev/null || { echo "SKIP: $tool is not installed"; exit 77; }
done
mkdir -p "$shots"
rm -f "$shots"/*.png
if [ -z "${PF_INSIDE_XVFB:-}" ]; then
    export PF_INSIDE_XVFB=1
    exec xvfb-run -a -s "-screen 0 1280x800x24" "$0" "$@"
fi

unset QT_QPA_PLATFORM
export QT_QPA_PLATFORM=xcb
work=$(mktemp -d)
export TMPDIR=$work # the hand-over file and the instance socket of this check only
trap 'kill -9 $(jobs -p) 2>/dev/null; rm -rf "$work"' EXIT
failures=0

fail() { echo "FAIL: $*"; failures=$((failures + 1)); }

# Waits for a window whose title matches, prints its id.
window() { timeout 15 xdotool search --sync --onlyvisible --name "$1" 2>/dev/null | head -1; }

press() { # window id, keys
    xdotool windowactivate --sync "$1" 2>/dev/null || xdotool windowfocus --sync "$1"
    xdotool key --clearmodifiers "$2"
    sleep 1
}

shot() { import -window root "$shots/$1.png"; echo "screenshot $shots/$1.png"; }

"$bin/pugilforge" "$source/samples/ember/ember.def" &
main=$(window "^Ember - ")
[ -n "$main" ] || fail "the sample's window did not show"
sleep 1
shot 1-sample-definitions

press "$main" F7
errors=$(window "^Errors and warnings$")
[ -n "$errors" ] || fail "F7 did not open the error list"
shot 2-error-list
[ -n "$errors" ] && press "$errors" Escape

press "$main" F10
options=$(window "^Options$")
[ -n "$options" ] || fail "F10 did not open the options"
shot 3-options
[ -n "$options" ] && press "$options" Escape

second="$source/samples/ember/ember.def"
title="^Ember - "
if [ -n "$realdata" ] && [ -f "$realdata/fanyer__mugen/chars/kfm/kfm.def" ]; then
    second="$realdata/fanyer__mugen/chars/kfm/kfm.def"
    title="Kung Fu Man - "
fi
"$bin/pugilforge" "$second" || fail "the second start did not hand its project over"
[ -n "$(window "$title")" ] || fail "the second project did not open in the window"
sleep 1
shot 4-second-project

press "$main" ctrl+2
shot 5-sprites-editor
press "$main" ctrl+5
shot 6-states-editor

kill -9 %1
wait %1 2>/dev/null
"$bin/pugilforge" "$source/samples/ember/ember.def" &
[ -n "$(window "^Ember - ")" ] || fail "after kill -9 a new start showed no window with the sample"
sleep 1
shot 7-after-kill

[ "$failures" -eq 0 ] && echo "all window checks passed"
exit "$failures"
