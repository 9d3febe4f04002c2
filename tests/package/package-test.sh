#!/usr/bin/env bash
# with-desktop package-test.sh BUILD: makes the packages of a finished build and uses them as their users do: installed for all
# users, and unpacked into a folder of one's own.
set -euo pipefail
build=$1
sources=$(cd "$(dirname "$0")/../.." && pwd)
work=$(mktemp -d)
trap 'kill $(jobs -pr) 2>/dev/null || true; wait; chmod -R u+w "$work"; rm -rf "$work"' EXIT
chmod 755 "$work"
cd "$work"

fail() {
    echo "FAILED: $*" >&2
    [ ! -e panel.log ] || cat panel.log >&2
    exit 1
}

. "$sources/tests/support/until-true.sh"
for tool in xdotool file dpkg-deb dpkg-shlibdeps desktop-file-validate appstreamcli setpriv; do
    command -v "$tool" >/dev/null || fail "$tool is missing"
done
TRX_BUILT=$build "$sources/package" -B "$work" >cpack.log 2>&1 || { cat cpack.log; fail "cpack"; }
mkdir deb ctl tar data
dpkg-deb -x trx5276_*.deb deb
dpkg-deb -x kl5276ctl_*.deb ctl
tar -xzf trx5276-*.tar.gz -C tar --strip-components=1

# The Debian package
fields=$(dpkg-deb -f trx5276_*.deb)
for field in "Package: trx5276" "Section: electronics" "Depends: .*libmuparser2v5.*libqt6widgets6\(t64\)\? .*libsqlite3-0"; do
    grep -q "^$field" <<<"$fields" || fail "no $field in: $fields"
done

# kl5276ctl is a package of its own, for machines without a display.
fields=$(dpkg-deb -f kl5276ctl_*.deb)
for field in "Package: kl5276ctl" "Depends: .*libqt6core6.* libqt6serialport6" "Description: KL5276 .* from a shell"; do
    grep -q "^$field" <<<"$fields" || fail "no $field in: $fields"
done
! grep -E '^Depends:.*(gui|widgets|libx|libgl)' <<<"$fields" || fail "kl5276ctl depends on display libraries"
for file in share/man/man1/kl5276ctl.1.gz share/bash-completion/completions/kl5276ctl share/doc/kl5276ctl/copyright; do
    [ -s "ctl/usr/$file" ] || fail "kl5276ctl has no $file"
done
[ ! -e deb/usr/bin/kl5276ctl ] && [ ! -e ctl/usr/bin/trx5276 ] || fail "the packages overlap"
"$work/ctl/usr/bin/kl5276ctl" --dry-run id | grep -qx RM0 || fail "the packaged kl5276ctl does not run"

share=deb/usr/share
for program in deb/usr/bin/* ctl/usr/bin/*; do
    [ -s deb/usr/share/man/man1/"${program##*/}".1.gz ] || [ -s ctl/usr/share/man/man1/"${program##*/}".1.gz ] ||
        fail "no manual of $program"
done
desktop-file-validate $share/applications/*.desktop
appstreamcli validate --no-net $share/metainfo/*.xml >appstream.log || { cat appstream.log; fail "metainfo"; }
for size in 16 22 24 32 48 64 128 256; do
    [ -s "$share/icons/hicolor/${size}x$size/apps/trx5276.png" ] || fail "no icon of size $size"
done
strays=$(for package in deb ctl; do (cd $package && find . -type f ! -path './usr/bin/*' ! -path './usr/share/*/*'); done)
[ -z "$strays" ] || fail "out of place: $strays"
diff <(for package in deb ctl; do (cd $package/usr && find . -type f -exec stat -c '%a %n' {} +); done | sort) \
     <(cd tar && find . -type f -exec stat -c '%a %n' {} + | sort) || fail "package and archive differ"
if grep -rlF -e "$build" -e "$sources" deb ctl tar; then
    fail "these know the folder they were built in"
fi

# An unprivileged user: root becomes nobody here, so that a folder can be closed to the user.
user=()
[ "$(id -u)" -ne 0 ] || user=(setpriv --reuid=65534 --regid=65534 --clear-groups)
mkdir bin
printf '#!/bin/sh\necho "$1" >>"$HOME/viewed"\n' >bin/xdg-open
chmod 755 bin/xdg-open
export HOME=$work/data XDG_DATA_HOME=$work/data PATH=$work/bin:$PATH

window_named() { window=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | head -n 1) && [ -n "$window" ]; }
is_active() { [ "$(xdotool getactivewindow 2>/dev/null)" = "$window" ]; }

# type_into TITLE KEY...: as soon as the window has the keyboard.
type_into() {
    until_true window_named "$1"
    xdotool windowactivate "$window" 2>/dev/null || true
    until_true is_active
    xdotool key "${@:2}"
}

# start_panel FOLDER: for the first time, when it says that there are no preferences yet.
start_panel() {
    "${user[@]}" "$1/trx5276" 2>panel.log &
    panel=$!
    type_into "Load default settings" Return
    until_true window_named "KL5276 - V1.02"
    if grep -F -e "$build" -e "$sources" /proc/"$panel"/maps; then
        fail "the panel uses what it was built from"
    fi
}

has_ended() { ! kill -0 "$panel" 2>/dev/null; }

close_panel() {
    type_into "KL5276 - V1.02" alt+F4
    type_into "Exit Program" Return
    until_true has_ended
    wait "$panel" || fail "the panel ended with $?"
}

# Unpacked into a folder of the user's own, which then holds the preferences too.
[ "$(id -u)" -ne 0 ] || chown -R 65534:65534 tar data
start_panel tar/bin
close_panel
[ -s tar/bin/5276.def ] || fail "no preferences beside the executable"
[ -z "$(ls data)" ] || fail "files outside the user's folder: $(ls data)"

# Installed for all users: what the user adds lies in the application data folder, manuals in either.
own=data/TRX5276
touch deb/usr/bin/kl5276_d.pdf
chmod -R a-w deb
"${user[@]}" deb/usr/bin/kl5276-sim --link $own/com2 >sim.log 2>&1 &  # makes the folder
until_true test -L $own/com2
"${user[@]}" touch $own/kl5276_e.pdf
start_panel deb/usr/bin
type_into "KL5276 - V1.02" alt+d Right Right Return
until_true grep -qs "file://$work/deb/usr/bin/kl5276_d.pdf" data/viewed
type_into "KL5276 - V1.02" alt+d Right Right Down Return
until_true grep -q "file://$work/$own/kl5276_e.pdf" data/viewed
type_into "KL5276 - V1.02" alt+d Down Down Return
type_into "Serial port setup" Return
until_true window_named "KL5276 - V1.02 .*Unit:"
close_panel
[ -s $own/5276.def ] || fail "no preferences in the application data folder"
[ ! -e deb/usr/bin/5276.def ] || fail "preferences beside the installed program"
