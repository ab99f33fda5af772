#!/usr/bin/env bash
# Builds for release and runs the benchmarks; arguments go to Google Benchmark.
set -euo pipefail
cd "$(dirname "$0")"
. packaging/packages.sh
packaging/install_packages.sh "${build_packages[@]}" "${run_packages[@]}" "${bench_packages[@]}"

cmake --preset bench >/dev/null
cmake --build --preset bench
# In a network namespace of its own, where the restart of a capture is measured on a virtual wire.
exec env QT_QPA_PLATFORM=offscreen tests/live/in_namespace.sh build/release/bench/vornik_bench "$@"
