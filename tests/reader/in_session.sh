#!/usr/bin/env bash
# Runs the scenes of a screen reader with a program on a screen and an accessibility bus of their
# own: in_session.sh PROGRAM [ARGUMENT...]. Where the computer lacks a piece the test is skipped, and
# says which.
set -u
skip() {
  echo "skipped: $1"
  exit 77
}
launcher=
for place in /usr/libexec /usr/lib/at-spi2-core; do
  [ -x "$place/at-spi-bus-launcher" ] && launcher=$place/at-spi-bus-launcher
done
[ -n "$launcher" ] || skip "no accessibility bus on this computer (at-spi2-core)"
for tool in Xvfb dbus-run-session xdotool; do
  command -v "$tool" >/dev/null || skip "$tool is not on this computer"
done
python=/usr/bin/python3
"$python" -c 'import pyatspi' 2>/dev/null || skip "the reader's library is not on this computer (python3-pyatspi)"

here=$(cd "$(dirname "$0")" && pwd)
if [ -z "${READER_SESSION:-}" ]; then
  READER_SESSION=1 exec dbus-run-session -- "$0" "$@"
fi
home=$(mktemp -d)
unset DISPLAY
children=()
leave() {
  kill "${children[@]}" 2>/dev/null
  wait 2>/dev/null
  rm -rf "$home"
}
trap leave EXIT
mkdir -p "$home/run"
chmod 700 "$home/run"
exec 3<>"$home/display"
Xvfb -displayfd 3 -screen 0 1920x1200x24 -nolisten tcp 2>/dev/null &
children+=($!)
for _ in $(seq 100); do
  [ -s "$home/display" ] && export DISPLAY=":$(cat "$home/display")"
  xdotool getdisplaygeometry >/dev/null 2>&1 && break
  sleep 0.1
done
xdotool getdisplaygeometry >/dev/null 2>&1 || skip "no virtual screen came up"
export HOME=$home XDG_CONFIG_HOME=$home/config XDG_DATA_HOME=$home/data XDG_RUNTIME_DIR=$home/run
export QT_QPA_PLATFORM=xcb QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 LC_ALL=C.UTF-8
"$launcher" --launch-immediately 2>/dev/null &
children+=($!)
"$python" "$here/scenes.py" "$@"
