#!/usr/bin/env bash
# Builds the API reference (HTML) from the public headers and the guide pages with Doxygen, into
# build-docs/html. Fails on any Doxygen warning: an undocumented public member is one.
# Usage: scripts/docs.sh [--screenshot]
#   --screenshot  first renders the demo offscreen (scripts/demo.sh) into docs/images/demo.png,
#                 the picture the README opens with
# Environment: DOCS_DIR (output directory, default build-docs in the repository), BUILD_ROOT and
# JOBS (passed on to the demo build).
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"

if [ "${1:-}" = --screenshot ]; then
  DEMO_SCREENSHOT=$root/docs/images/demo.png bash scripts/demo.sh
  shift
fi
if ! command -v doxygen >/dev/null 2>&1; then
  bash scripts/install-deps.sh
fi

out=${DOCS_DIR:-$root/build-docs}
case $out in /*) ;; *) out=$root/$out ;; esac
rm -rf "$out/html"
mkdir -p "$out"
version=$(sed -nE 's/^project\(Tarnwell VERSION ([0-9.]+).*/\1/p' CMakeLists.txt)

TARNWELL_DOCS_OUT=$out TARNWELL_VERSION=$version doxygen docs/Doxyfile
echo "docs: $out/html/index.html"
