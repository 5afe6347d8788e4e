#!/bin/sh
# Installs what is missing of the packages for each PURPOSE of packages.txt: install.sh PURPOSE...
set -eu
list=$(dirname "$0")/packages.txt
missing=
for purpose in "$@"; do
  packages=$(awk -v purpose="$purpose" '$1 == purpose { print $2 }' "$list")
  [ -n "$packages" ] || { echo "No packages are listed for: $purpose" >&2; exit 1; }
  for package in $packages; do
    dpkg-query -W -f '${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed ||
      missing="$missing $package"
  done
done
[ -n "$missing" ] || exit 0
echo "Installing:$missing" >&2
as_root=
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || { echo "Please install as root:$missing" >&2; exit 1; }
  as_root=sudo
fi
$as_root apt-get update >&2
# shellcheck disable=SC2086
$as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends $missing >&2
