#!/usr/bin/env bash
# Installs what is missing, then builds and runs everything that guards the library:
#   tests      the test suites (build/)
#   sanitize   the same suites under AddressSanitizer and UndefinedBehaviorSanitizer (build-sanitize/)
#   install    the library of build/ installed into a fresh prefix, and a client project
#              (tests/install/) built against that prefix alone and run (build-install/); then
#              each example of examples/ built against the same prefix and run with --check,
#              and the Python tests (python/tests/) against the tarnwell package in that prefix
#   fuzz       every libFuzzer target for FUZZ_SECONDS each on a scratch copy of its corpus,
#              built with clang (build-fuzz/)
#   bench      the benchmarks are compiled (not run) so that they cannot rot
#   docs       the API reference is built with Doxygen (build-docs/); any warning, an
#              undocumented public member among them, fails it
# Environment: PHASES (default "tests sanitize install fuzz bench docs"), FUZZ_SECONDS (default 30),
# BUILD_ROOT (where the build directories go, default the repository root), JOBS.
# Ends with the line "N passed, N failed" counting test suites, the install check and fuzz
# targets and the docs build; exits non-zero when anything failed or did not build.
set -uo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"

phases=" ${PHASES:-tests sanitize install fuzz bench docs} "
fuzz_seconds=${FUZZ_SECONDS:-30}
build_root=${BUILD_ROOT:-.}
case $build_root in /*) ;; *) build_root=$root/$build_root ;; esac
jobs=${JOBS:-$(nproc)}

passed=0
failed=0
failures=()
record_failure() { failed=$((failed + 1)); failures+=("$1"); }
banner() { printf '\n==== %s ====\n' "$*"; }
wants() { [[ $phases == *" $1 "* ]]; }

bash scripts/install-deps.sh || { echo "0 passed, 1 failed"; exit 1; }

# Runs ctest in a build directory and adds its suites to the totals, naming failures with `label`.
run_suites() {
  local label=$1 dir=$2 log
  log=$(mktemp)
  (cd "$dir" && ctest --output-on-failure --timeout 900 -j "$jobs") 2>&1 | tee "$log"
  local summary
  summary=$(grep -E '[0-9]+ tests failed out of [0-9]+' "$log" | tail -n 1)
  if [ -n "$summary" ]; then
    local bad total
    bad=$(sed -E 's/.* ([0-9]+) tests failed out of ([0-9]+).*/\1/' <<<"$summary")
    total=$(sed -E 's/.* ([0-9]+) tests failed out of ([0-9]+).*/\2/' <<<"$summary")
    passed=$((passed + total - bad))
    if [ "$bad" -gt 0 ]; then
      failed=$((failed + bad))
      while read -r name; do failures+=("$label: $name"); done < <(
        sed -n '/The following tests FAILED:/,$p' "$log" | sed -nE 's/^[[:space:]]+[0-9]+ - ([^ ]+).*/\1/p')
    fi
  elif grep -q 'No tests were found' "$log"; then
    echo "test: no test suites in $dir"
  else
    record_failure "$label: ctest did not run"
  fi
  rm -f "$log"
}

build() { JOBS=$jobs bash scripts/build.sh "$@"; }

# Removes from `prefix` every file that the install recorded in `manifest` did not write.
prune_stale() {
  local prefix=$1 manifest=$2 file
  while IFS= read -r file; do
    grep -qxF "$file" "$manifest" || rm -f "$file"
  done < <(find "$prefix" \( -type f -o -type l \))
}

if wants tests; then
  banner "tests (build/)"
  if build "$build_root/build" -DCMAKE_BUILD_TYPE=Debug -DTARNWELL_BUILD_TESTS=ON \
       -DTARNWELL_BUILD_DEMO=ON -DTARNWELL_BUILD_BENCH=OFF; then
    run_suites tests "$build_root/build"
  else
    record_failure "tests: build failed"
    # The other builds compile the same sources: they would fail the same way, only slower.
    phases=" "
  fi
fi

if wants sanitize; then
  banner "sanitizers (build-sanitize/)"
  if build "$build_root/build-sanitize" -DCMAKE_BUILD_TYPE=Debug -DTARNWELL_SANITIZE=ON \
       -DTARNWELL_BUILD_TESTS=ON -DTARNWELL_BUILD_DEMO=ON; then
    ASAN_OPTIONS=detect_leaks=1:detect_stack_use_after_return=1:check_initialization_order=1:strict_init_order=1 \
    LSAN_OPTIONS=suppressions=$root/scripts/lsan.supp:print_suppressions=0 \
    UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
      run_suites sanitize "$build_root/build-sanitize"
  else
    record_failure "sanitize: build failed"
  fi
fi

