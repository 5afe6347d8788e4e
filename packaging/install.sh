#!/bin/sh
# install.sh [--target ARCH] PURPOSE...: prints the missing packages that packages.txt lists for each
# purpose and installs them with apt-get. With a target architecture (a Debian name such as arm64) it
# also installs the packages marked "target" for that architecture.
set -eu
list=$(dirname "$0")/packages.txt
native=$(dpkg --print-architecture)
target=
if [ "${1:-}" = --target ]; then
  target=$2
  shift 2
fi

is_installed() {
  case $1 in *:*) architecture=${1#*:} ;; *) architecture=$native ;; esac
  dpkg-query -W -f '${db:Status-Status} ${Architecture}\n' "${1%:*}" 2>/dev/null |
    grep -Eqx "installed ($architecture|all)"
}

missing=
for purpose in "$@"; do
  packages=$(awk -v purpose="$purpose" -v target="$target" '
    $1 == purpose {
      if (target != "") {
        sub(/ARCH/, target, $2)
        if ($3 == "target") print $2 ":" target
      }
      print $2
    }' "$list")
  [ -n "$packages" ] || { echo "packages.txt lists nothing for: $purpose" >&2; exit 1; }
  for package in $packages; do
    is_installed "$package" || missing="$missing $package"
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

added=
case $missing in
  *:"$target"*)
    dpkg --print-foreign-architectures | grep -qx "$target" || added=$target
    [ -z "$added" ] || $as_root dpkg --add-architecture "$added" ;;
esac
# shellcheck disable=SC2086
if $as_root apt-get update -qq >&2 &&
  $as_root env DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=600 install -y -qq \
    --no-install-recommends $missing >&2; then
  exit 0
fi
# Remove the new architecture again: if its packages are unavailable, later updates would fail.
[ -z "$added" ] || { $as_root dpkg --remove-architecture "$added" && $as_root apt-get update -qq; } >&2
exit 1
