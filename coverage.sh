#!/usr/bin/env bash
# Counts which lines and branches of what needs no window its tests go through. Prints the sums of each folder and
# leaves every line in out/coverage/. Branches that only an exception takes, and those that the compiler made where
# the source has none, do not count.
set -euo pipefail
cd "$(dirname "$0")"
. packaging/packages.sh
packaging/install_packages.sh "${build_packages[@]}" "${run_packages[@]}" "${test_packages[@]}" gcovr

cmake --preset coverage >/dev/null
cmake --build --preset coverage
find build/coverage -name '*.gcda' -delete
failed=0
ctest --test-dir build/coverage --parallel "$(($(nproc) + 1))" || failed=1
rm -rf out/coverage
mkdir -p out/coverage
gcovr --root . --filter src/ --exclude-throw-branches --exclude-unreachable-branches -j "$(nproc)" \
  --html-details out/coverage/index.html --json out/coverage/lines.json build/coverage
tests/coverage_sums.py out/coverage/lines.json
exit "$failed"
