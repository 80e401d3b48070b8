#!/usr/bin/env bash
# Command one: installs what the build lacks, builds the library and the
# kvdao program, and runs the program on the bundled examples: a sample list
# saved as an Access file and read back, and a generic batch file.
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

# The bundled sample list becomes an Access file, which the program (and,
# when installed, mdbtools) then reads back.
spl=build/release/example.spl
rm -f "$spl"
echo
echo "== kvdao jet import: examples/data/sample_list.csv into $spl"
"$kvdao" jet import "$spl" ANALYSIS examples/data/sample_list.csv \
  --types VERSION:Double,CONC_A:Text,WAVELENGTH_A:Double,INJ_VOL:Double,Index:Double \
  --primary-key Index
echo
echo "== kvdao jet schema $spl ANALYSIS"
"$kvdao" jet schema "$spl" ANALYSIS
echo
echo "== kvdao jet export $spl ANALYSIS"
"$kvdao" jet export "$spl" ANALYSIS
if command -v mdb-export >/dev/null; then
  echo
  echo "== mdb-export (mdbtools) reads the same file"
  mdb-export "$spl" ANALYSIS
fi
echo
echo "== kvdao batch show examples/data/example_batch.xbt"
"$kvdao" batch show examples/data/example_batch.xbt
echo
echo "== examples/sample_list_example.cc"
build/release/examples/sample_list_example
