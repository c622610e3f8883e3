#!/usr/bin/env bash
# The main job, from a fresh Debian machine: build, analyse a cantilever, look at what it left behind.
set -euo pipefail
cd "$(dirname "$0")"
. cmake/packages.sh
yld_install_packages
cmake --preset release >/dev/null
cmake --build --preset release
