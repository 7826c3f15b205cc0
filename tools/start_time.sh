#!/usr/bin/env bash
# How long the designer takes from its start to its first complete picture, beside a
# bare window of the toolkit on the same machine; both are started in turn, with
# fresh settings and full libraries.
# usage: tools/start_time.sh BUILD_FOLDER [RUNS [WINDOW_MANAGER]]
# (a Release build; 25 runs; without a window manager)
set -euo pipefail
build=$(realpath "$1")
runs=${2:-25}
manager=${3:-}
here=$(realpath "$(dirname "$0")")
cmake --build "$build" --target particle-vortex pvortex start-watcher empty-window >/dev/null

work=$(mktemp -d)
children=()
leave() {
  for pid in "${children[@]}"; do kill "$pid" 2>/dev/null || true; done
  wait 2>/dev/null || true
  rm -rf "$work"
}
trap leave EXIT
export HOME=$work XDG_CONFIG_HOME=$work/config XDG_RUNTIME_DIR=$work/run
unset QT_QPA_PLATFORM QT_SCALE_FACTOR QT_QPA_PLATFORMTHEME WAYLAND_DISPLAY
mkdir -m 700 "$work"/run
"$here"/stage.sh "$build" "$work"/stage

Xvfb -noreset -displayfd 3 -screen 0 1366x768x24 3>"$work"/display 2>/dev/null &
children+=($!)
until [ -s "$work"/display ]; do sleep 0.1; done
export DISPLAY=:$(cat "$work"/display)
if [ -n "$manager" ]; then
  "$manager" >/dev/null 2>&1 &
  children+=($!)
  sleep 1
fi

measure() {
  rm -rf "$XDG_CONFIG_HOME"
  "$build"/bin/start-watcher "$@" 2>/dev/null
}
bare=$build/bin/empty-window
designer=$work/stage/bin/particle-vortex
# Neither begins with cold files.
measure "$bare" >/dev/null
measure "$designer" >/dev/null
for ((run = 0; run < runs; ++run)); do
  measure "$bare" >>"$work"/bare
  measure "$designer" >>"$work"/designer
done

# Smallest, median and largest of a column.
column() {
  sort -n -k "$2,$2" "$work/$1" | awk -v c="$2" '
    { v[NR] = $c }
    END { printf "%.1f %.1f %.1f", v[1], (v[int((NR + 1) / 2)] + v[int(NR / 2) + 1]) / 2, v[NR] }'
}
printf '%-10s %28s %28s\n' "" "first change (ms)" "complete picture (ms)"
for program in bare designer; do
  read -r low middle high < <(column $program 1; echo)
  read -r lowest median highest < <(column $program 2; echo)
  printf '%-10s %10.1f (%.1f-%.1f) %12.1f (%.1f-%.1f)\n' \
    $program "$middle" "$low" "$high" "$median" "$lowest" "$highest"
  eval "$program=$median"
done
awk -v bare="$bare" -v designer="$designer" \
  'BEGIN { printf "ratio %.2f\n", designer / bare }'
