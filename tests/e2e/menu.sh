#!/usr/bin/env bash
# The menu by real key presses: an action, a link, a form and a profile with its warning, and ways to end.
. "$(dirname "$0")/lib.sh"
phone_begin "$1" "$@"
watch_bus

vistanectl device set msisdn "+1 2&3"
phone_start
press Down Return
wait_for on_bus "SHOW_HELP_EXCERPT_PAGE.*text=wac"
press Down Return
wait_for on_bus 'loadURL.*msisdn=%2B1%202%263$'
press Down Down Return Return Up Return
wait_for setting_is VtNewsReader.UI.ScrollingRate 3
press Down Down Return Down Return Return
wait_for setting_is VtCore.Menu.ProfileSelected 1
same "$(vistanectl profile list | grep -c 'saver.*current')" 1
same "$(count SHOW_HELP), $(count '^request')" "1, 1"
press End
ends

exec {log}> >(:) && wait $! # whoever read its log is gone
phone_start -u VISTANE_LOG >&"$log"
before=$(phone_look)
looks_different() { [ "$(phone_look)" != "$before" ]; }
vistanectl set VtCore.Menu.SetupHeadlines.title "Told by another process"
wait_for looks_different
press Escape
ends

same "$(ulimit -n 10; vistane-menu >&2 || echo $?)" 1 # not in the dark
in_log "only 10 files may be open"
