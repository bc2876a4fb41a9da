#!/usr/bin/env bash
# Line coverage of src/ by the whole test suite: a clang build with
# -fprofile-instr-generate -fcoverage-mapping, every test run once, the
# profiles merged, and llvm-cov's report of src/ (summary on standard output,
# the per-file table in build-coverage/coverage.txt).  Not part of CI.
#   bash tools/coverage.sh
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
cd "$top"
llvm_bin=$(ls -d /usr/lib/llvm-*/bin 2>/dev/null | sort -V | tail -n 1)
profdata=${LLVM_PROFDATA:-$llvm_bin/llvm-profdata}
cov=${LLVM_COV:-$llvm_bin/llvm-cov}
flags="-fprofile-instr-generate -fcoverage-mapping"
CC=clang CXX=clang++ cmake -S . -B build-coverage -DCMAKE_BUILD_TYPE=Debug \
  -DCMAKE_C_FLAGS="$flags" -DCMAKE_CXX_FLAGS="$flags" -DCMAKE_EXE_LINKER_FLAGS="$flags" \
  -DCMAKE_SHARED_LINKER_FLAGS="$flags" >/dev/null
cmake --build build-coverage -j"$(nproc)"
rm -rf build-coverage/profiles && mkdir -p build-coverage/profiles
LLVM_PROFILE_FILE="$top/build-coverage/profiles/%p.profraw" \
  ctest --test-dir build-coverage -j"$(nproc)" >/dev/null || true
"$profdata" merge -sparse build-coverage/profiles/*.profraw -o build-coverage/suite.profdata
objects=(-object build-coverage/tests/gx_tests -object build-coverage/tools/gxconv)
"$cov" report build-coverage/libORVAMobileGX.so "${objects[@]}" \
  -instr-profile=build-coverage/suite.profdata "$top/src" > build-coverage/coverage.txt
tail -n 1 build-coverage/coverage.txt | awk '{print "src/ lines: " $8 ", missed " $9 ", coverage " $10 "; branches " $13}'
