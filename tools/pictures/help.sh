#!/usr/bin/env bash
# Makes the pictures of the help from those that sanovia-pictures leaves: cropped to what a page speaks of, 640 points
# wide at most, in few colours. Run it after `./run` with no display has filled build/pictures.
# Usage: tools/pictures/help.sh [FOLDER]
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
from=${1-build/pictures}

# picture SCREEN NAME CROP: one for each language
picture() {
  local language file
  for language in en ru de es zh; do
    file=$from/$1-$language.png
    [ -f "$file" ] || { echo "help.sh: there is no $file" >&2; continue; }
    convert "$file" -crop "$3" +repage -resize '640x>' png:- |
      pngquant --quality 60-95 - >"resources/help/${language/zh/zh-Hans}/$2.png"
  done
}

picture table-general table 800x498+0+0
picture panel-pressure panel 800x680+0+0
picture charts-general charts 800x650+0+150
picture calendar-from calendar 490x420+310+0
optipng -quiet -o4 -strip all resources/help/*/*.png
