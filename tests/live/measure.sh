#!/usr/bin/env bash
# Builds for release and measures the program on whole buses: looks of the finder, presses of RUN on
# the report, the share of a core beside sixty senders, presses of STOP at all moments, and scans
# beside longer frames. Arguments go to GoogleTest: --gtest_filter=*Stop* measures the presses alone.
set -euo pipefail
cd "$(dirname "$0")/../.."
. packaging/packages.sh
packaging/install_packages.sh "${build_packages[@]}" "${run_packages[@]}" "${test_packages[@]}"

cmake --preset release -DVORNIK_TESTS=ON -B build/measure >/dev/null
cmake --build build/measure --target vornik_live_measures
exec env LC_ALL=C.UTF-8 tests/live/in_namespace.sh build/measure/tests/live/vornik_live_measures "$@"
