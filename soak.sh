#!/usr/bin/env bash
# Records two streams of a virtual wire with the whole program for so many minutes, and prints the
# frames sent, stored and lost, and what it took of the computer: ./soak.sh MINUTES
set -euo pipefail
cd "$(dirname "$0")"
minutes="${1:?usage: ./soak.sh MINUTES}"
. packaging/packages.sh
packaging/install_packages.sh "${build_packages[@]}" "${run_packages[@]}" python3 iproute2

cmake --preset release >/dev/null
cmake --build --preset release --target vornik_soak
exec tests/live/in_namespace.sh python3 tests/live/soak.py "$minutes" build/release/apps/vornik_soak
