#!/usr/bin/env bash
# Builds what needs no window for Windows, with its tests, runs them here under wine, and says what was left
# out and why.
set -euo pipefail
cd "$(dirname "$0")"
. packaging/packages.sh
packaging/install_packages.sh "${windows_packages[@]}"

packaging/windows_libraries.sh build/windows-libraries
cmake --preset windows >/dev/null
cmake --build --preset windows

# A computer of its own for the programs, without what would ask a user.
export WINEDEBUG=-all WINEPREFIX="$PWD/build/windows/wine" WINEDLLOVERRIDES="mscoree,mshtml="
[ -d "$WINEPREFIX" ] || wine wineboot --init >/dev/null 2>&1

failed=0
for program in build/windows/tests/test_*.exe; do
  log="${program%.exe}.log"
  code=0
  wine "$program" 2>&1 | tr -d '\r' >"$log" || code=$?
  echo "$(basename "$program"): $(sed -n 's/^\[ *PASSED *\] //p' "$log")"
  # What could not run, with the reason that it told.
  awk '/: Skipped$/ { getline why } /^\[ *SKIPPED *\] .* ms\)$/ { print "  skipped: " $4 ": " why }' "$log"
  # Some skipped and none failed is 77 (tests/support/run_scenes.h).
  if [ "$code" -ne 0 ] && [ "$code" -ne 77 ]; then
    grep -E -B20 '^\[ *FAILED *\] .* ms\)$' "$log" || tail "$log"
    failed=1
  fi
done
python3 tests/windows/trial.py build/windows/apps/vornik-cli.exe || failed=1

echo "Left out, since they need what Windows has otherwise or not yet (see docs/architecture.md):"
echo "  $(cd tests/system/posix && echo *_test.cpp): scenes of system/posix/"
echo "  $(cd tests/adapters/posix && echo *_test.cpp): a pipe that is no file"
echo "  tests/desktop, tests/reader: the window is not built for Windows yet"
echo "  tests/live: an interface is captured from by a driver, and a wire is made of namespaces of Linux"
echo "  tests/fuzz: the core is fuzzed where clang builds it"
echo "  scripts of tests/console: completions, units, manual and streams of Linux"
exit "$failed"
