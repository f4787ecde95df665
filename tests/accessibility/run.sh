#!/usr/bin/env bash
# Starts the program on a display, a session bus and a home of its own and lets walk.py drive it over AT-SPI.
# Usage: run.sh PROGRAM
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

if [ -z "${SANOVIA_WALK-}" ]; then
  SANOVIA_WALK=$(mktemp -d)
  export SANOVIA_WALK
  trap 'rm -rf "$SANOVIA_WALK"' EXIT
  xvfb-run -a -s "-screen 0 1280x1024x24" dbus-run-session -- "${BASH_SOURCE[0]}" "$1"
  exit
fi

export XDG_DATA_HOME=$SANOVIA_WALK/data XDG_CONFIG_HOME=$SANOVIA_WALK/config XDG_RUNTIME_DIR=$SANOVIA_WALK
export LANG=en_US.UTF-8 QT_QPA_PLATFORM=xcb QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
unset LC_ALL LANGUAGE
"$1" &
program=$!
trap 'kill "$program" 2>/dev/null || true; wait "$program" 2>/dev/null || true' EXIT
/usr/bin/python3 "$here/walk.py"
