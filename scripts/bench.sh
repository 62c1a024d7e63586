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
QT_QPA_PLATFORM=offscreen "$build_root/build-bench/bench/tarnwell-bench" \
  --benchmark_out="$results" --benchmark_out_format=csv "$@"

# The CSV starts after any context lines; its columns are name, iterations, real_time, cpu_time, ...
echo
echo "Ratios to the Qt baselines (cpu time):"
awk -F, '
  /^name,/ { table = 1; next }
  !table || NF < 4 { next }
  {
    name = $1; gsub(/"/, "", name)
    cpu[name] = $4; order[++n] = name
  }
  END {
    for (i = 1; i <= n; i++) {
      name = order[i]
      split(name, parts, "/"); head = parts[1]
      if (head ~ /^Qt/ || index(head, "_") == 0) continue
      kase = substr(name, index(name, "_"))
      for (b in cpu) {
        if (b ~ /^Qt/ && substr(b, index(b, "_")) == kase && cpu[b] > 0) {
          printf "  %-48s %8.2fx %s\n", name, cpu[name] / cpu[b], b
          shown++
        }
      }
    }
    if (!shown) print "  (no benchmark has a Qt<Widget>_<Case> baseline)"
  }' "$results"
