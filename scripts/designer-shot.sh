#!/usr/bin/env bash
# Starts the real Qt Designer on a virtual display with the plugin of a build, opens a form with the
# four controls, and saves a screenshot of the whole screen (widget box with the Tarnwell group,
# the form, the property editor).
# Usage: scripts/designer-shot.sh [OUT.png] [FORM.ui]
# Environment: BUILD_DIR (default build), DISPLAY_NUMBER (default 57), SETTLE (seconds to wait for
# Designer to draw, default 6), SCREEN (default 1280x1100x24).
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
out=$(realpath -m "${1:-$root/designer-shot.png}")
form=$(realpath "${2:-$root/tests/designer/roundtrip.ui}")
build=${BUILD_DIR:-$root/build}
case $build in /*) ;; *) build=$root/$build ;; esac
display=:${DISPLAY_NUMBER:-57}

bash "$root/scripts/install-deps.sh" >/dev/null
[ -f "$build/plugins/designer/libtarnwell_designer.so" ] \
  || bash "$root/scripts/build.sh" "$build" -- tarnwell_designer

# A fresh settings folder: Designer's remembered layout and recent files stay out of the picture.
scratch=$(mktemp -d)
xvfb_pid='' designer_pid=''
cleanup() {
  [ -n "$designer_pid" ] && kill "$designer_pid" 2>/dev/null || true
  [ -n "$xvfb_pid" ] && kill "$xvfb_pid" 2>/dev/null || true
  rm -rf "$scratch"
}
trap cleanup EXIT

Xvfb "$display" -screen 0 "${SCREEN:-1280x1100x24}" -nolisten tcp >"$scratch/xvfb.log" 2>&1 &
xvfb_pid=$!
for _ in $(seq 50); do
  [ -e "/tmp/.X11-unix/X${display#:}" ] && break
  sleep 0.1
done

DISPLAY=$display QT_QPA_PLATFORM=xcb XDG_CONFIG_HOME=$scratch/config HOME=$scratch \
  QT_PLUGIN_PATH=$build/plugins /usr/lib/qt6/bin/designer "$form" >"$scratch/designer.log" 2>&1 &
designer_pid=$!
sleep "${SETTLE:-6}"
if ! kill -0 "$designer_pid" 2>/dev/null; then
  cat "$scratch/designer.log" >&2
  echo "designer-shot: designer exited early" >&2
  exit 1
fi
# There is no window manager: fill the screen with the main window, then filter the widget box on
# the group, which otherwise sits below its fold.
export DISPLAY=$display
main=$(xdotool search --onlyvisible --name 'Qt Designer' | head -n 1 || true)
if [ -n "$main" ]; then
  xdotool windowmove "$main" 0 0 windowsize "$main" "${SCREEN_WIDTH:-1280}" "${SCREEN_HEIGHT:-1100}"
  sleep 1
  xdotool mousemove 80 91 click 1 type --delay 50 Tarnwell
  sleep 1
fi
import -window root "$out"
echo "designer-shot: $out"
