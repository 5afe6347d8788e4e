#!/bin/sh
# install.sh PURPOSE...: installs with apt-get the packages that packages.txt lists for each purpose and
# that are not installed yet, and says so before.
set -eu
list=$(dirname "$0")/packages.txt
missing=
for purpose in "$@"; do
  packages=$(awk -v purpose="$purpose" '$1 == purpose { print $2 }' "$list")
  [ -n "$packages" ] || { echo "packages.txt lists nothing for: $purpose" >&2; exit 1; }
  for package in $packages; do
    dpkg-query -W -f '${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed ||
      missing="$missing $package"
  done
done
[ -n "$missing" ] || exit 0
missing=$(printf '%s\n' $missing | sort -u | xargs)
as_root=
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || { echo "Please install as root: $missing" >&2; exit 1; }
  as_root=sudo
fi
echo "These Debian packages are missing; ${as_root:+sudo }apt-get installs them now: $missing" >&2
$as_root apt-get update -qq >&2
# shellcheck disable=SC2086
$as_root env DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=600 install -y -qq \
  --no-install-recommends $missing >&2
