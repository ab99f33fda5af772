#!/usr/bin/env bash
# Builds for release, records two streams of a virtual wire for ten minutes, and does to it meanwhile
# what a night may do. Prints what was done beside what the events file tells, and fails where they
# differ.
set -euo pipefail
cd "$(dirname "$0")/../.."
. packaging/packages.sh
packaging/install_packages.sh "${build_packages[@]}" "${run_packages[@]}" "${test_packages[@]}"

cmake --preset release -DVORNIK_TESTS=ON -B build/measure >/dev/null
cmake --build build/measure --target vornik_soak vornik_live_bus vornik_set_clock
exec tests/live/in_namespace.sh python3 tests/live/morning.py night build/measure/apps/vornik_soak \
  build/measure/tests/live/vornik_live_bus build/measure/tests/live/libvornik_set_clock.so
