#!/usr/bin/env bash
# Installs what is missing and runs every check and test, stopping at the first stage that fails.
# The last line sums up: N passed, N failed.
#
#   TARNWELL_QUICK=1 ./test.sh   leaves out clang-tidy, the slowest check, while you work
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"

jobs="$(nproc)"
passed=0
failed=0
skipped=0
stage=

log="$(mktemp)"
finish() {
  local code=$?
  rm -f "$log"
  if ((code != 0)); then
    ((failed > 0)) || failed=1
    printf '\n==== FAILED: %s ====\n' "$stage"
  fi
  if ((skipped > 0)); then
    printf '%d passed, %d failed, %d skipped\n' "$passed" "$failed" "$skipped"
  else
    printf '%d passed, %d failed\n' "$passed" "$failed"
  fi
  exit "$code"
}
trap finish EXIT

begin() {
  stage="$1"
  printf '\n==== %s ====\n' "$stage"
}

check() {  # check NAME COMMAND...: a stage of one command that counts as one test
  begin "$1"
  shift
  "$@"
  passed=$((passed + 1))
}

runCtest() {  # runCtest PRESET: a stage that counts each test of the preset
  begin "tests of $1"
  local code=0
  ctest --preset "$1" --parallel "$jobs" --no-tests=error 2>&1 | tee "$log" || code=$?
  local sums
  sums="$(sed -nE 's/^[0-9]+% tests passed, ([0-9]+) tests? failed out of ([0-9]+)$/\1 \2/p' "$log")"
  if [[ -z "$sums" ]]; then
    echo "ctest gave no summary." >&2
    return 1
  fi
  local bad all left
  read -r bad all <<<"$sums"
  left="$(grep -cE '^[[:space:]]*[0-9]+ - .* \(Skipped\)$' "$log" || true)"
  passed=$((passed + all - bad - left))
  failed=$((failed + bad))
  skipped=$((skipped + left))
  return "$code"
}

begin "packages"
scripts/install-packages build run display test bench

check "include line" scripts/check-layers
for test in tests/scripts/*_test; do
  check "$test" "$test"
done
check "format" scripts/check-format
check "texts" scripts/check-texts
check "user guide" scripts/make-guide

# Nobody runs them here, but they follow what they measure.
read -ra libraryFlags < <(pkg-config --cflags Qt6Widgets gio-2.0)
check "benchmarks compile" xargs -0 -n 1 -P "$jobs" c++ -std=c++20 -fPIC -Isrc -Itests \
  -DTARNWELL_TESTS='""' -DTARNWELL_BENCH_DATA='""' "${libraryFlags[@]}" -fsyntax-only \
  < <(printf '%s\0' bench/*.cpp bench/ui/*.cpp)

begin "build of release"
scripts/build release tarnwell

if [[ "${TARNWELL_QUICK:-}" == 1 ]]; then
  begin "clang-tidy: left out, as TARNWELL_QUICK is set"
else
  check "clang-tidy" scripts/check-tidy
fi

begin "build of asan"
scripts/build asan
runCtest asan

begin "end-to-end tests"
code=0
scripts/test-end-to-end 2>&1 | tee "$log" || code=$?
passed=$((passed + $(grep -c '^passed: ' "$log" || true)))
failed=$((failed + $(grep -c '^FAILED: ' "$log" || true)))
((code == 0))
