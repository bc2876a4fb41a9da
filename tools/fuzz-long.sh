#!/usr/bin/env bash
# The long fuzzing campaign: every harness under fuzz/ for MINUTES minutes
# (default 30) with ASan+UBSan, JOBS at a time (default 2), each from its
# committed corpus plus what earlier campaigns found (build-fuzz/corpus-*),
# with the WKT dictionary for the text readers.  A finding stops that
# harness and leaves its reproducer (crash-*, timeout-*, leak-*) in
# build-fuzz/; the summary gives executions and coverage per harness.
#   bash tools/fuzz-long.sh [MINUTES] [JOBS]
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
cd "$top"
minutes=${1:-30}
jobs=${2:-2}
CC=clang CXX=clang++ cmake -S . -B build-fuzz -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DGX_BUILD_FUZZ=ON -DGX_SANITIZE=ON -DGX_BUILD_TESTS=OFF -DGX_BUILD_TOOLS=OFF >/dev/null
cmake --build build-fuzz -j"$(nproc)"

run_one() {
  local f=$1 name corpus len dict=()
  name=$(basename "$f")
  corpus=fuzz/corpus/${name#fuzz_}
  case $name in
    fuzz_ntv2|fuzz_nadcon|fuzz_vertical*) len=1048576 ;;  # whole grid files
    *) len=8192 ;;
  esac
  case $name in fuzz_wkt|fuzz_convert|fuzz_horizon*) dict=(-dict=fuzz/wkt.dict) ;; esac
  mkdir -p "build-fuzz/corpus-$name"
  (cd build-fuzz && "../$f" -max_total_time=$((minutes * 60)) -max_len=$len -timeout=30 \
      -rss_limit_mb=4096 -print_final_stats=1 "${dict[@]/#-dict=/-dict=../}" "corpus-$name" \
      $( [ -d "../$corpus" ] && echo "../$corpus" ) >"$name.long.log" 2>&1) || true
  local stats
  stats=$(grep -E '^#[0-9]+' "build-fuzz/$name.long.log" | tail -n 1)
  echo "$name: $stats; $(grep -cE '^==[0-9]+==ERROR|^SUMMARY|ALARM: working on the last Unit' \
      "build-fuzz/$name.long.log") findings"
}
export -f run_one
export minutes
ls build-fuzz/fuzz/fuzz_* | grep -v '\.' | xargs -P "$jobs" -I{} bash -c 'run_one {}'
