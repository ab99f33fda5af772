#!/bin/sh
# Installs the launcher and the programs into a file system of its own, and starts them as a member of the
# launcher's group and as somebody else.
#
#   in_namespace.sh launched.sh PROGRAMS LAUNCHER BUILT_LAUNCHER BUILT_PROGRAM...
#
# PROGRAMS and LAUNCHER are the places that an installation has. Ends with 77, which stands for skipped, where
# no other user can be played.
set -u
programs=$1 launcher=$2 built=$3
shift 3

skip() {
  echo "$1"
  exit 77
}
[ "${VORNIK_NAMESPACE:-}" = own ] || skip "${VORNIK_NAMESPACE:-not started through in_namespace.sh}"
[ "$(id -u)" = 0 ] && grep -q 4294967295 /proc/self/uid_map || skip "no other user to be"
prefix=$(dirname "$programs")
[ "$prefix" != /usr ] && [ -d "$prefix" ] || skip "programs of this computer lie in $prefix"

faults=0
fault() {
  echo "FAULT: $1"
  faults=1
}
told() {
  case $1 in *"$2"*) ;; *) fault "not told: $2; but: $1" ;; esac
}
untold() {
  case $1 in *"$2"*) fault "told: $2; in: $1" ;; esac
}

home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
chown 65534 "$home"
mount -t tmpfs -o mode=755 none "$prefix"
mkdir -p "$programs" "$(dirname "$launcher")"
cp "$@" "$programs"
cp "$built" "$launcher"
chgrp games "$launcher"
chmod 750 "$launcher"
setcap cap_net_raw+ep "$launcher"
ip link add vornik-near type veth peer name vornik-far
ip link set vornik-near up
ip link set vornik-far up

# Becomes a program of another user, who would like to have code of their own loaded.
as_user() {
  groups=$1
  shift
  export HOME="$home" XDG_RUNTIME_DIR="$home" QT_QPA_PLATFORM=offscreen QT_PLUGIN_PATH="$home" LD_LIBRARY_PATH="$home" GTK_MODULES=own
  exec setpriv --reuid=65534 --regid=65534 "$groups" --inh-caps=-all "$@"
}
as_member() { as_user --groups=60 "$@"; }
as_other() { as_user --clear-groups "$@"; }

# What the system tells of a program that has come up, and has opened what it raised its right for.
none=0000000000000000 reserve=0000000000002000
of_running() {
  as_member "$@" >"$home/said" 2>&1 &
  running=$!
  for look in $(seq 200); do
    status=$(grep -E "^(Name|Cap|NoNew)" "/proc/$running/status")
    case $status in "Name:	$(basename "$1")
"*"CapPrm:	$reserve"*"CapEff:	$none"*"CapAmb:	$none"*) break ;; esac
    sleep 0.1
  done
  around=$(tr '\0' '\n' <"/proc/$running/environ")
  kill "$running"
  wait "$running" 2>"$home/said"
}
holds_nothing_but_the_reserve() {
  told "$status" "CapInh:	$none"
  told "$status" "CapPrm:	$reserve"
  told "$status" "CapEff:	$none"
  told "$status" "CapAmb:	$none"
  told "$around" "HOME=$home"
  for own in QT_PLUGIN_PATH LD_LIBRARY_PATH GTK_MODULES; do untold "$around" "$own"; done
}

echo "A member captures, with the right in reserve and nothing of their own loaded."
list=$(as_member "$programs/vornik-cli" adapters 2>&1)
told "$list" "vornik-near"
untold "$list" "no right"
of_running "$programs/vornik-cli" watch vornik-near --seconds 20
holds_nothing_but_the_reserve
told "$status" "NoNewPrivs:	1"
told "$(as_member "$programs/vornik-cli" streams vornik-near --seconds 1 2>&1)" "no stream of sampled values came from vornik-near"
if [ -x "$programs/vornik" ]; then
  of_running "$programs/vornik" -platformpluginpath "$home"
  holds_nothing_but_the_reserve
fi

echo "Somebody else runs the program, and is told how to join."
list=$(as_other "$programs/vornik-cli" adapters 2>&1)
told "$list" "vornik-near (network interface), no right to capture"
told "$list" "sudo adduser nobody games"
(as_other "$programs/vornik-cli" --version) >"$home/said" || fault "does not run without the right"

echo "Who has joined since the session began is told to log in again."
sed 's/^games:.*/games:x:60:nobody/' /etc/group >"$home/group"
mount --bind "$home/group" /etc/group
told "$(as_other "$programs/vornik-cli" adapters 2>&1)" "member of the group games from the next login on"

echo "The launcher starts nothing else."
(as_member "$launcher" ../../../bin/sh -c true) 2>"$home/said"
[ $? = 126 ] || fault "the launcher started a shell"

echo "A launcher that has lost what it lends is told of, and asked once."
setcap -r "$launcher"
told "$(as_member timeout 10 "$programs/vornik-cli" adapters 2>&1)" "sudo setcap cap_net_raw+ep $launcher"
exit "$faults"
