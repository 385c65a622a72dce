#!/usr/bin/env bash
# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

usage() {
    cat <<'END'
Usage: scripts/gallery.sh [FOLDER]

Renders a real building and the sample scenes in every mode into FOLDER (out), with the oglview of
build/linux, and exports them for a browser into FOLDER/web. Needs a display.
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

# The house's upper floor and roof, by the names of their objects.
upper=()
for pattern in '*_Dach*' '*Sparren*' '*Pfette*' '*First*' '*OG-*' '*Slab-033*' '*Holz*' \
    '*Gelaender*' '*Laufband*' '*Rudermaschine*'; do
    upper+=(--hide "$pattern")
done
living=(--camera 11.3,0.75,1.6,5,2.7,1.45 --fov 58)

picture house-drawing "house, technical drawing" "$house" --size 1600x1100
picture house-edges "house, edges" "$house" --mode edges --size 1600x1100
picture house-hidden-edges "house, hidden edges dashed" "$house" --hidden-edges --size 1600x1100 \
    --hide 'IfcSite*'
picture house-inside-drawing "house, largest space" "$house" --view inside --size 1600x1000
picture house-living-drawing "house, living room" "$house" "${living[@]}" --size 1600x1000
picture house-living-edges "house, living room, edges" "$house" "${living[@]}" --mode edges \
    --size 1600x1000
picture house-front "house, front elevation" "$house" --view front --size 1600x900
picture house-plan "house, plan of the ground floor" "$house" --view plan --size 1600x1300 \
    "${upper[@]}" --hide 'IfcSite*'
picture house-ground-floor "house, ground floor from above" "$house" --size 1600x1100 \
    "${upper[@]}" --hide 'IfcSite*' --camera -4,-9,15,6,4.6,0 --fov 34
picture house-print "house, print of 6000 x 4000 pixels" "$house" --size 6000x4000 --line-weight 24

picture flat-drawing "flat, technical drawing" flat --size 1600x1100
picture flat-edges "flat, edges" flat --mode edges --size 1600x1100
picture flat-inside-drawing "flat, inside, with its textures" flat --view inside --size 1600x1000
picture flat-inside-edges "flat, inside, edges" flat --view inside --mode edges --size 1600x1000
picture flat-kitchen "flat, kitchen" flat --view kitchen --size 1600x1000
picture flat-plan "flat, plan" flat --view plan --size 1600x1100

bright=(--mode shadow)
picture house-shadow "house, lit by the sun" "$house" "${bright[@]}" --size 1600x1100
picture house-evening "house, low sun from the other side" "$house" "${bright[@]}" --sun 340,14 \
    --size 1600x1100
picture house-living-shadow "house, living room, sun through the windows" "$house" "${living[@]}" \
    "${bright[@]}" --sun 250,35 --size 1600x1000
picture house-ground-floor-shadow "house, ground floor from above, lit by the sun" "$house" \
    "${bright[@]}" --size 1600x1100 "${upper[@]}" --hide 'IfcSite*' \
    --camera -4,-9,15,6,4.6,0 --fov 34
picture flat-shadow "flat, lit by the sun" flat "${bright[@]}" --size 1600x1100
# Without the wide lawn the shadow map is finer.
picture flat-inside-shadow "flat, inside, sun through the windows" flat --view inside \
    --hide lawn "${bright[@]}" --size 1600x1000
picture flat-grey-shadow "flat, grey surfaces" flat "${bright[@]}" --surfaces grey --size 1600x1100
"$viewer" render "$house" -o "$out/house-file.bmp" --mode file --size 1600x1100
printf '%s  house, as the library draws it into files\n' "$out/house-file.bmp"

# The house's site, and north to +y.
site=(--lat 52.523 --lon 13.407 --date 2025-06-21)
photo=(--mode photo --size 1600x1000)
picture house-photo-noon "house, photo, midday of 21 June" "$house" "${photo[@]}" "${site[@]}" \
    --time 11:00
picture house-photo-evening "house, photo, evening of 21 June" "$house" "${photo[@]}" "${site[@]}" \
    --time 17:30 --fxaa
picture flat-photo-street "flat, photo from the street" flat --view street "${photo[@]}" --sun 255,32
picture flat-photo-living "flat, photo, sun and sky through the windows" flat --view living \
    "${photo[@]}" --sun 255,30
picture flat-photo-inside "flat, photo, low sun and lamps" flat --view inside "${photo[@]}" \
    --sun 300,12
picture flat-photo-bath "flat, photo, tiles, glass and a mirror" flat --view bath "${photo[@]}"
picture flat-photo-sketch "flat, photo with sketched edges" flat --view inside "${photo[@]}" \
    --sketch 70
picture flat-photo-mono "flat, photo in one colour, sketched" flat --view bedroom "${photo[@]}" \
    --mono --sketch 60 --surfaces white
picture flat-rays-preview "flat, what rays see of it" flat --hide lawn --mode raytrace \
    --size 1600x1000
say "the house through a day of March"
"$viewer" sunstudy "$house" -o "$out/house-march.png" --lat 52.523 --lon 13.407 --date 2025-03-20 \
    --from 06:30 --to 16:30 --step 150 --size 960x600

spider=/usr/share/assimp/models/OBJ/spider.obj
picture model-textures "a model file with its pictures as textures" "$spider" --size 1200x900

for scene in "house $house" "flat flat"; do
    "$viewer" export "${scene#* }" "$out/web/Sessions/${scene%% *}/scene.js" --size 1600x1000
done
printf '%s  the house and the flat in a browser: %s serve %s, then open the address it prints\n' \
    "$out/web/index.html" "$viewer" "$out/web"
