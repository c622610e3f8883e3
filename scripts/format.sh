#!/usr/bin/env bash
# Formats every source by .clang-format; with --check changes nothing, and fails where something would change.
set -euo pipefail
cd "$(dirname "$0")/.."
case "${1-}" in
'') mode=(-i) ;;
--check) mode=(--dry-run --Werror) ;;
*)
    echo "usage: scripts/format.sh [--check]" >&2
    exit 2
    ;;
esac
# Also what git does not know yet; not what is deleted and not yet said so.
sources=()
while IFS= read -r -d '' file; do
    if [ -e "$file" ]; then sources+=("$file"); fi
done < <(git ls-files -z --cached --others --exclude-standard -- '*.h' '*.cpp')
if ! complaints=$(printf '%s\0' "${sources[@]}" | xargs -0 -n 32 -P "$(nproc)" clang-format "${mode[@]}" 2>&1); then
    grep -o '^[^ :]*:[0-9]*' <<<"$complaints" | sort -u | head -n 20 >&2 || true
    echo "not formatted: run scripts/format.sh" >&2
    exit 1
fi
