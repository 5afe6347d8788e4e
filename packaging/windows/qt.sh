#!/bin/sh
# qt.sh FOLDER: builds a static Qt for Windows into the folder, unless it is complete there; a quarter of
# an hour on two cores. The source is Debian's, in the version of the installed qt6-base-dev, because
# building Qt needs the tools of the same version.
set -eu
cd "$(dirname "$0")"
prefix=$1
version=$(dpkg-query -W -f '${source:Version}' qt6-base-dev)
! grep -qsxF "$version" "$prefix/complete" || exit 0

work=$prefix.work
rm -rf "$work" "$prefix"
mkdir -p "$work/lists/partial" "$work/cache/archives/partial" "$prefix"

# The machine's apt may be set up for packages only: ask for the sources where the packages come from.
apt-get indextargets --format 'deb-src $(REPO_URI) $(RELEASE) main' \
  'Created-By: Packages' 'Component: main' 'Origin: Debian' | sort -u >"$work/sources.list"
apt_here() {
  apt-get -o Dir::Etc::sourcelist="$work/sources.list" -o Dir::Etc::sourceparts=- \
    -o Dir::State::lists="$work/lists" -o Dir::Cache="$work/cache" -o APT::Sandbox::User= "$@"
}
apt_here update
(cd "$work" && apt_here source "qt6-base=$version")
source=$(echo "$work"/qt6-base-*/)

# A copy of the toolchain file beside this Qt, so that Qt can be used without this checkout.
cp toolchain.cmake "$prefix/"
off="sql network dbus printsupport concurrent xml vulkan gif ico jpeg icu glib openssl tabletevent
  pkg_config system_zlib system_pcre2 system_freetype system_harfbuzz system_png system_jpeg system_doubleconversion"
# shellcheck disable=SC2046,SC2086
cmake -S "$source" -B "$work/build" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$prefix/toolchain.cmake" \
  -DCMAKE_INSTALL_PREFIX="$prefix" -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=OFF \
  -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR="/usr/lib/$(dpkg-architecture -qDEB_HOST_MULTIARCH)/cmake" \
  -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF -DINPUT_opengl=no $(printf -- '-DFEATURE_%s=OFF ' $off)
cmake --build "$work/build"
cmake --install "$work/build"

mkdir "$prefix/licences"
cp "$source"/LICENSES/* "$prefix/licences/"
cp "$source/debian/copyright" "$prefix/licences/COPYRIGHT.txt"
rm -rf "$work"
echo "$version" >"$prefix/complete"
