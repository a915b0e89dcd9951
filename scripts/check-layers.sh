#!/usr/bin/env bash
# Checks that every include of src/ points down the layer list of the design (a folder may
# include itself and the folders below it, never one above it or sideways into a window).
set -euo pipefail
cd "$(dirname "$0")/.."

# The folders each layer may include, besides its own.
allowed() {
    case $1 in
        app/*) echo "app ui config racks integration platform base resources" ;;
        ui/*/qt) echo "ui" ;;
        ui/*) echo "config racks integration platform base resources" ;;
        config) echo "racks integration platform base resources" ;;
        racks) echo "platform base" ;;
        integration) echo "platform base resources" ;;
        platform | platform/*) echo "base" ;;
        resources) echo "base" ;;
        base) echo "" ;;
        *) echo "" ;;
    esac
}

status=0
while IFS= read -r file; do
    layer=$(dirname "${file#src/}")
    own=${layer%%/*}
    [[ $layer == ui/* ]] && own=$layer
    [[ $layer == ui/*/qt ]] && own=${layer%/qt}
    permitted=" $own $(allowed "$layer") "
    while IFS= read -r included; do
        target=${included%/*}
        top=${target%%/*}
        if [[ $target == ui/dialog ]]; then
            # What every dialog model shares with its view.
            [[ $layer == ui/* || $layer == app/* ]] && continue
        elif [[ $target == ui/dialog/qt ]]; then
            # What every view shares: the binding, the text conversion, the font.
            [[ $layer == ui/*/qt || $layer == app/* ]] && continue
        elif [[ $target == ui/* ]]; then
            # A dialog area is its own layer: only its own views and models reach it.
            [[ "$layer" == "$target" || "$layer" == "$target/qt" || $layer == app/* ]] && continue
        elif [[ $permitted == *" $top "* ]]; then
            continue
        fi
        echo "$file includes $included (layer $layer may not include $target)"
        status=1
    done < <(grep -ho '#include "[^"]*/[^"]*"' "$file" | sed 's/#include "\(.*\)"/\1/')
done < <(find src -name '*.h' -o -name '*.cpp' | sort)
exit $status
