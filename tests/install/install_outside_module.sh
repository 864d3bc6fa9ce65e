#!/usr/bin/env bash
# Installs the build tree, moves the installation, builds test modules outside of the source tree against it, those
# of the examples among them, and runs their tests with the installed bench.
# Usage: install_outside_module.sh BUILD_DIR SOURCE_DIR CXX_COMPILER BUILD_TYPE
set -euo pipefail

build=$1 source=$2 compiler=$3 build_type=$4
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
installed="$work/moved installation"
project="$work/project"

fail() { echo "failed: $*" >&2; exit 1; }

# Runs a command with its output kept in a file that is shown when the command ends otherwise than expected.
expect_exit() {
    local expected=$1 log=$2 status=0
    shift 2
    "$@" >"$log" 2>&1 || status=$?
    [[ $status -eq $expected ]] || { cat "$log" >&2; fail "exit code $status instead of $expected: $*"; }
}

expect_line() { grep -qF -- "$2" "$1" || { cat "$1" >&2; fail "the output lacks: $2"; }; }

expect_exit 0 "$work/log" cmake --install "$build" --prefix "$work/prefix"
mv "$work/prefix" "$installed"

for file in bin/vornbench lib/libvornhost.so lib/libvorntest.so lib/libtestapi.so lib/vorn/cmdtests.so \
    include/vorn/testapi/ta_host.h include/vorn/pugixml/pugixml.hpp share/doc/testapi/LICENSE \
    share/doc/testapi/pugixml/LICENSE.md; do
    [[ -f $installed/$file ]] || fail "not installed: $file"
done

# Nothing may point back to where it was built or first installed.
if grep -rIlF -e "$build" -e "$source" -e "$work/prefix" "$installed"; then
    fail "these installed files name a folder of the build"
fi
while read -r binary; do
    for folder in $(objdump -p "$binary" | awk '$1 == "RUNPATH" || $1 == "RPATH" { gsub(":", " ", $2); print $2 }'); do
        [[ $folder == '$ORIGIN'* ]] || fail "$binary looks for libraries in $folder"
    done
done < <(find "$installed/bin" "$installed/lib" -type f \( -name '*.so' -o -name vornbench \))

# Usage: build_module SOURCE_DIR BUILD_DIR
build_module() {
    expect_exit 0 "$work/log" cmake -S "$1" -B "$2" -G Ninja -DCMAKE_PREFIX_PATH="$installed" \
        -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_BUILD_TYPE="$build_type"
    expect_exit 0 "$work/log" cmake --build "$2"
}

cp -r "$here/outside_module" "$project"
build_module "$project" "$project/build"

bench="$installed/bin/vornbench"
expect_exit 0 "$work/list" "$bench" list "$project/config.xml"
for test in OutsideModule::keepsLine outside/two_lines; do
    expect_line "$work/list" "$test"
done
expect_exit 0 "$work/list" "$bench" list "$project/config.xml" outside_wrong
expect_line "$work/list" "outside_wrong/wrong_count"
expect_exit 0 "$work/run" "$bench" run "$project/config.xml" --no-color
expect_line "$work/run" "selected 2 of 3"
expect_exit 1 "$work/run" "$bench" run "$project/config.xml" outside_wrong --no-color
expect_line "$work/run" "wrong_count.xml:3"
expect_line "$work/run" "model space holds 2 entities, expected 3"

cp -r "$installed/share/doc/testapi/examples" "$work/examples"
for module in module data_module; do
    build_module "$work/examples/$module" "$work/examples/build/$module"
done
sed -i 's|module name="brackets"|module name="build/module/brackets"|; s|module name="arcs"|module name="build/data_module/arcs"|' \
    "$work/examples/tests.xml"
expect_exit 0 "$work/run" "$bench" run "$work/examples/tests.xml" --no-color
expect_line "$work/run" "Flange in C++"
expect_line "$work/run" "ArcTests"
