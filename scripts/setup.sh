#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs what is missing from Debian's packages, then configures and builds
# the program, its tests and benchmarks into build/ (the program in build/app).
# Arguments are passed on to CMake's configure step.
set -euo pipefail
cd "$(dirname "$0")/.."

packages=(cmake ninja-build g++ pkg-config qt6-base-dev libgl-dev libgtest-dev libgmock-dev
          libbenchmark-dev fonts-dejavu-core libvips-tools libturbojpeg0-dev libjpeg62-turbo-dev libarchive-dev poppler-utils
          desktop-file-utils appstream shared-mime-info dpkg-dev file librsvg2-bin fonts-liberation help2man lintian)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if ((${#missing[@]})); then
  sudo=""
  [ "$(id -u)" -ne 0 ] && sudo=sudo
  $sudo apt-get update -qq
  $sudo env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "${missing[@]}"
fi

cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo "$@"
cmake --build build
