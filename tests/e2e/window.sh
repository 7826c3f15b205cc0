# To be sourced with the build folder as the first argument: the designer in an
# application folder of its own, on a screen of its own (screen.sh).
build=$(realpath "$1")
. "$(dirname "${BASH_SOURCE[0]}")/screen.sh"

export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=0}  # the system's libraries leak at their end
"$source"/tools/stage.sh "$build" "$work"/stage
open_screen 1366x768

launch() { exec "$work"/stage/bin/particle-vortex "$@"; }
settings() { cat "$XDG_CONFIG_HOME"/particle-vortex/*; }
