#!/usr/bin/env bash
# Builds a release configuration and runs every benchmark program; each
# prints its own figures as a ratio to a baseline measured in the same run.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/common.sh
ensure_packages "${BUILD_PACKAGES[@]}"
configure_and_build build/bench -DCMAKE_BUILD_TYPE=Release -DKVDAO_BUILD_TESTS=OFF \
  -DKVDAO_BUILD_BENCH=ON -DKVDAO_BUILD_EXAMPLES=OFF
for bench in build/bench/bench/*_bench; do
  echo "== $(basename "$bench")"
  "$bench"
done
