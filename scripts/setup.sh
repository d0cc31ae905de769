#!/usr/bin/env bash
# Installs the Debian packages that this machine does not have: those of the lists given, or of scripts/packages.txt.
set -euo pipefail
cd "$(dirname "$0")/.."
lists=("$@")
if [ ${#lists[@]} -eq 0 ]; then
  lists=(scripts/packages.txt)
fi
missing=()
for package in $(grep -hv '^#' "${lists[@]}"); do
  dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
done
if [ ${#missing[@]} -eq 0 ]; then
  exit 0
fi
echo "Installing Debian packages, which takes a minute or two: ${missing[*]}"
as_root=()
if [ "$(id -u)" -ne 0 ]; then
  as_root=(sudo)
fi
"${as_root[@]}" apt-get update -q
DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install -q -y --no-install-recommends "${missing[@]}"
