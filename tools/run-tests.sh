#!/usr/bin/env bash
# Builds the library and runs the whole test suite twice: a release build and
# an ASan+UBSan build; then the tests of concurrent use under ThreadSanitizer,
# and a short smoke run of every fuzz harness (tools/fuzz-long.sh runs the
# long campaign).
# Installs what a fresh machine lacks with apt-get.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
cd "$top"
jobs=$(nproc 2>/dev/null || echo 2)

need=()
command -v cmake >/dev/null || need+=(cmake)
command -v g++ >/dev/null || need+=(g++)
command -v clang++ >/dev/null || need+=(clang)
command -v pkg-config >/dev/null || need+=(pkg-config)
command -v valgrind >/dev/null || need+=(valgrind)
# libFuzzer's runtime for the fuzz harnesses.
ls /usr/lib/llvm-*/lib/clang/*/lib/linux/libclang_rt.fuzzer-x86_64.a >/dev/null 2>&1 ||
  need+=(libclang-rt-14-dev)
[ -f /usr/include/gtest/gtest.h ] || need+=(libgtest-dev)
[ -f /usr/include/benchmark/benchmark.h ] || need+=(libbenchmark-dev)
# Published NTv2 grids that the tests read (BETA2007.gsb, ntf_r93.gsb, ...).
[ -f /usr/share/proj/BETA2007.gsb ] || need+=(proj-data)
# The Python package's tests: Debian's python3 with NumPy, pytest, pyproj
# (the reference) and Dask for the cluster example.
for module in numpy:python3-numpy pytest:python3-pytest pyproj:python3-pyproj \
              dask:python3-dask distributed:python3-distributed pandas:python3-pandas; do
  /usr/bin/python3 -c "import ${module%%:*}" 2>/dev/null || need+=("${module#*:}")
done
if [ ${#need[@]} -gt 0 ]; then
  apt-get update -qq && DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "${need[@]}" >/dev/null
fi

echo "== release build and tests"
cmake -S . -B build -DCMAKE_BUILD_TYPE=Release -DGX_BUILD_BENCH=ON >/dev/null
cmake --build build -j"$jobs"
ctest --test-dir build --output-on-failure -j"$jobs"

echo "== Python package"
ORVAMOBILEGX_LIBRARY="$top/build/libORVAMobileGX.so" /usr/bin/python3 -m pytest -q python/tests

echo "== sanitizer build (ASan+UBSan) and tests"
cmake -S . -B build-asan -DCMAKE_BUILD_TYPE=Debug -DGX_SANITIZE=ON -DGX_BUILD_TOOLS=ON >/dev/null
cmake --build build-asan -j"$jobs"
ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
  ctest --test-dir build-asan --output-on-failure -j"$jobs"

echo "== thread-sanitizer build and the tests of concurrent use"
cmake -S . -B build-tsan -DCMAKE_BUILD_TYPE=RelWithDebInfo -DGX_SANITIZE_THREAD=ON -DGX_BUILD_TOOLS=OFF >/dev/null
cmake --build build-tsan -j"$jobs"
TSAN_OPTIONS=halt_on_error=1 ctest --test-dir build-tsan --output-on-failure -j"$jobs"

if command -v clang++ >/dev/null && [ -d fuzz ] && ls fuzz/*.cpp >/dev/null 2>&1; then
  echo "== fuzz smoke run"
  CC=clang CXX=clang++ cmake -S . -B build-fuzz -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DGX_BUILD_FUZZ=ON -DGX_SANITIZE=ON -DGX_BUILD_TESTS=OFF -DGX_BUILD_TOOLS=OFF >/dev/null
  cmake --build build-fuzz -j"$jobs"
  for f in build-fuzz/fuzz/fuzz_*; do
    [ -x "$f" ] || continue
    name=$(basename "$f")
    corpus=fuzz/corpus/${name#fuzz_}
    mkdir -p "build-fuzz/corpus-$name"
    "$f" -max_total_time="${GX_FUZZ_SECONDS:-20}" -max_len=2048 "build-fuzz/corpus-$name" \
      $( [ -d "$corpus" ] && echo "$corpus" ) >"build-fuzz/$name.log" 2>&1 \
      || { tail -n 40 "build-fuzz/$name.log"; exit 1; }
    echo "$name: $(grep -E '^#[0-9]+.*(DONE|pulse)' "build-fuzz/$name.log" | tail -n 1)"
  done
fi
echo "== all tests passed"
