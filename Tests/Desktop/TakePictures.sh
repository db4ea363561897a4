#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# TakePictures.sh <Gallery> <Thermostat> <folder>: shows the applications on an X server of its own and takes
# pictures of them for somebody to look at: normal, with the focus, disabled, with open menus; on a light and on
# a dark desktop, and on a screen with twice as many pixels. What can be checked without eyes, is.
set -u
kGallery=$1
kThermostat=$2
kFolder=$3
kScreen=1600x960
# shellcheck source=Tests/Desktop/Screen.sh
. "$(dirname "$0")/Screen.sh"

kContentHeight=400
# Of the frame that the window manager draws.
kTitleHeight=24
# The left edges of the frames of the fields, in the content.
kFirstField='83 28'
kSecondField='313 28'
gScale=1
gName=

# place <x> <y>: on the screen, of a place in the content of the gallery.
place()
{
    local theMenuHeight=$(($(geometry Height) - kContentHeight * gScale))
    echo "$(($(geometry X) + $1 * gScale)) $(($(geometry Y) + theMenuHeight + $2 * gScale))"
}

# click_at <x> <y>
click_at()
{
    # The two numbers are two words.
    # shellcheck disable=SC2046
    xdotool mousemove $(place "$1" "$2") click 1
}

# shoot <name>: a picture of the window with its frame.
shoot()
{
    local theWidth theHeight
    theWidth=$(geometry Width)
    theHeight=$(($(geometry Height) + kTitleHeight))
    import -window root -crop "${theWidth}x$theHeight+$(geometry X)+$(($(geometry Y) - kTitleHeight))" \
        +repage "$kFolder/$gName-$1.png"
}

# colour <x> <y>: of a point in the content of the gallery.
colour()
{
    local thePlace
    thePlace=$(place "$1" "$2")
    import -window root -crop "1x1+${thePlace/ /+}" txt:- | tail -n 1
}

# has_changed <old colour> <x> <y>
has_changed()
{
    [ "$(colour "$2" "$3")" != "$1" ]
}

# has_come_back <old colour> <x> <y>
has_come_back()
{
    [ "$(colour "$2" "$3")" = "$1" ]
}

# brightness <name>: of a picture, 0 to 100.
brightness()
{
    convert "$kFolder/$gName-$1.png" -colorspace gray -format '%[fx:int(100*mean)]' info:
}

make_light()
{
    rm -f "$HOME/kdeglobals"
    unset XDG_CURRENT_DESKTOP KDE_SESSION_VERSION
}

# is_still <picture> <picture>: whether at most one point in twenty differs. What always moves, the caret in the first
# field and the stripes of the bar that shows no amount, is less than that.
is_still()
{
    local theChange
    theChange=$(compare -metric AE "$1" "$2" null: 2>&1)
    [ "$theChange" -le "$(identify -format '%[fx:int(w*h/20)]' "$2")" ]
}

# is_drawn: whether the window is as bright as it should be, shows more than its ground, and stands still since this
# was asked before: what is compared with later must not be half drawn. Also takes the picture of it.
is_drawn()
{
    local theBrightness thePicture=$kFolder/$gName-normal.png theFormer=$kFolder/$gName-before.png
    if [ ! -e "$thePicture" ]; then
        shoot normal
        return 1
    fi
    mv "$thePicture" "$theFormer"
    shoot normal
    if ! is_still "$theFormer" "$thePicture" || [ "$(identify -format '%k' "$thePicture")" -lt 16 ]; then
        return 1
    fi
    rm "$theFormer"
    theBrightness=$(brightness normal)
    case $gName in
    *dark) [ "$theBrightness" -lt 40 ] && [ "$theBrightness" -gt 3 ] ;;
    *) [ "$theBrightness" -gt 60 ] ;;
    esac
}

show_focus()
{
    local theFrame
    # The two numbers are two words.
    # shellcheck disable=SC2086
    {
        # The first control has the focus from the start.
        theFrame=$(colour $kSecondField)
        click_at 150 28
        xdotool key ctrl+a
        until_true "$gName: the field has the focus" has_changed "$theFrame" $kFirstField
        shoot focused
        xdotool key Tab
        until_true "$gName: Tab gives it to the next" has_changed "$theFrame" $kSecondField
        until_true "$gName: and takes it from the first" has_come_back "$theFrame" $kFirstField
        shoot next-focused
        xdotool key Tab
        until_true "$gName: Tab takes it from the second" has_come_back "$theFrame" $kSecondField
        shoot last-focused
    }
}

# The colour of a check box is that of the text around it, which grows pale.
show_disabled()
{
    local theButton
    theButton=$(colour 405 301)
    click_at 28 300
    until_true "$gName: everything is disabled" has_changed "$theButton" 405 301
    shoot disabled
    click_at 28 300
    until_true "$gName: and enabled again" has_come_back "$theButton" 405 301
}

show_menus()
{
    local theContent theInner
    theContent=$(colour 20 4)
    theInner=$(colour 300 115)
    click_at 20 -10
    until_true "$gName: the menu is open" has_changed "$theContent" 20 4
    shoot menu
    # Over the disabled items and the line to the one with a submenu.
    xdotool key Down Down Right
    until_true "$gName: the submenu is open" has_changed "$theInner" 300 115
    shoot submenu
    xdotool key Escape Escape Escape
    until_true "$gName: the menu is closed" has_come_back "$theContent" 20 4
}

show_gallery()
{
    start_program "$kGallery"
    open_window '^Gallery$'
    # Out of the way: what is under the pointer is drawn in other colours.
    xdotool mousemove 5 5
    until_true "$gName: the window is drawn" is_drawn
    show_focus
    show_disabled
    show_menus
    close_window
}

show_thermostat()
{
    start_program "$kThermostat"
    open_window 'thermostat'
    until_true "$gName: the window is drawn" is_drawn
    close_window
}

start_server
gName=gallery-light
show_gallery
gName=thermostat-light
show_thermostat
make_dark
gName=gallery-dark
show_gallery
gName=thermostat-dark
show_thermostat
make_light
export QT_SCALE_FACTOR=2
gScale=2
gName=gallery-large
show_gallery
