#!/usr/bin/env bash
# Starts the desktop program; without a display it says how to get one instead of failing.
set -euo pipefail
program=$1
if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ] && [ -z "${QT_QPA_PLATFORM:-}" ]; then
  echo "Nessuno schermo disponibile (DISPLAY non impostata)."
  echo "Per provarlo senza schermo:  xvfb-run -a $program"
  exit 1
fi
exec "$program"
