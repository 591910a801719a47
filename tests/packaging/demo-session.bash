#!/usr/bin/env bash
# demo-session.bash PROGRAM: whether a command in the demo's session finds only what is the demo's.
set -euo pipefail

program=$1
folder=$(mktemp -d)
trap 'rm -rf -- "$folder"' EXIT

told=$(HOME=/real/home XDG_DATA_HOME=/real/data XDG_CONFIG_HOME=/real/config \
    XDG_STATE_HOME=/real/state XDG_CACHE_HOME=/real/cache XDG_RUNTIME_DIR=/real/run \
    DBUS_SESSION_BUS_ADDRESS=unix:path=/real/bus SESSION_MANAGER=/real/manager OTHER=/real/other \
    PATH="$PATH:/real/home/bin" XAUTHORITY='' DISPLAY=:9 WAYLAND_DISPLAY=wayland-0 "$program" "$folder/demo" env)

fail() {
    printf '%s\n' "$1" "$told" >&2
    exit 1
}

has() {
    grep -qxF -- "$1" <<<"$told" || fail "missing: $1"
}

has "HOME=$folder/demo/home"
has "XDG_DATA_HOME=$folder/demo/home/.local/share"
has "XDG_CONFIG_HOME=$folder/demo/home/.config"
has "XDG_STATE_HOME=$folder/demo/home/.local/state"
has "XDG_CACHE_HOME=$folder/demo/home/.cache"
has "XDG_RUNTIME_DIR=$folder/demo/run"
grep -q "^DBUS_SESSION_BUS_ADDRESS=unix:path=$folder/demo/run/" <<<"$told" || fail "another bus"
# The display alone is the real one.
has "DISPLAY=:9"
has "XAUTHORITY=/real/home/.Xauthority"
has "WAYLAND_DISPLAY=/real/run/wayland-0"
real=$(grep -c /real/ <<<"$told" || true)
[ "$real" -eq 2 ] || fail "$real lines lead to the real session"

"$program" "$folder/again" true
code=0
"$program" "$folder/again" bash -c 'exit 7' || code=$?
[ "$code" -eq 7 ] || fail "the command's status is lost: $code"
