#!/bin/bash
# Usage: on-screen.sh COMMAND...
#
# Runs COMMAND on the screen that ctest has reserved for it (see tools/screens.sh), or on the current
# one if none is reserved.
set -euo pipefail
reserved=${CTEST_RESOURCE_GROUP_0_SCREENS:-} # as "id:2,slots:1"
if [ -n "$reserved" ]; then
    number=${reserved#id:}
    source "$SKYVANE_SCREENS/${number%%,*}.env"
    unset WAYLAND_DISPLAY XAUTHORITY
fi
exec "$@"
