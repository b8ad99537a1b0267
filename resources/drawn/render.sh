#!/bin/bash
# Renders every drawing of this folder into the PNG of the same name one folder up. The size is the
# drawing's own. Needs the Debian packages librsvg2-bin and fonts-dejavu-core.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")"

for drawing in *.svg; do
    rsvg-convert --format=png --output="../${drawing%.svg}.png" "$drawing"
done
