#!/bin/bash
# Makes the pictures of the guide, of the README and of the page about the workbench: plays the tour
# in a temporary folder and copies the steps that the pages show, with few colours.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
tour=$(mktemp -d)
trap 'rm -rf "$tour"' EXIT

"$here/../../cmake/install-packages.sh" pictures
"$here/../../run" --tour "$tour"

# take STEP FILE: makes the picture of a page from the picture of a step.
take() {
    /usr/bin/python3 - "$tour/$1.png" "$here/../$2.png" <<'PALETTE'
import sys
from PIL import Image
picture = Image.open(sys.argv[1]).convert("RGB")
few = picture.quantize(256, method=Image.Quantize.MEDIANCUT, dither=Image.Dither.NONE)
few.save(sys.argv[2], optimize=True)
PALETTE
}

# The picture of a page of the guide, and its steps in English and in German.
while read -r picture english german; do
    take "$english" "guide/pictures/en-$picture"
    take "$german" "guide/pictures/de-$picture"
done <<'STEPS'
bodies       01-body-administration  german-01-body-administration
found        05-found                german-03-found
question     06-question             german-04-question
renamed      02-renamed              german-02-renamed
moved        10-moved                german-07-moved
reset        08-reset                german-05-reset
delete       09-delete               german-06-delete
calibration  14-to-calibrate         german-11-to-calibrate
filter       full-6-filter-custom    german-12-filter
markers      17-single-markers       german-13-single-markers
angles       19-fixed-angles         german-14-fixed-angles
STEPS

take 05-found pictures/body-administration
take 04-searching pictures/workbench-search
take 15-calibration pictures/workbench-substitute
take 22-host pictures/workbench-host
take 23-controller pictures/workbench-controller
