#!/usr/bin/env bash
# Builds the benchmarks optimised (build-bench/) and runs them offscreen. After Google Benchmark's
# own table it prints, for every benchmark with a Qt baseline, how many times slower or faster it
# is: a benchmark named Qt<Widget>_<Case> is the baseline of every <Other>_<Case>, for example
# QtLineEdit_TypePhone for MaskBox_TypePhone.
# Environment: BUILD_ROOT, JOBS; extra arguments go to the benchmark (e.g. --benchmark_filter=Mask).
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
build_root=${BUILD_ROOT:-.}

bash scripts/install-deps.sh
bash scripts/build.sh "$build_root/build-bench" -DCMAKE_BUILD_TYPE=Release -DTARNWELL_BUILD_BENCH=ON \
  -DTARNWELL_BUILD_TESTS=OFF -DTARNWELL_BUILD_DEMO=OFF -- tarnwell-bench

results=$(mktemp)
trap 'rm -f "$results"' EXIT
QT_QPA_PLATFORM=offscreen "$build_root/build-bench/bench/tarnwell-bench" --benchmark_counters_tabular=false "$@" \
  | tee "$results"

# The side-by-side benchmarks carry a "ratio" counter: our control's time over the Qt widget's,
# measured in the same iterations.
echo
echo "Ratios to the closest Qt widget (below 1: Tarnwell is faster):"
awk '{ for (i = 2; i <= NF; i++) if ($i ~ /^ratio=/) { sub(/^ratio=/, "", $i); printf "  %-52s %s\n", $1, $i; shown++ } }
  END { if (!shown) print "  (no side-by-side benchmark ran)" }' "$results"
