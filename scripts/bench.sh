#!/usr/bin/env bash
# Runs every benchmark program of the build.
set -euo pipefail
build=${1:-build}
for b in "$build"/bin/bench_*; do
  [ -x "$b" ] || continue
  echo "== $(basename "$b")"
  "$b" --benchmark_min_time=0.2
done
