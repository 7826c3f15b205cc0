# For the scripts beside it: the cache of what is built from Debian's own sources.

here=$(realpath "$(dirname "${BASH_SOURCE[0]}")")
root=$(realpath "$here/../..")
cache=${PV_WINDOWS_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/particle-vortex/windows}

# The installed versions of Debian packages, in one word.
versions() { dpkg-query -W -f='${Version}_' "$@"; }

# A short name for everything that a build depends on: versions and scripts.
key() {
  local script=$1
  shift
  { versions "$@"; cat "$here/$script" "$here/common.sh" "$here/toolchain.cmake"; } |
    sha256sum | cut -c 1-16
}

# fetch PACKAGE FOLDER: unpacks a source package of Debian 12 with its patches. Its
# lists lie in the cache; the system's stay as they are.
fetch() {
  local package=$1 target=$2 lists=$cache/lists downloads
  mkdir -p "$lists"/state/partial "$lists"/archives/partial
  echo "deb-src ${PV_DEBIAN:-http://deb.debian.org/debian} bookworm main" >"$lists"/sources.list
  local options=(-qq -o Dir::Etc::SourceList="$lists"/sources.list -o Dir::Etc::SourceParts=-
    -o Dir::State::Lists="$lists"/state -o Dir::Cache="$lists" -o APT::Sandbox::User=)
  [ -n "$(find "$lists"/state -name '*Sources*' -mmin -60)" ] || apt-get "${options[@]}" update >&2
  downloads=$(mktemp -d)
  (cd "$downloads" && apt-get "${options[@]}" source --download-only "$package" >&2 &&
    dpkg-source --no-check -x ./*.dsc "$target" >/dev/null)
  rm -rf "$downloads"
}

# once NAME FUNCTION: the folder NAME of the cache, made by FUNCTION WORK PREFIX unless
# it is there; an interrupted build leaves nothing that would be taken for one.
once() {
  local name=$1 build=$2 work
  if [ ! -e "$cache/$name/.complete" ]; then
    rm -rf "${cache:?}/$name"
    mkdir -p "$cache"
    work=$(mktemp -d "$cache/work-XXXXXX")
    "$build" "$work" "$cache/$name" >&2
    rm -rf "$work"
    touch "$cache/$name/.complete"
  fi
  echo "$cache/$name"
}

# cross SOURCE BUILD PREFIX OPTION...: configures, builds and installs for Windows;
# nothing of it is run.
cross() {
  local source=$1 build=$2 prefix=$3
  shift 3
  cmake -S "$source" -B "$build" -G Ninja -Wno-dev -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_TOOLCHAIN_FILE="$here"/toolchain.cmake -DCMAKE_INSTALL_PREFIX="$prefix" \
    -DCMAKE_PREFIX_PATH="$prefix" -DPV_WINE= "$@" >/dev/null
  cmake --build "$build"
  cmake --install "$build" >/dev/null
}
