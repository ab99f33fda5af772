#!/usr/bin/env bash
# Installs the Debian packages that are named and missing; through sudo where not root.
set -euo pipefail

missing=()
for package in "$@"; do
  dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' ||
    missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || {
    echo "Please install as root: apt-get install ${missing[*]}" >&2
    exit 1
  }
  as_root=(sudo)
fi
echo "Installing: ${missing[*]}"
# The question mode is set behind sudo, which passes no variables on.
as_root+=(env DEBIAN_FRONTEND=noninteractive)
# Other package managers may hold the lock for a while.
"${as_root[@]}" apt-get -o DPkg::Lock::Timeout=300 update -qq
"${as_root[@]}" apt-get -o DPkg::Lock::Timeout=300 install -y -qq --no-install-recommends \
  "${missing[@]}"
