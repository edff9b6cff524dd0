#!/bin/sh
# piped_output.sh: who reads what ./vynkit writes is done when the program is, though the
# call brought up Wine's background programs and another call keeps them.
set -eu
VYN_ROOT=$(cd "$(dirname "$0")/../.." && pwd)
there=$(mktemp -d) # a checkout of its own, so that its Wine is not up yet

. "$VYN_ROOT/tools/wine-env"
make_wine_prefix
made=$WINEPREFIX
export WINEPREFIX="$there/build/${made##*/}"
mkdir -p "$WINEPREFIX"
ln -s "$VYN_ROOT/tools" "$VYN_ROOT/vynkit" "$there"
ln -s "$VYN_ROOT/build/win32" "$there/build"
ln -s "$made/drive_c" "$WINEPREFIX"
cp -a "$made"/*.reg "$made/.done" "$made/.update-timestamp" "$made/dosdevices" "$WINEPREFIX"
trap 'wineserver -k; rm -rf "$there"' EXIT
{
    "$there/vynkit" gallery "$there/gallery.png" 2>&1
    "$there/vynkit" serve "$there" > "$there/keeper" 2>&1 < /dev/null &
} | timeout 30 cat > "$there/output" || { echo "the pipe stays open"; exit 1; }
identify "$there/gallery.png" > /dev/null
until grep -q listening "$there/keeper"; do sleep 0.1; done
