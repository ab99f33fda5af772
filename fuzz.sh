#!/usr/bin/env bash
# Fuzzes what comes from outside, each TARGET for so many SECONDS, a minute unless told. What it finds is named and
# stays in build/fuzz/found; what it learnt stays in build/fuzz/corpus, so that the next run goes on from there.
# PRESET=fuzz-many looks for less, and tries many more inputs; PROCESSES work on a target at once, one unless told.
set -euo pipefail
cd "$(dirname "$0")"
. packaging/packages.sh
packaging/install_packages.sh "${build_packages[@]}" "${test_packages[@]}"

targets=(packet report structure settings captures recordings numbers)
seconds=60
if [[ ${1:-} =~ ^[0-9]+$ ]]; then
  seconds=$1
  shift
fi
if (($# > 0)); then targets=("$@"); fi
preset=${PRESET:-fuzz}
processes=${PROCESSES:-1}

cmake --preset "$preset" >/dev/null
cmake --build --preset "$preset" -- --quiet

programs=build/$preset/tests/fuzz
failed=0
for target in "${targets[@]}"; do
  seeds=build/fuzz/seeds/$target
  corpus=build/fuzz/corpus/$target
  found=build/fuzz/found/$target
  logs=build/fuzz/logs/$target
  rm -rf "$logs"
  mkdir -p "$corpus" "$found" "$logs"
  "$programs/${target}_seeds" "$seeds"
  jobs=()
  for ((i = 1; i <= processes; ++i)); do
    "$programs/fuzz_$target" -max_total_time="$seconds" -max_len=4096 -timeout=60 -rss_limit_mb=4096 \
      -artifact_prefix="$found/" -print_final_stats=1 "$corpus" "$seeds" >"$logs/$i" 2>&1 &
    jobs+=($!)
  done
  for job in "${jobs[@]}"; do
    wait "$job" || failed=1
  done
  awk -v target="$target" '
    /stat::number_of_executed_units/ { inputs += $2 }
    /^frames through the packet event/ { frames += $NF }
    { for (i = 1; i < NF; ++i) if ($i == "cov:" && $(i + 1) > edges) edges = $(i + 1) }
    /Loaded 1 modules/ { all = substr($5, 2) }
    END {
      printf "%-12s %10d inputs, %d of %d edges", target, inputs, edges, all
      if (frames > 0) printf ", %d frames through the packet event", frames
      print ""
    }' "$logs"/*
  grep -ahE "does not hold|ERROR: |runtime error|Test unit written" "$logs"/* || true
done
exit "$failed"
