#!/usr/bin/env bash
# Builds the libFuzzer targets with clang and runs each one briefly from its
# seed corpus. Usage: scripts/fuzz.sh [seconds-per-target] (default 15).
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-${KVDAO_FUZZ_SECONDS:-15}}
build=build/fuzz

CC=clang CXX=clang++ cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug \
  -DKVDAO_BUILD_FUZZ=ON -DKVDAO_BUILD_TESTS=OFF -DKVDAO_BUILD_TOOLS=OFF \
  -DKVDAO_BUILD_BENCH=OFF -DKVDAO_BUILD_EXAMPLES=OFF >/dev/null
cmake --build "$build" --parallel "$(nproc)" --target kvdao_fuzzers

status=0
for fuzzer in "$build"/fuzz/*_fuzz; do
  name=$(basename "$fuzzer")
  seeds=fuzz/corpus/$name
  work="$build/corpus/$name"
  mkdir -p "$work"
  # Extra seeds from the shared fixtures, where a target asks for them.
  if [[ -f "$seeds/FIXTURES" && -d ../shared/fixtures ]]; then
    while read -r pattern; do
      [[ -n "$pattern" ]] && find ../shared/fixtures -path "$pattern" -exec cp {} "$work"/ \;
    done < "$seeds/FIXTURES"
  fi
  echo "fuzz: $name for ${seconds}s"
  if ! "$fuzzer" -max_total_time="$seconds" -print_final_stats=0 -rss_limit_mb=2048 \
      -artifact_prefix="$build/$name-" \
      "$work" "$seeds" > "$build/$name.log" 2>&1; then
    echo "fuzz: $name FAILED; the end of its log:"
    tail -n 40 "$build/$name.log"
    status=1
  fi
done
exit $status
