#!/usr/bin/env bash
# Everything from a fresh Debian machine to passed tests: packages, the release build with its tests,
# then the same suite under the address and undefined-behaviour sanitizers.
set -euo pipefail
cd "$(dirname "$0")"
. cmake/packages.sh
yld_install_packages run test
yld_reuse_objects

echo "== format"
scripts/format.sh --check

for preset in ${YLD_PRESETS:-release asan}; do
    echo "== $preset"
    cmake --preset "$preset" >/dev/null
    cmake --build --preset "$preset"
    ctest --preset "$preset"
done
python3 tests/tools/exodus_expected_test.py --left-out
