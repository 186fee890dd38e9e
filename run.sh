#!/usr/bin/env bash
# Installs what is missing, builds Tarnwell and starts it with the arguments given. Where there is
# no display it runs on a virtual one for as long as a picture takes: build/tarnwell.png.
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"

"$root/scripts/install-packages" build run
"$root/scripts/build" release tarnwell
"$root/scripts/make-guide" || echo "The program starts without its user guide." >&2
program="$root/build/release/tarnwell"

if [[ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]]; then
  exec "$program" "$@"
fi

"$root/scripts/install-packages" display
echo "There is no display: Tarnwell starts on a virtual one, to take a picture of its window."
"$root/scripts/with-display" "$root/scripts/take-picture" "$root/build/tarnwell.png" "$program" "$@"
echo "The picture is in $root/build/tarnwell.png."
