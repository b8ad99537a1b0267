#!/bin/bash
# Checks that each form's header depends on the form in the build. Otherwise a changed form would
# reach the program only with the second build. Arguments: the source folder and the build folder.
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
