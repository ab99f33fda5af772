#!/bin/sh
# What is done in the container of units_trial.py, beside whose files it lies. What it finds goes to /found.
set -eu
tell_journals() {
  for name in watch@bus record@bus record@wrong; do
    journalctl --no-pager --output=cat --unit="vornik-$name" >"/found/$name.journal"
  done
}
trap tell_journals EXIT
ip link add bus type veth peer name far
ip link set bus up
ip link set far up
/usr/bin/python3 /trial/publisher.py --interface far --duration 100 \
  --stream id=FIRST,tag=4:5 --stream id=SECOND >/dev/null &
publisher=$!

systemctl start vornik-watch@bus vornik-record@bus
# With a word that there is not for its format.
systemctl start vornik-record@wrong
# A busy computer takes its time until the first ring is stored.
for second in $(seq 50); do
  sleep 1
  stored=$(cat /var/lib/vornik/record-bus/SV*.txt 2>/dev/null | wc -l)
  if [ -s /run/vornik/watch-bus/vornik.prom ] && [ "$stored" -ge 4000 ]; then break; fi
done

for name in watch record; do
  pid=$(systemctl show -P MainPID "vornik-$name@bus")
  grep -E '^(Uid|Cap|NoNewPrivs|Seccomp:)' "/proc/$pid/status" >"/found/$name.status"
done
ip -o -d link show bus >/found/link
# As the node exporter would, which is another user.
setpriv --reuid=65534 --regid=65534 --clear-groups cat /run/vornik/watch-bus/vornik.prom >/found/vornik.prom

for name in watch@bus record@bus; do
  systemctl stop "vornik-$name"
done
cp -r /var/lib/vornik/record-bus/. /found/recordings
kill "$publisher"
