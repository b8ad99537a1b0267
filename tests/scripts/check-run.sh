#!/bin/bash
# Checks the command `run` in a copy of its own, with stand-ins for the build tools and the package
# manager that record their calls.
set -euo pipefail
project=$(readlink -f "$(dirname "${BASH_SOURCE[0]}")/../..")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
build=$work/copy/build/release

fail() {
    echo "FAIL: $1" >&2
    echo "calls:" >&2
    cat "$work/calls" >&2
    echo "output:" >&2
    cat "$work/output" >&2
    exit 1
}

stand_in() {
    printf '#!/bin/bash\n%s\n' "$2" >"$work/bin/$1"
    chmod +x "$work/bin/$1"
}

# Runs the copy's `run` from another folder; stores its output and its exit status.
start() {
    : >"$work/calls"
    status=0
    (cd "$work/elsewhere" && PATH="$work/bin:$PATH" WORK="$work" \
        "$work/copy/run" "$@" </dev/null) >"$work/output" 2>&1 || status=$?
}

called() { grep -q "^$1" "$work/calls"; }
said() { grep -qF -- "$1" "$work/output"; }
started_alone() { [[ $(<"$work/calls") == "workbench in $work/elsewhere with $*" ]]; }

mkdir -p "$work"/{bin,elsewhere,copy}
cp -r "$project/run" "$project/cmake" "$project/CMakePresets.json" "$work/copy/"
cat >"$work/workbench" <<'TEXT'
#!/bin/bash
echo "workbench in $PWD with $*" >>"$WORK/calls"
TEXT
chmod +x "$work/workbench"
# One package is missing until apt-get has run.
stand_in dpkg 'echo "dpkg $*" >>"$WORK/calls"
[[ $2 == ninja-build && ! -e $WORK/installed ]] || echo "Status: install ok installed"'
stand_in apt-get 'echo "apt-get $*" >>"$WORK/calls"
[[ $* == *update* ]] && touch "$WORK/updated"
[[ $* == *install* ]] || exit 0
[[ -e $WORK/updated ]] || exit 100
touch "$WORK/installed"'
stand_in sudo 'exec "$@"'
# The build tool; a file says that something is out of date.
stand_in ninja '[[ -e $WORK/outdated ]] && echo "[1/2] Building x" || echo "ninja: no work to do."'
working_cmake='echo "cmake $* in $PWD" >>"$WORK/calls"
if [[ $* == *--build* ]]; then
    mkdir -p build/release/bin && cp "$WORK/workbench" build/release/bin/workbench
    rm -f "$WORK/outdated"
else
    echo "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" >build/release/CMakeCache.txt
    touch build/release/build.ninja
fi'
stand_in cmake "$working_cmake"

start --tour pictures
[[ $status == 0 ]] || fail "the first start ends with $status"
said "Installing: ninja-build" || fail "what is installed is not said"
[[ $(grep -c Installing "$work/output") == 1 ]] || fail "more than one line about installing"
called "apt-get.*update" || fail "absent package lists were not fetched"
called "cmake --preset release .*in $work/copy" || fail "not configured in the project's folder"
called "cmake --build --preset release in $work/copy" || fail "not built"
called "workbench in $work/elsewhere with --tour pictures" || fail "not started where it was called"

start --tour pictures
[[ $status == 0 ]] || fail "the second start ends with $status"
started_alone --tour pictures \
    || fail "a second start with nothing changed does more than start the workbench"

start --bogus
started_alone --bogus || fail "the workbench did not get to judge its options"

sed -i '$aexit 1' "$build/bin/workbench"
start --demo slow-link --headless
[[ $status == 1 ]] || fail "a demonstration that fails ends with $status"

touch "$work/outdated"
start
called "cmake --build" || fail "what the build tool calls out of date was not built"
called "workbench" || fail "not started after the build"
! called "apt-get" || fail "installed packages were installed again"

touch -d '+1 minute' "$work/copy/CMakePresets.json"
start
called "cmake --preset release" || fail "changed presets were not read"
touch "$work/copy/CMakePresets.json"
touch "$build/build.ninja"

mv "$work/copy" "$work/moved" && mkdir "$work/copy" && cp -r "$work/moved/." "$work/copy/"
echo "CMAKE_HOME_DIRECTORY:INTERNAL=$work/moved" >"$build/CMakeCache.txt"
start
called "cmake --preset release --fresh" || fail "a copied tree was not configured from scratch"

# A file in the place of the folder prevents writing even for the superuser.
rm -rf "$work/copy/build" && touch "$work/copy/build"
start
[[ $status == 2 ]] || fail "where nothing can be written the exit status is $status"
said "out of date, and $build cannot be written to" || fail "what cannot be written is not said"
[[ ! -s $work/calls ]] || fail "where nothing can be written something was called"
rm "$work/copy/build"

stand_in cmake 'echo "cmake $*" >>"$WORK/calls"; exit 1'
start
[[ $status != 0 ]] || fail "a failed build counts as success"
! called "workbench" || fail "an outdated workbench was started"
echo "PASS"
