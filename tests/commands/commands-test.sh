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
for picture in docs/*.png docs/guide/*.png; do
    [ -s "$TMPDIR/${picture#docs/}" ] || fail "scripts/pictures takes no picture ${picture#docs/}"
done

# kl5276ctl as the guide uses it, without a display library, on the instrument at Com2.
PATH=$TRX_BUILT/bin:$PATH
sources=$PWD
cd "$TMPDIR"
! ldd "$TRX_BUILT/bin/kl5276ctl" | grep -E 'Qt6(Gui|Widgets)|libX11' || fail "kl5276ctl needs display libraries"
status=0
timeout 20 kl5276-sim --link /proc/none/com2 >"$log" 2>&1 || status=$?
[ $status = 1 ] && grep -q /proc/none "$log" || fail "kl5276-sim does not say that it cannot make its link"
kl5276-sim --log --link "$TRX_BUILT/bin/com2" >"$TMPDIR/line" &
until_true test -L "$TRX_BUILT/bin/com2"
guide=$sources/docs/guide/shell.md
# But the comparison, which takes 5 ms for each point.
{ echo 'set -eu'; awk '/^```/ { f = !f } !f && /^    +kl5276ctl / && !/ttyUSB0|compare/' "$guide"; } >steps.sh
awk '/^```bash/ { shell = 1; next } /^```/ { shell = 0 } shell' "$guide" >loops.sh
awk '/^```python/ { python = 1; next } /^```/ { python = 0 } python' "$guide" >example.py
bash steps.sh >"$log" 2>&1 || fail "the steps of docs/guide/shell.md"
grep -q '^frequency=2.5MHz$' "$log" || fail "the steps print nothing"
bash loops.sh >"$log" 2>&1 || fail "the loops of docs/guide/shell.md"
grep -q '^10kHz ' response.txt && grep -q '^{"frequency":10000}$' "$log" || fail "the loops measure nothing"
python3 example.py >"$log" 2>&1 || fail "the example of docs/guide/shell.md"
grep -q '^100000 2 Vpp$' "$log" || fail "the example prints nothing"
grep -q 'sta?' "$TMPDIR/line" || fail "kl5276-sim --log prints nothing"
kill %%
wait %% || fail "kl5276-sim ended with $?"

# Manual and completion know every field and every command.
kl5276ctl fields >fields
kl5276ctl --help | sed '1,/^Subcommands/d' | awk '{ print $1 }' | grep . >commands
MANWIDTH=900 LC_ALL=C man --warnings --nh --nj -l "$sources/ctl/kl5276ctl.1" 2>"$log" | col -b >manual
[ ! -s "$log" ] || fail "the manual has faults"
while IFS=$'\t' read -r name values _; do
    grep -A 1 "^ *\(.*, \)\?$name\b" manual | grep -qF -- "${values//|/, }" || fail "the manual lacks $name: $values"
done <fields
complete_words() {
    COMP_WORDS=("$@") COMP_CWORD=$(($# - 1))
    _kl5276ctl
    echo "${COMPREPLY[*]}"
}
. "$sources/ctl/kl5276ctl.bash"
[ "$(complete_words kl5276ctl "" | tr ' ' '\n' | grep -v '^--' | sort)" = "$(sort commands)" ] || fail "completion of commands"
for name in $(cat commands); do
    grep -q "^ *$name\b" manual || fail "the manual lacks the command $name"
done
[ "$(complete_words kl5276ctl set sweep-)" = "sweep-start= sweep-stop= sweep-time=" ] || fail "completion of fields"
[ "$(complete_words kl5276ctl set form = ramp-)" = "ramp-up ramp-down" ] || fail "completion of words"
>"two words.set"
complete_words kl5276ctl load two >"$log" && [ "${COMPREPLY[0]}" = "two words.set" ] || fail "completion of files"
[ "$(complete_words kl5276ctl --rate 9)" = 9600 ] || fail "completion of options"
cd "$sources"
options_in() { grep -hoE '^ +--[a-z0-9-]+( [A-Z_,]*[A-Z])?' "$@"; }
for program in kl5276-sim qd204-sim; do
    MANWIDTH=900 LC_ALL=C man --nh --nj -l simulator/$program.1 | col -b >"$log"
    "$TRX_BUILT/bin/$program" --help >"$log.help"
    while read -r option; do
        grep -qE -- "$option( |,|:|$)" "$log" || fail "the manual of $program lacks $option"
        grep -qE -- "$option( |,|:|$)" "$log.help" || fail "$program lacks $option"
    done < <(options_in "$log" "$log.help")
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
status=0
"$TRX_BUILT/bin/qd204-sim" --csv /nowhere.csv 2>"$log" || status=$?
[ $status = 1 ] && grep -q /nowhere.csv "$log" || fail "qd204-sim does not say that there is no recording"
"$TRX_BUILT/bin/qd204-sim" --csv "$TMPDIR/scope.csv" --name "$TMPDIR/qd204e" >"$log" 2>&1 &
until_true grep -q "^channel B:.*scope.csv" "$log"
kill %%
wait %% || fail "qd204-sim ended with $?"
