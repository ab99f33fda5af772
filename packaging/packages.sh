# The Debian packages of the project; sourced by the commands in the root.
build_packages=(g++ cmake ninja-build ccache qt6-base-dev qt6-svg-dev libgl-dev libqcustomplot-dev
  libpcap-dev libcap-dev libsystemd-dev libcli11-dev nlohmann-json3-dev)
run_packages=(libqt6gui6 libqt6svg6 fontconfig fonts-dejavu-core)
display_packages=(xvfb poppler-utils)
test_packages=(clang libclang-rt-14-dev lld libgtest-dev libgmock-dev libbenchmark-dev clang-format clang-tidy
  python3 iproute2 libcap2-bin poppler-utils python3-xlrd dbus-daemon tshark
  desktop-file-utils appstream librsvg2-bin
  xvfb xdotool at-spi2-core python3-pyatspi zsh mandoc groff-base man-db systemd systemd-container)
bench_packages=(libbenchmark-dev iproute2)
windows_packages=(g++-mingw-w64-x86-64-posix wine wine64 googletest libcli11-dev nlohmann-json3-dev cmake ninja-build
  ccache dpkg-dev flex bison python3)
