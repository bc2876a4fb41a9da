#!/usr/bin/env bash
# Installs the built project into a scratch prefix, then builds and runs a
# program that finds it through find_package and through pkg-config.
set -euo pipefail
build=$1
source_dir=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cmake --install "$build" --prefix "$scratch/prefix" >/dev/null
cmake -S "$source_dir/consumer" -B "$scratch/consumer" -DCMAKE_PREFIX_PATH="$scratch/prefix" >/dev/null
cmake --build "$scratch/consumer" >/dev/null
LD_LIBRARY_PATH="$scratch/prefix/lib:${LD_LIBRARY_PATH:-}" "$scratch/consumer/consumer"
pc=$(find "$scratch/prefix" -name ORVAMobileGX.pc)
PKG_CONFIG_PATH=$(dirname "$pc") pkg-config --cflags --libs ORVAMobileGX | grep -q -- -lORVAMobileGX
echo "install: ok"
