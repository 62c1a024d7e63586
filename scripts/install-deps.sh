#!/usr/bin/env bash
# Installs every Debian 12 package Tarnwell needs to build, test, fuzz, benchmark and run its demo.
# Idempotent: when everything is already installed it touches nothing and needs no network.
set -euo pipefail

packages=(
  # compilers and build tools
  g++ make cmake ninja-build pkg-config git
  # Qt 6.4 Widgets, Test, Designer and UiTools (the OpenGL development files are needed for the
  # Designer component to be found at all)
  qt6-base-dev qt6-tools-dev libqt6opengl6-dev designer-qt6 libgl-dev
  # tests and benchmarks
  libgtest-dev libgmock-dev libbenchmark-dev
  # readable text in offscreen renderings and headless runs
  fonts-dejavu-core xvfb xauth
  # screenshots of Designer under Xvfb (scripts/designer-shot.sh)
  imagemagick xdotool
  # the Python module: Debian's PyQt6 with its .sip files, SIP's generator, Python's headers
  # (--no-install-recommends matters here: python3-pyqtbuild's recommended Qt 5 qmake would
  # shadow Qt 6's)
  python3-pyqt6 pyqt6-dev sip-tools python3-dev
  # fuzzing and sanitizer builds with clang (libFuzzer lives in the runtime package; llvm brings
  # llvm-symbolizer for readable crash stacks)
  clang libclang-rt-14-dev llvm
  # the API reference (scripts/docs.sh)
  doxygen
)

missing=()
for p in "${packages[@]}"; do
  status=$(dpkg-query -W -f='${db:Status-Status}' "$p" 2>/dev/null || true)
  [ "$status" = installed ] || missing+=("$p")
done

if [ ${#missing[@]} -eq 0 ]; then
  echo "install-deps: all ${#packages[@]} packages already installed"
  exit 0
fi
echo "install-deps: installing ${missing[*]}"

run_root=()
if [ "$(id -u)" -ne 0 ]; then
  if command -v sudo >/dev/null 2>&1; then
    run_root=(sudo)
  else
    echo "install-deps: not root and no sudo; as root run:" >&2
    echo "  apt-get install -y --no-install-recommends ${missing[*]}" >&2
    exit 1
  fi
fi

apt() { "${run_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -y -q "$@"; }

# Refresh the package lists only when they cannot serve the install: none downloaded yet (a fresh
# root or a slim image), or one of the missing packages has no candidate in them.
needs_update=0
if ! compgen -G '/var/lib/apt/lists/*_Packages*' >/dev/null; then
  needs_update=1
else
  for p in "${missing[@]}"; do
    candidate=$(apt-cache policy "$p" 2>/dev/null | awk '/Candidate:/ { print $2 }')
    if [ -z "$candidate" ] || [ "$candidate" = "(none)" ]; then needs_update=1; break; fi
  done
fi
[ $needs_update -eq 1 ] && apt update

# Stale lists can still name versions the mirror no longer has: refresh once and retry.
if ! apt install --no-install-recommends "${missing[@]}"; then
  [ $needs_update -eq 1 ] && exit 1
  apt update
  apt install --no-install-recommends "${missing[@]}"
fi
echo "install-deps: done"
