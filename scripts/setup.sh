#!/usr/bin/env bash
# Installs the Debian packages that the build needs and that are not there yet. Quick when nothing is missing.
# scripts/setup.sh bench: those of the benchmarks' peers too.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

packages=$(cat "$here/packages.txt" ${1:+"$here/packages-$1.txt"})
missing=()
while read -r package; do
  [ -n "$package" ] || continue
  case $(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true) in
    *" installed") ;;
    *) missing+=("$package") ;;
  esac
done <<< "$packages"
[ ${#missing[@]} -gt 0 ] || exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || { echo "These packages are missing and sudo is not here to install them: ${missing[*]}" >&2; exit 1; }
  as_root=(sudo)
fi
echo "Installing from Debian's packages${as_root:+ (with sudo)}: ${missing[*]}" >&2
"${as_root[@]}" apt-get update -q
DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install -y -q --no-install-recommends "${missing[@]}"
