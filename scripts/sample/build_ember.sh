#!/usr/bin/env bash
# Remakes the sample character's art and sounds from the scripts beside this
# file, and compiles them with the program's own writers:
#   ember1.act, ember2.act, work/  (make_ember.py)
#   ember.sff                      (pugilforge-cli sff import, SFF 2.0.1.0)
#   ember.snd                      (pugilforge-cli snd build, from the
#                                   sound-compiler script work/ember-snd.txt)
# Usage: build_ember.sh [FOLDER [CLI]]; by default it rewrites samples/ember
# with build/bin/pugilforge-cli. The normal build never runs this: the
# results are committed, and tests/sample checks that they still come out
# byte for byte the same.
set -euo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=$(cd "$here/../.." && pwd)
folder=${1:-$root/samples/ember}
cli=${2:-$root/build/bin/pugilforge-cli}
# Absolute, since the sound step runs inside the folder.
cli=$(cd "$(dirname "$cli")" && pwd)/$(basename "$cli")

python3 "$here/make_ember.py" "$folder"
"$cli" sff import "$folder/work/ember-sff.pfe" "$folder/ember.sff"
if "$cli" --help | grep -q 'snd build'; then
    # The sound compiler's script names its files relative to where it runs.
    (cd "$folder" && "$cli" snd build ember.snd work/ember-snd.txt)
else
    echo "build_ember.sh: this pugilforge-cli has no 'snd build'; ember.snd was not made." >&2
fi
