#!/usr/bin/env bash
# Runs a command with an X server and a window manager of its own. Without a manager Wine waits seconds
# for the answer of one whenever a window goes.
# Usage: on_own_display.sh COMMAND ARGUMENT...
set -eu
exec xvfb-run --auto-servernum --server-args='-screen 0 1280x1024x24' \
  bash -c 'openbox & "$@"' on_own_display "$@"
