#!/bin/bash
# Checks that the build tool knows the header of each form as the product of the form: else a
# changed form reaches the program only with the second build. Takes the source and build folders.
set -euo pipefail
source_dir="$1"
cd "$2"

status=0
for form in "$source_dir"/forms/*.ui; do
    header="ui_$(basename "$form" .ui).h"
    if ! grep -q "/$header\$" <<<"$(ninja -t query "$form")"; then
        echo "$header is not built from $form" >&2
        status=1
    fi
done
exit "$status"
