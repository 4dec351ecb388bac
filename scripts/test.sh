#!/usr/bin/env bash
# Builds everything and runs every test, headless.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

cd "$PF_BUILD"
QT_QPA_PLATFORM=offscreen ctest --output-on-failure --timeout 900
