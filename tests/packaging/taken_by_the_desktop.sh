#!/usr/bin/env bash
# Has the desktop's own judges read what the window's package tells it: taken_by_the_desktop.sh ENTRY FOLDER
# Ends with 77, which stands for skipped, where one of them is not installed.
set -euo pipefail
for judge in desktop-file-validate appstreamcli; do
  command -v "$judge" >/dev/null || {
    echo "$judge is not installed"
    exit 77
  }
done
said=$(desktop-file-validate "$1" 2>&1) || true
[ -z "$said" ] || {
  echo "$said"
  exit 1
}
appstreamcli validate --no-net "$2"/*.metainfo.xml
