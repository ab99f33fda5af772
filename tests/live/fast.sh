#!/usr/bin/env bash
# How fast a capture file becomes text: the recorder beside tshark with ten fields, on the same file
# and one behind the other.
#   fast.sh VORNIK-CLI [SECONDS]     a release build; 300 seconds are 2.4 million frames
set -euo pipefail

program=$1
seconds=${2:-300}
here=$(dirname "$(readlink -f "$0")")
if ! command -v tshark > /dev/null; then
  echo "tshark is not on this computer"
  exit 77
fi
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
python3 "$here/fast_file.py" "$folder/bus.pcap" "$seconds"
mkdir "$folder/data"
cat "$folder/bus.pcap" > /dev/null

TIMEFORMAT='%R %U %S'
record() {
  "$program" record "$folder/bus.pcap" --fast --folder "$folder/data" --station FAST-MU-01 \
    --station FAST-MU-02 > "$folder/names" 2> "$folder/notes" &
  local id=$!
  # Memory while it runs; it must not grow with the file.
  most=0
  while [[ -d /proc/$id ]]; do
    now=$(awk '/VmHWM/ {print $2}' "/proc/$id/status" 2> /dev/null || true)
    if [[ -n $now && $now -gt $most ]]; then most=$now; fi
    sleep 0.1
  done
  wait $id
  echo "$most" > "$folder/memory"
}
dissect() {
  tshark -r "$folder/bus.pcap" -T fields -e frame.time_epoch -e eth.src -e eth.dst -e vlan.id \
    -e sv.appid -e sv.svID -e sv.smpCnt -e sv.confRev -e sv.smpSynch -e sv.seqData \
    > /dev/null 2> "$folder/tshark"
}
ours=$({ time record; } 2>&1 | tail -1)
theirs=$({ time dissect; } 2>&1 | tail -1)

rings=$((seconds - 1))
for prefix in 1_ 2_; do
  lines=$(cat "$folder/data/$prefix"*.txt | wc -l)
  if [[ $lines -lt $((rings * 4000)) ]]; then
    echo "FAILED: $prefix has $lines lines"
    exit 1
  fi
done
python3 - "$seconds" "$ours" "$theirs" "$(cat "$folder/memory")" << 'PYTHON'
import sys

frames = int(sys.argv[1]) * 8000
ours, theirs = ([float(x) for x in each.split()] for each in sys.argv[2:4])
for name, (wall, user, system) in (("record --fast", ours), ("tshark, ten fields", theirs)):
    print(f"{name}: {wall:.2f} s, {user + system:.2f} s of the processor, "
          f"{frames / wall:,.0f} frames a second")
print(f"{theirs[0] / ours[0]:.1f} times as fast by the clock, "
      f"{sum(theirs[1:]) / sum(ours[1:]):.1f} by the processor; memory {sys.argv[4]} kB")
PYTHON
