#!/usr/bin/env bash
# A refresh by hand between two processes, by real key presses: its four outcomes, cancelled, hidden and brought
# back, and with a service that dies or was never there.
. "$(dirname "$0")/lib.sh"
phone_begin "$1" "$@"
watch_bus

last() { vistanectl get "VtCore.DCD.RuntimeValues.$1"; }
requests() { count EVENT_INITIATE_MANUAL_REFRESH; }
runs() { kill -0 "$phone_program" 2>/dev/null || fail "the program is gone"; }
# Presses Refresh on the page, which puts the connecting dialog up.
refresh() {
    forget
    press F1
    wait_for on_bus INITIATE
}
# What the program logs right before the dialog comes up that ends a run; on a busy machine that takes a while.
ends_with() {
    wait_for in_log "$1"
    sleep 0.5
    phone_rest
}

phone_start
phone_press Down Down Down Down Down
press Return
page=$(phone_look)

echo "nobody answers: the user can cancel, and the page is as it was"
refresh
press F2
wait_for on_bus ABORT
same "$(phone_look)" "$page"

echo "success: a notice, and under it the page with the new result"
phone_service --step-ms 300 --items 7 --bytes 2048
refresh
ends_with "Notify status: 3"
wait_for looks_unlike "$page"
same "$(last LastUpdateResult), $(last ItemsDownloaded), $(requests)" "SUCCESS, 7, 1"
press Return
looks_unlike "$page" || fail "the page is still the old one"

echo "failures: Retry asks again after a pause that is deaf to keys, the other key does not"
phone_service --outcome connect-error --step-ms 300
refresh
ends_with "showErrDlg, state is 4"
same "$(last LastUpdateResult)" FAILED
phone_service --step-ms 300
forget
SECONDS=0
press F1
xdotool key F1 Return F2
wait_for on_bus INITIATE
[ $SECONDS -ge 1 ] || fail "asked again at once"
ends_with "Notify status: 3"
same "$(last LastUpdateResult), $(requests), $(count ABORT)" "SUCCESS, 1, 0"
! in_log "the dlg is hided" || fail "a key of the pause has hidden the dialog"
press F1
phone_service --outcome download-error --step-ms 300
refresh
ends_with "showErrDlg, state is 5"
press F2
same "$(last LastUpdateResult), $(requests)" "FAILED, 1"

echo "refused: a notice"
phone_service --outcome queue
refresh
ends_with "showErrDlg, state is 6"
press Return

echo "cancelled: the service stops"
phone_service --step-ms 5000
refresh
press F2
wait_for grep -q CANCELLED "$phone_dir/service"
same "$(last LastUpdateResult), $(count REFRESH_STATUS.[0-3])" "CANCELLED, 0"

echo "hidden: it goes on, and Refresh brings it back instead of asking again"
phone_service --step-ms 1500 --items 9
refresh
press F1
in_log "the dlg is hided" || fail "not hidden"
press F1
wait_for on_bus "REFRESH_STATUS.1"
press F1
ends_with "Notify status: 3"
wait_for looks_unlike "$page"
same "$(last ItemsDownloaded), $(requests), $(count ABORT)" "9, 1, 0"
press Return

echo "the service dies: the user can cancel, and a new one answers"
phone_service --step-ms 3600000
refresh
wait_for in_log "Notify status: 4"
phone_service_end KILL
runs
press F2
wait_for on_bus ABORT
phone_service --step-ms 300 --items 3
refresh
ends_with "Notify status: 3"
press Return
same "$(last ItemsDownloaded)" 3

echo "ended with a run hidden: it ends well"
phone_service --step-ms 3600000
refresh
press F1
vistanectl idle
wait "$phone_program" || fail "exit status $?"
