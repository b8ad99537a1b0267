#!/bin/bash
# Takes the pictures of the guide from the tour: plays it in a folder of its own and copies the
# steps that the pages show.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
tour=$(mktemp -d)
trap 'rm -rf "$tour"' EXIT

"$here/../../run" --tour "$tour"

# The picture of a page, and the step of the tour that it shows.
while read -r picture step; do
    cp "$tour/$step.png" "$here/pictures/en-$picture.png"
done <<'STEPS'
bodies       01-body-administration
found        05-found
question     06-question
renamed      02-renamed
moved        10-moved
reset        08-reset
delete       09-delete
calibration  14-calibration
filter       full-6-filter-custom
markers      16-single-markers
angles       18-fixed-angles
STEPS
