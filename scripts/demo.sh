#!/usr/bin/env bash
# Installs what is missing, builds the demo (optimised) and runs it. Without a display it renders
# the window offscreen to a PNG instead and prints the file's path.
# Environment: DEMO_SCREENSHOT (PNG path when there is no display, default demo.png in the
# repository), BUILD_ROOT (where build-demo/ goes), JOBS. Extra arguments go to the demo.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
build_root=${BUILD_ROOT:-.}

bash scripts/install-deps.sh
bash scripts/build.sh "$build_root/build-demo" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTARNWELL_BUILD_DEMO=ON \
  -DTARNWELL_BUILD_TESTS=OFF -DTARNWELL_BUILD_BENCH=OFF -- tarnwell-demo
demo=$build_root/build-demo/apps/demo/tarnwell-demo

if [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; then
  exec "$demo" "$@"
fi
shot=${DEMO_SCREENSHOT:-$root/demo.png}
case $shot in /*) ;; *) shot=$PWD/$shot ;; esac
QT_QPA_PLATFORM=offscreen "$demo" --screenshot "$shot" "$@"
echo "No display: the demo window was rendered to $shot"
