#!/usr/bin/env bash
# Breaks random lines of src/ in a copy of the tree, one at a time, and lists which breaks no test notices:
# ./mutate.sh [SECONDS] [SEED] for an hour and the seed 1 unless told otherwise; the same seed goes on where it ended.
# ./mutate.sh --again [SEED] judges anew what lived. WORKERS tells how many copies work at a time, 2 by themselves;
# FOLDERS="base sv" breaks these folders alone, before their own tests alone.
set -euo pipefail
cd "$(dirname "$0")"
. packaging/packages.sh
packaging/install_packages.sh "${build_packages[@]}" "${run_packages[@]}" "${test_packages[@]}"

exec python3 tests/mutants/mutate.py "$@"