if wants install; then
  banner "install (build/ into build-install/prefix, client in build-install/client)"
  # Reuses build/: only the shared library is (re)built. Files the install leaves unchanged keep
  # their times, so the client recompiles only what changed; whatever an earlier install left that
  # this one did not write is removed, so the client cannot find a header that is gone.
  install_dir=$build_root/build-install
  # The library first (which configures build/), then whatever else the install takes that this
  # configuration builds: the Designer plugin and the Python module.
  install_targets=(Tarnwell)
  if build "$build_root/build" -- Tarnwell; then
    grep -q '^build designer/' "$build_root/build/build.ninja" && install_targets+=(tarnwell_designer)
    grep -q '^build python/' "$build_root/build/build.ninja" && install_targets+=(tarnwell_python)
  fi
  if build "$build_root/build" -- "${install_targets[@]}" \
     && cmake --install "$build_root/build" --prefix "$install_dir/prefix" >/dev/null \
     && prune_stale "$install_dir/prefix" "$build_root/build/install_manifest.txt" \
     && cmake -S tests/install -B "$install_dir/client" -G Ninja -DCMAKE_BUILD_TYPE=Debug \
          -DCMAKE_PREFIX_PATH="$install_dir/prefix" >/dev/null \
     && cmake --build "$install_dir/client" -j "$jobs" \
     && QT_QPA_PLATFORM=offscreen "$install_dir/client/tarnwell-consumer"; then
    passed=$((passed + 1))
    # The examples are clients too: each builds against the prefix alone and checks itself.
    for example in examples/*/; do
      [ -f "$example/CMakeLists.txt" ] || continue # the Python example runs with the Python tests
      name=$(basename "$example")
      if cmake -S "$example" -B "$install_dir/examples/$name" -G Ninja -DCMAKE_BUILD_TYPE=Debug \
           -DCMAKE_PREFIX_PATH="$install_dir/prefix" >/dev/null \
         && cmake --build "$install_dir/examples/$name" -j "$jobs" \
         && QT_QPA_PLATFORM=offscreen "$install_dir/examples/$name/$name" --check; then
        passed=$((passed + 1))
      else
        record_failure "install: example $name did not build or run against the installed package"
      fi
    done
  else
    record_failure "install: a client of the installed package did not build or run"
  fi
  # The Python package, with Debian's own interpreter (PyQt6 belongs to it, not to whatever
  # python3 comes first on PATH), from the prefix alone.
  python_package=$(find "$install_dir/prefix/lib" -path '*-packages/tarnwell/__init__.py' 2>/dev/null | head -n 1)
  if [ -n "$python_package" ]; then
    banner "python (python/tests against $(dirname "$(dirname "$python_package")"))"
    if (cd "$root/python/tests" && QT_QPA_PLATFORM=offscreen \
        PYTHONPATH=$(dirname "$(dirname "$python_package")") PYTHONDONTWRITEBYTECODE=1 \
        timeout 600 /usr/bin/python3 -m unittest discover -s . -p 'test_*.py' 2>&1); then
      passed=$((passed + 1))
    else
      record_failure "install: the Python tests of the installed package"
    fi
  elif grep -q '^build python/' "$build_root/build/build.ninja" 2>/dev/null; then
    record_failure "install: the Python package was built but not installed"
  fi
fi

if wants fuzz; then
  banner "fuzzers (build-fuzz/, ${fuzz_seconds}s each)"
  fuzz_dir=$build_root/build-fuzz
  if CC=clang CXX=clang++ build "$fuzz_dir" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTARNWELL_BUILD_FUZZ=ON \
       -DTARNWELL_BUILD_TESTS=OFF -DTARNWELL_BUILD_DEMO=OFF -DTARNWELL_BUILD_BENCH=OFF \
       -- tarnwell-fuzzers; then
    mapfile -t targets < <(find "$fuzz_dir/fuzz" -maxdepth 1 -type f -name 'fuzz_*' -perm -u+x 2>/dev/null | sort)
    [ ${#targets[@]} -eq 0 ] && echo "fuzz: no fuzz targets"
    for exe in "${targets[@]}"; do
      name=${exe##*/fuzz_}
      # A scratch copy: what the fuzzer finds must not grow the committed corpus.
      scratch=$(mktemp -d)
      mkdir -p "$scratch/corpus" "$fuzz_dir/artifacts"
      [ -d "fuzz/corpus/$name" ] && cp -R "fuzz/corpus/$name/." "$scratch/corpus/"
      echo "fuzz_$name: $(find "$scratch/corpus" -type f | wc -l) seed inputs"
      if QT_QPA_PLATFORM=offscreen \
         LSAN_OPTIONS=suppressions=$root/scripts/lsan.supp:print_suppressions=0 \
         UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
         "$exe" -max_total_time="$fuzz_seconds" -timeout=30 -rss_limit_mb=2560 -print_final_stats=1 \
           -artifact_prefix="$fuzz_dir/artifacts/$name-" "$scratch/corpus" >"$scratch/log" 2>&1; then
        passed=$((passed + 1))
        grep -E '^(Done|stat::number_of_executed_units)' "$scratch/log" | sed "s/^/fuzz_$name: /"
      else
        tail -n 60 "$scratch/log"
        record_failure "fuzz: fuzz_$name (crash input in $fuzz_dir/artifacts/)"
      fi
      rm -rf "$scratch"
    done
  else
    record_failure "fuzz: build failed"
  fi
fi

if wants bench; then
  banner "benchmarks (compile only, build/)"
  # Reuses the test build's objects: only the benchmark sources are compiled.
  build "$build_root/build" -DTARNWELL_BUILD_BENCH=ON -- tarnwell-bench \
    || record_failure "bench: build failed"
fi

if wants docs; then
  banner "API reference (build-docs/)"
  if DOCS_DIR="$build_root/build-docs" bash scripts/docs.sh; then
    passed=$((passed + 1))
  else
    record_failure "docs: the API reference did not build without warnings"
  fi
fi

banner summary
for f in "${failures[@]}"; do echo "FAILED  $f"; done
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
