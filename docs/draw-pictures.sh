#!/bin/sh
# Draws the pictures of docs/guide.md anew, from examples/. They are the same on every machine.
# Usage: docs/draw-pictures.sh [FOLDER-OF-PROGRAMS], which is build/release/bin if not given.
set -eu
cd "$(dirname "$0")/.."
bin=${1:-build/release/bin}
if [ -z "${DISPLAY:-}" ]; then
  exec xvfb-run -a docs/draw-pictures.sh "$bin"
fi

# NAME TREE OPTION...
draw() {
  name=$1 tree=$2
  shift 2
  "$bin/orvex-snapshot" "examples/$tree" "docs/images/guide-$name.png" "$@"
}

# For print; a resolution that shows well on screens.
"$bin/orvex-snapshot" examples/great-cats.nwk docs/images/paper-cats.png --whole --paper --leaf-height 16

draw whole random-3000.nwk --size 900x500
draw zoom-10 random-3000.nwk --size 900x500 --zoom 10
draw zoom-30 random-3000.nwk --size 900x500 --zoom 30
draw outlines polytomy-400.nwk --size 900x300 --zoom 2
draw lines polytomy-400.nwk --size 900x300 --zoom 2 --all
draw column great-cats.nwk --size 600x540 --all
