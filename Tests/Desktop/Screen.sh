# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
# shellcheck shell=bash
#
# What the scripts that use applications on a screen have in common: an X server of their own with a window
# manager, a program with its window, and pictures of it. Nothing waits for a fixed time: everything is asked
# for again and again until it is there.
#
# A script sets kFolder, where its pictures and logs go, and kScreen, where the screen is not of the usual size,
# and sources this.
kTrace=$kFolder/trace.txt
kServerLog=$kFolder/server.txt
# Tenths of a second that the screen is given for an answer.
kPatience=600
gServer=
gManager=
gProgram=
gWindow=

end()
{
    [ -n "$gProgram" ] && kill "$gProgram" 2>/dev/null
    [ -n "$gManager" ] && kill "$gManager" 2>/dev/null
    [ -n "$gServer" ] && kill "$gServer" 2>/dev/null
    wait 2>/dev/null
}
trap end EXIT

give_up()
{
    echo "FAILED: $1"
    picture failed
    [ -f "$kTrace" ] && cat "$kTrace"
    [ -f "$kServerLog" ] && cat "$kServerLog"
    exit 1
}

# until_true <what> <command>...: asks again and again.
until_true()
{
    local theWhat=$1 theCount
    shift
    for ((theCount = 0; theCount < kPatience; ++theCount)); do
        if "$@" >/dev/null 2>&1; then
            echo "ok: $theWhat"
            return
        fi
        sleep 0.1
    done
    give_up "$theWhat"
}

# picture <name>: of the whole screen.
picture()
{
    if command -v import >/dev/null; then
        import -window root "$kFolder/$1.png"
    fi
}

# Without -noreset, the server begins anew when a client that asked it something leaves as its only one: the window
# manager that came meanwhile would be thrown out.
start_server()
{
    rm -rf "${kFolder:?}/home" "${kFolder:?}/display"
    mkdir -p "$kFolder/home"
    Xvfb -displayfd 3 -screen 0 "${kScreen:-1024x768}x24" -nolisten tcp -noreset 3>"$kFolder/display" >"$kServerLog" 2>&1 &
    gServer=$!
    until_true "the screen is there" test -s "$kFolder/display"
    DISPLAY=:$(cat "$kFolder/display")
    export DISPLAY
    start_manager
    until_true "windows are managed" has_manager
    export HOME=$kFolder/home XDG_CONFIG_HOME=$kFolder/home XDG_RUNTIME_DIR=$kFolder/home
    chmod 700 "$HOME"
    unset WAYLAND_DISPLAY QT_QPA_PLATFORM QT_QPA_PLATFORMTHEME QT_SCALE_FACTOR XDG_CURRENT_DESKTOP
    unset LM_PRESENTER LM_SCREENSHOT LM_PREFERENCES XAUTHORITY
}

start_manager()
{
    HOME=$kFolder/home openbox >>"$kServerLog" 2>&1 &
    gManager=$!
}

has_manager()
{
    kill -0 "$gManager" || start_manager
    xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id'
}

# The colours of a dark desktop, as one of the common desktops stores them.
make_dark()
{
    cat >"$HOME/kdeglobals" <<'COLOURS'
[Colors:Window]
BackgroundNormal=42,46,50
ForegroundNormal=252,252,252
[Colors:View]
BackgroundNormal=27,30,32
BackgroundAlternate=35,38,41
ForegroundNormal=252,252,252
ForegroundInactive=161,169,177
[Colors:Button]
BackgroundNormal=49,54,59
ForegroundNormal=252,252,252
[Colors:Selection]
BackgroundNormal=61,174,233
ForegroundNormal=252,252,252
[Colors:Tooltip]
BackgroundNormal=49,54,59
ForegroundNormal=252,252,252
COLOURS
    export XDG_CURRENT_DESKTOP=KDE KDE_SESSION_VERSION=5
}

# start_program <program> [<argument>...]
start_program()
{
    QT_STYLE_OVERRIDE=Fusion "$@" >"$kTrace" 2>&1 &
    gProgram=$!
}

# open_window <part of its title>
open_window()
{
    until_true "the window opens" find_window "$1"
    until_true "the window is active" is_active
}

find_window()
{
    gWindow=$(xdotool search --onlyvisible --name "$1" | tail -n 1)
    [ -n "$gWindow" ]
}

# geometry <X | Y | Width | Height>: of the window, the menu bar included, the frame not.
geometry()
{
    xwininfo -id "$gWindow" | sed -n -e "s/^ *Absolute upper-left $1: *//p" -e "s/^ *$1: *//p"
}

is_active()
{
    [ "$(xdotool getactivewindow)" = "$gWindow" ]
}

has_ended()
{
    ! kill -0 "$gProgram"
}

# close_window: as the person does it. The program must end well.
close_window()
{
    xdotool key alt+F4
    until_true "the program ends with its window" has_ended
    wait "$gProgram"
    local theStatus=$?
    gProgram=
    [ "$theStatus" -eq 0 ] || give_up "the program ended with the status $theStatus"
}
