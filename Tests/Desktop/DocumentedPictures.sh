# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
# shellcheck shell=bash
#
# What the scripts that take the pictures of the tutorial have in common: a picture of the window, which is compared
# with the one in the pages, or replaces it.
#
# A script sources this after Screen.sh, and sets kUpdate: --update or nothing.
kPictures=$(cd "$(dirname "$0")/../.." && pwd)/Documentation/Pictures/Tutorial
kMostBytes=30000
# Of the frame that the window manager draws.
kTitleHeight=20
kFrame=1

# shoot <name>: a picture of the window with its frame.
shoot()
{
    local theWidth theHeight
    theWidth=$(($(geometry Width) + 2 * kFrame))
    theHeight=$(($(geometry Height) + kTitleHeight + kFrame))
    import -window root -crop "${theWidth}x$theHeight+$(($(geometry X) - kFrame))+$(($(geometry Y) - kTitleHeight))" \
        +repage -strip -colors 64 -define png:exclude-chunks=date,time "png8:$kFolder/$1.png"
}

# stands_still <name>: whether a picture shows what it did before, but for the caret.
stands_still()
{
    local theFormer=$kFolder/$1-before.png
    if [ -e "$kFolder/$1.png" ]; then
        mv "$kFolder/$1.png" "$theFormer"
    fi
    shoot "$1"
    [ -e "$theFormer" ] && differs_little "$theFormer" "$kFolder/$1.png" 1000 && rm "$theFormer"
}

# changed_points <picture> <picture>: how many differ in more than a shade.
changed_points()
{
    local theChange
    theChange=$(compare -fuzz 25% -metric AE "$1" "$2" null: 2>&1)
    echo "${theChange%%.*}"
}

# differs_little <picture> <picture> <one point in so many>
differs_little()
{
    [ "$(changed_points "$1" "$2")" -le "$(identify -format "%[fx:int(w*h/$3)]" "$2")" ]
}

# is_near <number> <number> <by how much>
is_near()
{
    [ $(($1 - $2)) -le "$3" ] && [ $(($2 - $1)) -le "$3" ]
}

# looks_right <name>: letters may be of another font, and the frame of another look. But it must be nearer to the
# picture of its page than to one of another state.
looks_right()
{
    local theNew=$kFolder/$1.png theOld=$kPictures/$1.png theFitted=$kFolder/$1-fitted.png theSize theOther
    theSize=$(identify -format %wx%h "$theOld")
    convert "$theNew" -crop "$theSize+0+0" +repage -background white -extent "$theSize" "$theFitted"
    for theOther in "$kPictures"/*.png; do
        if [ "$theOther" != "$theOld" ] && [ "$(identify -format %wx%h "$theOther")" = "$theSize" ] &&
            [ "$(changed_points "$theOther" "$theFitted")" -le "$(changed_points "$theOld" "$theFitted")" ]; then
            return 1
        fi
    done
    is_near "$(identify -format %w "$theNew")" "$(identify -format %w "$theOld")" 4 &&
        is_near "$(identify -format %h "$theNew")" "$(identify -format %h "$theOld")" 16 &&
        differs_little "$theOld" "$theFitted" 8
}

# take <name>: the picture, which must be worth it.
take()
{
    until_true "$1: the window stands still" stands_still "$1"
    [ "$(identify -format %k "$kFolder/$1.png")" -ge 16 ] || give_up "$1: there is something in the picture"
    if [ "$kUpdate" = --update ]; then
        mkdir -p "$kPictures"
        cp "$kFolder/$1.png" "$kPictures/$1.png"
        return
    fi
    looks_right "$1" || give_up "$1: it looks as in the page"
    [ "$(wc -c <"$kPictures/$1.png")" -le "$kMostBytes" ] || give_up "$1: it is small"
    echo "ok: $1: it looks as in the page"
}
