#!/usr/bin/env bash
# Configures (when needed) and builds one build directory with Ninja.
# Usage: scripts/build.sh BUILD_DIR [CMAKE_OPTION...] [-- TARGET...]
#   BUILD_DIR is relative to the repository root unless absolute. Options such as
#   -DCMAKE_BUILD_TYPE=Release or -DTARNWELL_BUILD_BENCH=ON go to cmake; names after "--" are
#   the targets to build (all by default). JOBS overrides the parallelism (default: nproc).
#   CC/CXX choose the compilers as usual (only read when the directory is first configured).
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

if [ $# -lt 1 ]; then
  echo "usage: $0 BUILD_DIR [CMAKE_OPTION...] [-- TARGET...]" >&2
  exit 2
fi
dir=$1; shift
case $dir in /*) ;; *) dir=$root/$dir ;; esac

options=() targets=()
while [ $# -gt 0 ]; do
  if [ "$1" = -- ]; then shift; targets=("$@"); break; fi
  options+=("$1"); shift
done

# A directory configured with another generator cannot be reused by Ninja.
if [ -f "$dir/CMakeCache.txt" ] && ! grep -q '^CMAKE_GENERATOR:INTERNAL=Ninja$' "$dir/CMakeCache.txt"; then
  echo "build: $dir was configured with another generator; reconfiguring from scratch"
  rm -rf "$dir"
fi

# Configure every time options are given (cmake keeps the cache, so this is cheap) or when the
# directory is new; a plain rebuild lets ninja re-run cmake itself when the lists changed.
if [ ! -f "$dir/build.ninja" ] || [ ${#options[@]} -gt 0 ]; then
  cmake -S "$root" -B "$dir" -G Ninja "${options[@]}"
fi

build=(cmake --build "$dir" -j "${JOBS:-$(nproc)}")
if [ ${#targets[@]} -gt 0 ]; then build+=(--target "${targets[@]}"); fi
"${build[@]}"
