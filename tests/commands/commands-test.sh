#!/usr/bin/env bash
# commands-test.sh BUILD: runs the commands that the documents name, each in a short form on a finished build. ./package
# has a test of its own, ./test runs this one.
set -euo pipefail
cd "$(dirname "$0")/../.."
. tests/support/until-true.sh
export TRX_BUILT=$1
TMPDIR=$(mktemp -d)
export TMPDIR HOME=$TMPDIR
trap 'kill $(jobs -pr) 2>/dev/null || true; wait; rm -rf "$TMPDIR"' EXIT
log=$TMPDIR/log

fail() {
    echo "FAILED: $*" >&2
    [ ! -e "$log" ] || cat "$log" >&2
    exit 1
}

# Every script that a document names can be run.
named=0
for name in $(cat ./*.md docs/*.md docs/*/*.md | grep -oE '[[:alnum:]./_-]+' | sed 's|^\./||' | sort -u); do
    [ -f "$name" ] && head -n 1 "$name" | grep -q '^#!' || continue
    [ -x "$name" ] || fail "$name is not executable"
    named=$((named + 1))
done
[ "$named" -ge 6 ] || fail "the documents name $named scripts"

soak/run 5 3 >"$log" 2>&1 || fail "soak/run"
fuzz/run 1 status_line >"$log" 2>&1 || fail "fuzz/run"
bench/run --benchmark_filter=Spline >"$log" 2>&1 || fail "bench/run"
grep -q '^Spline .* ms ' "$log" || fail "bench/run prints no figure"

scripts/pictures "$TMPDIR" >"$log" 2>&1 || fail "scripts/pictures"
for picture in panel guide/connect guide/connect-port guide/set guide/set-limit guide/sweep guide/modulate guide/send guide/save; do
    [ -s "$TMPDIR/$picture.png" ] || fail "scripts/pictures takes no picture $picture"
done

# ./run without a display, from another folder.
unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM
(cd / && exec "$OLDPWD/run") >"$log" 2>&1 &
panel_shows() {
    DISPLAY=$(grep -oE 'X display :[0-9]+' "$log" | grep -oE ':.*') || return 1
    DISPLAY=$DISPLAY xdotool search --onlyvisible --name "Load default settings|KL5276 - V1.02" >/dev/null 2>&1
}
until_true panel_shows
[ -L "$TRX_BUILT/bin/com2" ] || fail "no simulated instrument on Com2"
grep -q "^channel A:" "$log" || fail "no trace source"
kill %%
wait %% || [ $? -eq 130 ] || fail "./run ended with $?"
until_true test ! -L "$TRX_BUILT/bin/com2"  # the simulated instrument has ended

# A recording as a scope in a country of decimal commas saves it.
printf 'Length;3\nt;CH1;CH2\n0;1,5;7\n1;0,5;8\n2;1,5;7\n' >"$TMPDIR/scope.csv"
"$TRX_BUILT/bin/qd204-sim" --csv "$TMPDIR/scope.csv" --name "$TMPDIR/qd204e" >"$log" 2>&1 &
until_true grep -q "^channel B:.*scope.csv" "$log"
kill %%
wait %% || fail "qd204-sim ended with $?"
