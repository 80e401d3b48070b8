#!/usr/bin/env bash
# Command two: installs what the build and the tests lack, then builds and
# runs every test: the unit tests, a short fuzz run of every parser, and the
# unit tests again under AddressSanitizer and UndefinedBehaviorSanitizer.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/common.sh

ensure_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}"

echo "== unit tests (release build)"
configure_and_build build/test -DCMAKE_BUILD_TYPE=RelWithDebInfo -DKVDAO_WERROR=ON \
  -DKVDAO_BUILD_TESTS=ON -DKVDAO_BUILD_BENCH=ON -DKVDAO_BUILD_EXAMPLES=ON
(cd build/test && ctest --output-on-failure --parallel "$(nproc)")

echo "== fuzz targets"
scripts/fuzz.sh "${KVDAO_FUZZ_SECONDS:-10}"

echo "== unit tests (AddressSanitizer + UndefinedBehaviorSanitizer)"
configure_and_build build/asan -DCMAKE_BUILD_TYPE=Debug -DKVDAO_SANITIZE=ON -DKVDAO_WERROR=ON \
  -DKVDAO_BUILD_TESTS=ON -DKVDAO_BUILD_BENCH=OFF -DKVDAO_BUILD_EXAMPLES=OFF
(cd build/asan && ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
  ctest --output-on-failure --parallel "$(nproc)")
