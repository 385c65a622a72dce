#!/usr/bin/env bash
# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

usage() {
    cat <<'END'
Usage: scripts/gallery.sh [FOLDER]

Renders a real building and the sample scenes in every mode into FOLDER (out), with the oglview of
build/linux. Needs a display.
END
}
case ${1:-} in
-h | --help)
    usage
    exit 0
    ;;
esac

viewer=build/linux/oglview
out=${1:-out}
house=/usr/share/assimp/models/IFC/AC14-FZK-Haus.ifc
[ -x "$viewer" ] || die "$viewer is not built"
[ -f "$house" ] || die "$house is missing; run scripts/setup.sh run first"
mkdir -p "$out"

# picture NAME WHAT ARGUMENTS...
picture() {
    local name=$1 what=$2
    shift 2
    "$viewer" render "$@" -o "$out/$name.png"
    printf '%s  %s\n' "$out/$name.png" "$what"
}

picture house-drawing "house, technical drawing" "$house" --size 1600x1100
picture house-edges "house, edges" "$house" --mode edges --size 1600x1100
picture house-hidden "house, hidden edges dashed" "$house" --hidden-edges --size 1600x1100 \
    --hide 'IfcSite*' --edge-opacity 90
picture house-inside-drawing "house, inside" "$house" --view inside --size 1600x1000
picture house-inside-edges "house, inside, edges" "$house" --view inside --mode edges \
    --size 1600x1000
picture house-front "house, front elevation" "$house" --view front --size 1600x900
picture house-ground-floor "house, roof and upper floor taken off" "$house" --view outside \
    --size 1600x1100 --hide '*_Dach*' --hide '*Sparren*' --hide '*Pfette*' --hide '*First*' \
    --hide '*-OG-*' --hide '*Slab-033*' --hide '*Holz*' --hide '*Gelaender*' \
    --hide '*Laufband*' --hide '*Rudermaschine*'

picture flat-drawing "flat, technical drawing" flat --size 1600x1100
picture flat-edges "flat, edges" flat --mode edges --size 1600x1100
picture flat-inside-drawing "flat, inside" flat --view inside --size 1600x1000
picture flat-inside-edges "flat, inside, edges" flat --view inside --mode edges --size 1600x1000
picture flat-kitchen "flat, kitchen" flat --view kitchen --size 1600x1000
picture flat-plan "flat, plan" flat --view plan --size 1600x1100
