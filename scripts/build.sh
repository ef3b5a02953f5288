#!/usr/bin/env bash
# scripts/build.sh PRESET [TARGET ...]: configures once, then builds what changed. Prints only what went wrong.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
preset=$1
shift
folder=build
[ "$preset" = release ] || folder=build/$preset
[ -f "$folder/build.ninja" ] || cmake --preset "$preset" > /dev/null
targets=()
[ $# -eq 0 ] || targets=(--target "$@")
log=$(mktemp)
trap 'rm -f "$log"' EXIT
if [ -t 2 ] || [ -n "${CI:-}" ]; then
  cmake --build --preset "$preset" "${targets[@]}" >&2
elif ! cmake --build --preset "$preset" "${targets[@]}" > "$log" 2>&1; then
  cat "$log" >&2
  exit 1
fi
