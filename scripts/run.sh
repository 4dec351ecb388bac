#!/usr/bin/env bash
# Builds the editor and opens it on the bundled sample project. Without a
# display it runs inside a virtual one (Xvfb).
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

sample="$PF_ROOT/samples/ember/ember.def"
if [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; then
    exec "$PF_BUILD/bin/pugilforge" "$sample"
fi
echo "No display found: running under Xvfb."
exec xvfb-run -a -s "-screen 0 1280x800x24" "$PF_BUILD/bin/pugilforge" "$sample"
