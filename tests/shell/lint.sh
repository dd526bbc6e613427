#!/bin/sh
# Tests vemo-boardspec-lint on changed copies of the examples. usage: lint.sh TOOL SOURCE_DIR. Exits
# with status 77 where a program is missing that it needs.
# shellcheck disable=SC2016 # what must not be expanded

set -eu
lint=$2/programs/vemo-boardspec-lint
for program in awk xmllint; do
    command -v $program >/dev/null || { echo "skipped: $program is not installed" && exit 77; }
done
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp -R "$2/examples/." "$2/schema" "$work"
export VEMO_BOARDSPEC="$1" VEMO_BOARDSPEC_SCHEMA_DIR="$work/schema" VEMOSDKROOT=sdk
cd "$work"
mkdir bin
for program in awk dirname readlink tr xmllint; do
    ln -s "$(command -v "$program")" bin
done
failed=0

# expect STATUS TEXT ARGUMENT...: the exit status, and a part of what is printed.
expect() {
    status=$1 text=$2 actual=0
    shift 2
    output=$(PATH=$path "$lint" "$@" 2>&1) || actual=$?
    case $actual:$output in
        "$status:"*"$text"*) ;;
        *) failed=1 && printf 'lint %s: status %s for %s, or no "%s" in:\n%s\n\n' \
            "$*" "$actual" "$status" "$text" "$output" ;;
    esac
}

# change PACKAGE FILE SED_SCRIPT: a copy of the teasel package with one file changed.
change() { cp -R -- teasel "$1" && sed "$3" "teasel/$2" >"$1/$2"; }

odd='-a $(touch ran) "`touch ran`' # a package of this name, and a model
change many board_spec.xml 's/ num="46200"//; s/<host>/<host x="">/'
change abort board_spec.xml '/<synthesize/d'
change device pb3180.xml 's/<resources>/<resource>/'
change target peltrab.xml 's/"peltrab"/"osmind"/'
change lost board_spec.xml 's/pb3180/pb3181/'
change doctype board_spec.xml 's/^<board/<!DOCTYPE board SYSTEM "x">&/'
change include board_spec.xml 's|<host>|&<x:i xmlns:x="http://www.w3.org/2001/XInclude"/>|'
change "$odd" board_spec.xml 's/pb3180.xml/$(touch ran) `touch ran`/; s/ num="46200"//'
mv -- "$odd/pb3180.xml" "$odd"/'$(touch ran) `touch ran`'
change kit board_spec.xml 's/pb3180/oc1800/; s/ num="46200"//'

path=bin
expect 0 'teasel/board_spec.xml: vemo-boardspec loads it
vemo-boardspec-lint: files: 3, findings: 0, not checked: 0' teasel/board_spec.xml
expect 1 'many/board_spec.xml:8: ' many/board_spec.xml
expect 1 'many/board_spec.xml:58: ' many/board_spec.xml
expect 1 "Expected attribute 'num' on element 'alms'." many/board_spec.xml
expect 1 'vemo-boardspec aborts (status 134)' abort/board_spec.xml
expect 1 'device/pb3180.xml:9: Opening and ending tag mismatch' device/board_spec.xml
expect 1 'target/peltrab.xml:2: ' target/board_spec.xml
expect 1 'files: 6, findings: 2, not' -- target/board_spec.xml teasel/board_spec.xml \
    target/peltrab.xml
expect 1 "cannot read the device model 'pb3181.xml'" lost/board_spec.xml
expect 1 'a document type' doctype/board_spec.xml
expect 1 'files: 3,' -- "$odd/board_spec.xml"
expect 1 'files: 3,' kit/board_spec.xml
expect 2 'findings: 2, not checked: 1' absent target/board_spec.xml
sed 's/318000/x/' teasel/pb3180.xml >pb3180.xml
expect 1 "
pb3180.xml:5: " many/board_spec.xml
expect 2 'no FILE given' --
VEMO_BOARDSPEC=absent expect 2 'cannot find absent' teasel/board_spec.xml
VEMO_BOARDSPEC_SCHEMA_DIR=absent expect 2 'the schemas in absent' teasel/board_spec.xml
rm bin/xmllint
expect 2 'cannot find xmllint' teasel/board_spec.xml

path=$PATH # jing, where there is one, words the findings, but is not let near an inclusion
! command -v jing >/dev/null || expect 1 ':8: element "alms" missing' many/board_spec.xml
expect 1 'Expecting element kernel_config, got i' include/board_spec.xml

[ ! -e ran ] || failed=1
exit "$failed"
