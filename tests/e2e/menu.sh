#!/usr/bin/env bash
# The menu by real key presses: help, links, a changed setting, an operator profile, and every way to end.
. "$(dirname "$0")/lib.sh"
phone_begin "$1" "$@"
watch_bus

ends_well() { wait "$phone_program" || fail "exit status $?"; }
greyed() { vistanectl menu | cut -f 1,3 | sed -n 's/^ *\(.*\)\tgreyed$/\1/p' | tr '\n' ','; }

echo "help is asked for once, a channel's link goes out with its macros filled"
vistanectl device set msisdn "+1 2&3"
phone_start
phone_press Down Return
wait_for on_bus SHOW_HELP
phone_press Down Return
wait_for on_bus loadURL
same "$(events)" "SHOW_HELP_EXCERPT_PAGE 0 text=wac"
same "$(count '^request')" 1
on_bus 'msisdn=%2B1%202%263$' || fail "macros"

echo "a changed setting is there after a restart"
phone_press Down Down Return Return Up Return
phone_stop
same "$(vistanectl get VtNewsReader.UI.ScrollingRate)" 3
phone_start

echo "both soft keys at once end a form, and nothing else"
list=$(phone_look)
for keys in F1+F2 F2+F1; do
    press Return
    xdotool key $keys
    wait_for looks_like "$list"
done

phone_press Down Down Down Down Return
press Down

echo "a profile is chosen after its warning and greys what depends on it, also after a restart"
phone_press Down Return Down Return
same "$(vistanectl get VtCore.Menu.ProfileSelected)" 0
phone_press Return
same "$(vistanectl profile list | grep -c 'saver.*current')" 1
depends="Home screen headlines,Scrolling speed,Download,Operator profile,Details,"
same "$(greyed)" "$depends"
before=$(phone_look)
phone_press Return
same "$(phone_look)" "$before"
phone_stop
phone_start
same "$(greyed)" "$depends"

echo "the red key, a channel message, Back, and refusing to switch on end the program"
phone_press Return End
ends_well
phone_start
vistanectl close
ends_well
phone_start
phone_press Escape
ends_well
vistanectl set VtCore.System.EnabledMode DISABLED_NORMAL_MODE
phone_start
phone_press F2
ends_well
same "$(vistanectl get VtCore.System.EnabledMode)" DISABLED_NORMAL_MODE
same "$(grep -c 'telephony client finished' "$VISTANE_LOG")" 6

echo "a link from the settings reaches the desktop as one argument"
printf '#!/bin/sh\nprintf "%%s\\n" "$#" "$1" >%s/opened\n' "$phone_dir" >"$phone_dir/xdg-open"
chmod +x "$phone_dir/xdg-open"
PATH=$phone_dir:$PATH
vistanectl reset VtCore.System.EnabledMode
vistanectl set VtNewsReader.UI.AddNewChannelURL 'http://x/$(touch /tmp/pwned)`id` "; --help'
phone_start VISTANE_HANDOVER=desktop
phone_press Down Down Return
wait_for test -s "$phone_dir/opened"
same "$(cat "$phone_dir/opened")" "1
http://x/\$(touch%20/tmp/pwned)%60id%60%20%22;%20--help"
phone_stop
