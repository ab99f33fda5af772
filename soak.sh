#!/usr/bin/env bash
# Visits all views of the whole program on a virtual wire, ten seconds each, records two streams for so
# many minutes, and visits the views again: ./soak.sh MINUTES
# Fails where a sample is lost, or where memory, handles or threads grow, and says which.
set -euo pipefail
cd "$(dirname "$0")"
minutes="${1:?usage: ./soak.sh MINUTES}"
. packaging/packages.sh
packaging/install_packages.sh "${build_packages[@]}" "${run_packages[@]}" python3 iproute2

cmake --preset release >/dev/null
cmake --build --preset release --target vornik_soak
exec tests/live/in_namespace.sh python3 tests/live/soak.py "$minutes" build/release/apps/vornik_soak
