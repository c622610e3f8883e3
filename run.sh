#!/usr/bin/env bash
# The main job, from a fresh Debian machine: build, analyse a cantilever, look at what it left behind.
set -euo pipefail
cd "$(dirname "$0")"
. cmake/packages.sh
yld_install_packages run
yld_reuse_objects
cmake --preset run >/dev/null
cmake --build --preset run

bin=build/run/bin
results=build/run/cantilever.yld
echo
echo "== a cantilever of hexahedra, its end load in ten increments"
"$bin/cantilever_analysis" "$results"
echo
echo "== what is in its results, read by another program"
"$bin/cantilever_report" "$results"
echo
echo "== the deflection of its tip, a curve over the step"
"$bin/yld" history "$results" --region tip --output deflection --plot
cat <<END

The results are in $results. To look into them:

    $bin/yld info $results
    $bin/yld values $results --field U
    $bin/yld values $results --step load --frame -1 --field S --csv
    $bin/yld info $results --json
    $bin/yld history $results
    $bin/yld history $results --region root --output reaction --csv
    $bin/yld history $results --plot curves.svg

Result files in Exodus II format become databases with

    $bin/yld import IN.e OUT.yld
END
