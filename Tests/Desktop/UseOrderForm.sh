#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# UseOrderForm.sh <OrderForm> <libLmInspection> <folder> [--update]: fills in the form on an X server of its own with
# mouse and keyboard, leaves its fields in every way, and looks up in its journal what became of that. Takes the
# pictures of it that stand in the tutorial, and fails when one looks otherwise; with --update it replaces these.
set -u
kProgram=$1
kLibrary=$2
kFolder=$3
kUpdate=${4:-}
# shellcheck source=Tests/Desktop/Screen.sh
. "$(dirname "$0")/Screen.sh"
# shellcheck source=Tests/Desktop/DocumentedPictures.sh
. "$(dirname "$0")/DocumentedPictures.sh"
kJournal=$kFolder/journal
kContentHeight=344
# The rows of the window.
kName=1 kQuantity=2 kDiscount=5 kDelivery=6 kOrder=10
gMark=0

# begin_action: what the journal says from here on belongs to it.
begin_action()
{
    gMark=$(wc -l <"$kJournal")
}

# became <object> <key> <value>: whether the action has led to that. The value is a regular expression.
became()
{
    tail -n "+$((gMark + 1))" "$kJournal" | grep -E '"what":"(changed|told)"' |
        grep -F "\"name\":\"$1\"},\"key\":\"$2\"," | grep -qE "\"is\":\{\"kind\":\"[a-z0-9]+\",\"value\":\"?$3\"?\}"
}

# click_row <row> [<x>]: into what stands there.
click_row()
{
    local theMenuHeight=$(($(geometry Height) - kContentHeight))
    xdotool mousemove --window "$gWindow" "${2:-180}" $((32 * $1 - 5 + theMenuHeight)) click 1
}

# type_over <row> <text>
type_over()
{
    click_row "$1"
    xdotool key ctrl+a type "$2"
}

open_form()
{
    rm -f "$kJournal"
    # The sanitizers' own library wants to be the first, and is there all the same.
    start_program env LD_PRELOAD="$kLibrary" LM_JOURNAL="$kJournal" LC_ALL=en_US.UTF-8 \
        ASAN_OPTIONS="${ASAN_OPTIONS:+$ASAN_OPTIONS:}verify_asan_link_order=0" "$kProgram"
    open_window '^Order form$'
}

find_price()
{
    begin_action
    xdotool type Desk
    xdotool key Tab
    until_true "the first field had the focus, and Tab ends the name" became order name Desk
    until_true "the price is looked up" became order status 'Looking up the price …'
    until_true "and found" became order price 34900
    until_true "so the order could be placed" became form complete true
}

leave_by_mouse()
{
    begin_action
    type_over "$kQuantity" 12
    click_row "$kDelivery"
    until_true "a click into another field ends the quantity" became order quantity 12
    until_true "and the total follows" became order total 498372
    begin_action
    type_over "$kDelivery" 'Jan 7, 2036'
    click_row "$kDiscount"
    until_true "another one ends the day" became order delivery '[0-9]+'
}

refuse()
{
    begin_action
    type_over "$kDiscount" '7.5%%'
    until_true "what is wrong with the discount is told" became discount problem 'This is not a number[.]'
    until_true "and the order cannot be placed" became form complete false
    click_row "$kQuantity"
    xdotool mousemove 5 5
    take 11-OrderForm-refused
    begin_action
    click_row "$kDiscount"
    xdotool key Escape
    until_true "Escape gives back what was there" became discount valid true
    until_true "and the order could be placed again" became form complete true
    begin_action
    type_over "$kDiscount" 7.5
    until_true "the total follows each key" became order total 460994
    xdotool key Tab mousemove 5 5
    take 11-OrderForm
}

leave_by_menu_key()
{
    begin_action
    type_over "$kQuantity" 3
    xdotool key ctrl+o
    until_true "what was typed before the menu key is ordered" became order status 'Ordered: 3 × Desk'
    until_true "and the next order begins" became order name ''
}

leave_by_button()
{
    begin_action
    type_over "$kName" Lamp
    xdotool key Tab
    until_true "the price of a lamp is found" became order price 4725
    begin_action
    type_over "$kQuantity" 2
    click_row "$kOrder" 460
    until_true "what was typed before the button is ordered" became order status 'Ordered: 2 × Lamp'
}

leave_by_closing()
{
    begin_action
    type_over "$kName" Chair
    close_window
    until_true "what was typed before the window closed is taken" became order name Chair
}

mkdir -p "$kFolder"
rm -f "$kFolder"/*.png
start_server
open_form
find_price
leave_by_mouse
refuse
leave_by_menu_key
leave_by_button
leave_by_closing
