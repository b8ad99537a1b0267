#!/bin/bash
# Checks the command `run` in a copy of its own, with stand-ins for cmake and the package manager
# that write down how they were called.
set -euo pipefail
project=$(readlink -f "$(dirname "${BASH_SOURCE[0]}")/../..")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

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

# Runs the copy's `run` from another folder; leaves its output and its exit status.
start() {
    : >"$work/calls"
    status=0
    (cd "$work/elsewhere" && env -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM -u DISPLAY \
        ${display:+DISPLAY=$display} PATH="$work/bin:$PATH" WORK="$work" \
        "$work/copy/run" "$@" </dev/null) >"$work/output" 2>&1 || status=$?
}

called() { grep -q "^$1" "$work/calls"; }
said() { grep -qF -- "$1" "$work/output"; }

mkdir -p "$work"/{bin,elsewhere,copy/SourceFiles,copy/build/release/bin}
cp -r "$project/run" "$project/cmake" "$work/copy/"
echo 'int x;' >"$work/copy/SourceFiles/x.cpp"
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
stand_in cmake 'echo "cmake $* in $PWD" >>"$WORK/calls"
[[ $* == *--build* ]] && cp "$WORK/workbench" build/release/bin/workbench
exit 0'

display=
start
[[ $status == 2 ]] || fail "without a display the exit status is $status"
said "--tour" && said "--headless" && said "no display" || fail "the offscreen ways are not named"
[[ ! -s $work/calls ]] || fail "without a display something was built or started"

start --tour pictures
[[ $status == 0 ]] || fail "the first start ends with $status"
said "Installing: ninja-build" || fail "what is installed is not said"
[[ $(grep -c Installing "$work/output") == 1 ]] || fail "more than one line about installing"
called "apt-get.*update" || fail "absent package lists were not fetched"
called "cmake --preset release in $work/copy" || fail "not configured in the project's folder"
called "cmake --build --preset release in $work/copy" || fail "not built"
called "workbench in $work/elsewhere with --tour pictures" || fail "not started where it was called"

start --tour pictures
[[ $status == 0 ]] || fail "the second start ends with $status"
[[ $(<"$work/calls") == "workbench in $work/elsewhere with --tour pictures" ]] \
    || fail "a second start with nothing changed does more than start the workbench"

for demo in "$project"/scenarios/demos/*.script; do
    name=$(basename "$demo" .script)
    start --demo "$name" --headless
    [[ $status == 0 ]] || fail "the demonstration $name without a display ends with $status"
    called "workbench in $work/elsewhere with --demo $name --headless" \
        || fail "the demonstration $name was not handed on"
done
start --script some.script
[[ $status == 0 ]] || fail "a script without a display ends with $status"
called "workbench in $work/elsewhere with --script some.script" \
    || fail "the script was not handed on"

cp "$work/workbench" "$work/copy/build/release/bin/workbench"
echo 'exit 1' >>"$work/copy/build/release/bin/workbench"
start --demo slow-link --headless
[[ $status == 1 ]] || fail "a demonstration that fails ends with $status"

touch -d '+1 minute' "$work/copy/SourceFiles/x.cpp"
display=:7
start
called "cmake --build" || fail "a changed source was not built"
called "workbench" || fail "not started with a display"
! called "apt-get" || fail "installed packages were installed again"

touch -d '-1 minute' "$work/copy/SourceFiles/x.cpp"
stand_in cmake 'echo "cmake $*" >>"$WORK/calls"; exit 1'
touch -d '+1 minute' "$work/copy/SourceFiles/x.cpp"
start
[[ $status != 0 ]] || fail "a failed build counts as success"
! called "workbench" || fail "an outdated workbench was started"
echo "PASS"
