#!/usr/bin/env bash
# Renders the PNG sizes of the program's icon from lumacfg.svg beside this script. The PNGs
# are kept in the repository, so building the package needs no SVG renderer; run this after
# every change of the SVG (Debian package librsvg2-bin).
set -euo pipefail
cd "$(dirname "$0")"
for size in 16 24 32 48 64 128 256; do
    rsvg-convert --width "$size" --height "$size" --output "lumacfg-$size.png" lumacfg.svg
done
