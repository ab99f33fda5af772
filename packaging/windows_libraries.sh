#!/usr/bin/env bash
# Puts the libraries that the program for Windows needs into a folder, each from its Debian package:
# windows_libraries.sh FOLDER. What is there already stays.
set -euo pipefail
toolchain="$(cd "$(dirname "$0")" && pwd)/mingw.cmake"
mkdir -p "$1"
libraries="$(cd "$1" && pwd)"
mkdir -p "$libraries"/{include,lib,share/cmake} "$libraries/work"
# What the tools leave lying about lies here.
cd "$libraries/work"

# Says no more than a failure has to tell: quietly COMMAND...
quietly() {
  "$@" >log 2>&1 || { cat log >&2 && exit 1; }
}
for_windows() {
  quietly cmake -G Ninja -DCMAKE_TOOLCHAIN_FILE="$toolchain" -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_INSTALL_PREFIX="$libraries" "$@"
}

# Headers alone. The folder that they stand in is no place for another system's compiler to look.
for package in CLI11:CLI nlohmann_json:nlohmann; do
  cp -r "/usr/share/cmake/${package%:*}" "$libraries/share/cmake/"
  cp -r "/usr/include/${package#*:}" "$libraries/include/"
done

if [ ! -e "$libraries/lib/libgmock.a" ]; then
  for_windows -S /usr/src/googletest -B googletest
  quietly ninja -j2 -C googletest install
fi

# The capture library has no package for Windows, so Debian's source is built: all of it but what captures,
# for which a driver stands on Windows.
if [ ! -e "$libraries/lib/libpcap.a" ]; then
  mkdir -p lists/partial
  apt-get indextargets --format 'deb-src $(REPO_URI) $(RELEASE) $(COMPONENT)' 'Created-By: Packages' \
    'Origin: Debian' | sort -u >sources.list
  from_source=(apt-get -o Dir::Etc::SourceList="$PWD/sources.list" -o Dir::Etc::SourceParts=-
    -o Dir::State::Lists="$PWD/lists" -o APT::Sandbox::User=)
  quietly "${from_source[@]}" update
  quietly "${from_source[@]}" source --download-only libpcap
  rm -rf source
  quietly dpkg-source --no-check --extract libpcap_*.dsc source
  for_windows -S source -B libpcap -DPCAP_TYPE=null -DENABLE_REMOTE=OFF -DDISABLE_DBUS=ON -DDISABLE_RDMA=ON
  quietly ninja -j2 -C libpcap pcap_static
  cp -r source/pcap "$libraries/include/"
  cp libpcap/libpcap.a "$libraries/lib/"
fi
