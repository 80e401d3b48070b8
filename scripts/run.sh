#!/usr/bin/env bash
# Command one: installs what the build lacks, builds the library and the
# kvdao program, and runs the program on the bundled example.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/common.sh

ensure_packages "${BUILD_PACKAGES[@]}"
configure_and_build build/release -DCMAKE_BUILD_TYPE=Release \
  -DKVDAO_BUILD_TESTS=OFF -DKVDAO_BUILD_BENCH=OFF -DKVDAO_BUILD_EXAMPLES=ON
kvdao=build/release/tools/kvdao/kvdao

echo
echo "== kvdao --version"
"$kvdao" --version
echo
echo "== kvdao schema (the 160 sample-list columns)"
"$kvdao" schema
echo
echo "== examples/sample_list_example.cc"
build/release/examples/sample_list_example
