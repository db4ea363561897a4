#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# InstallPeers.sh: makes sure that the libraries of the comparisons are there, and what they are measured with.
set -eu
cd "$(dirname "$0")/.."
. Scripts/Packages.sh
need_packages g++ cmake ninja-build pkg-config valgrind python3 \
    libglib2.0-dev qt6-base-dev gobjc gobjc++ libgnustep-base-dev libboost-dev \
    libgtk-4-dev libxtst-dev xvfb openbox x11-utils
