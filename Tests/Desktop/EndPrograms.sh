#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# EndPrograms.sh <Thermostat> <Radio> <folder>: ends applications with real windows in every way but their own menus:
# by the signals that end a session, and by closing the last window. What was set before must be in the preferences.
set -u
# With job control, processes in the background do not ignore SIGINT.
set -m
kThermostat=$1
kRadio=$2
kFolder=$3
# shellcheck source=Tests/Desktop/Screen.sh
. "$(dirname "$0")/Screen.sh"
gCase=
gPreferences=

# remembers <key> <value>
remembers()
{
    tr -d '\n\t ' <"$gPreferences" 2>/dev/null | grep -q "<key>$1</key>$2"
}

traced()
{
    grep -q "changed  \\[LmKeyValueBinding .*\\]\\.$1\$" "$kTrace"
}

# open_thermostat: with a target that is set and not yet in the preferences.
open_thermostat()
{
    gPreferences=$HOME/org.lmbindings.Thermostat.plist
    rm -f "$gPreferences"
    start_program "$kThermostat" --trace
    open_window 'thermostat'
    # The field, the check box, the slider.
    xdotool key Tab Tab Right
    until_true "$gCase: the target is set" traced target
    [ ! -e "$gPreferences" ] || give_up "$gCase: the preferences are written already"
}

# send <signal>
send()
{
    kill -s "$1" "$gProgram" || give_up "$gCase: the program is there to be ended"
}

# send_to_main_thread <signal>...: all at once, whatever else the machine does. Sent to the process, the last may go to
# another thread, and come there when the first has ended the program.
send_to_main_thread()
{
    kill -s STOP "$gProgram"
    python3 - "$gProgram" "$@" <<'PYTHON' || give_up "$gCase: the program is there to be ended"
import ctypes, signal, sys

process = int(sys.argv[1])
send = ctypes.CDLL(None).tgkill
sys.exit(any([send(process, process, signal.Signals["SIG" + name]) for name in sys.argv[2:]]))
PYTHON
    kill -s CONT "$gProgram"
}

# expect_end <lowest status> <highest status>
expect_end()
{
    local theStatus
    until_true "$gCase: the program ends" has_ended
    wait "$gProgram" 2>/dev/null
    theStatus=$?
    gProgram=
    if [ "$theStatus" -lt "$1" ] || [ "$theStatus" -gt "$2" ]; then
        give_up "$gCase: the status is $theStatus"
    fi
}

expect_quit()
{
    expect_end 0 0
    until_true "$gCase: the target is remembered" remembers target '<integer>22</integer>'
}

end_by_signals()
{
    local theSignal
    for theSignal in TERM INT HUP; do
        gCase="SIG$theSignal"
        open_thermostat
        send "$theSignal"
        expect_quit
    done
}

# A loop of Qt's own, such as an open menu might have, would not hear of it.
end_with_open_menu()
{
    gCase="SIGTERM while a menu is open"
    open_thermostat
    xdotool key alt+t
    until_true "$gCase: the menu opens" has_two_windows
    send TERM
    expect_quit
}

# has_two_windows: the application's and its menu's.
has_two_windows()
{
    [ "$(xdotool search --onlyvisible --pid "$gProgram" 2>/dev/null | wc -l)" -eq 2 ]
}

end_by_two_signals()
{
    gCase="Two signals"
    open_thermostat
    send_to_main_thread TERM INT
    # As if by one of the two, which is 128 and its number; nothing is written any more.
    expect_end 130 143
    [ ! -e "$gPreferences" ] || give_up "$gCase: the preferences were written"
}

# hide_window: that does not end the application, which did not ask for it. Its menus are all that is left.
hide_window()
{
    open_thermostat
    # From below: Quit, Window Shown.
    xdotool key alt+t Up Up Return
    open_window '^Thermostat$'
}

end_without_window()
{
    gCase="SIGTERM without a window"
    hide_window
    send TERM
    expect_quit
    until_true "$gCase: hidden is remembered" remembers shown '<false/>'
    gCase="The menus are closed"
    hide_window
    xdotool key alt+F4
    expect_quit
}

# Both applications end their loops in the handler of their window: the thermostat in that of the close box, the
# radio in that of the window that is gone.
end_by_closing()
{
    gCase="The last window is closed"
    open_thermostat
    close_window
    until_true "$gCase: the target is remembered" remembers target '<integer>22</integer>'
    gPreferences=$HOME/org.lmbindings.Radio.plist
    start_program "$kRadio"
    open_window 'radio'
    # The whole name is selected, so that typing replaces it.
    xdotool type News
    xdotool key Tab
    until_true "$gCase: the station is set" find_window 'News radio'
    close_window
    until_true "$gCase: the station is remembered" remembers station '<string>News</string>'
}

start_server
end_by_signals
end_with_open_menu
end_by_two_signals
end_without_window
end_by_closing
