#!/bin/sh
# skin_commands.sh VYNKIT: the commands that look at a skin file, against what they should
# print. The pictures' own contents are the business of the painting tests.
set -eu
vynkit=$1
here=$(cd "$(dirname "$0")" && pwd)
run="$here/../../tools/wine-run"
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT

expect() { # NAME EXIT-CODE EXPECTED COMMAND...
    name=$1 code=$2 expected=$3
    shift 3
    status=0
    "$run" "$vynkit" "$@" > "$out/$name" 2> "$out/$name.err" || status=$?
    [ "$status" = "$code" ] || { echo "$name: exit code $status, not $code"; cat "$out/$name.err"; exit 1; }
    diff -u "$expected" "$out/$name"
}

expect markup 0 "$here/skin/sample.markup" markup "Z:$here/skin/sample.xml"
expect layout 0 "$here/skin/sample.layout" layout "Z:$here/skin/sample.xml" 300 200
expect broken 1 "$here/skin/broken.markup" markup "Z:$here/skin/broken.xml"
expect broken_layout 1 /dev/null layout "Z:$here/skin/broken.xml" 300 200
expect missing 1 /dev/null markup "Z:$here/skin/none.xml"
expect usage 2 /dev/null layout "Z:$here/skin/sample.xml" 300 wide

expect render 0 /dev/null render "Z:$here/skin/sample.xml" 300 200 "Z:$out/picture.png" --state label=disabled
[ "$(identify -format '%wx%h' "$out/picture.png")" = 300x200 ]
expect no_state 1 /dev/null render "Z:$here/skin/sample.xml" 300 200 "Z:$out/none.png" --state label=sleepy
[ ! -e "$out/none.png" ]
expect gallery 0 /dev/null gallery "Z:$out/gallery.png"
identify "$out/gallery.png" > /dev/null
