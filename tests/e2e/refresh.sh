#!/usr/bin/env bash
# A refresh by hand between two processes, by real key presses, and what the user can do meanwhile.
. "$(dirname "$0")/lib.sh"
phone_begin "$1" "$@"
watch_bus

# A figure of the last run, how often one was asked for, and given up.
figure_is() { [ "$(vistanectl get "VtCore.DCD.RuntimeValues.$1"), $(count INITIATE), $(count ABORT)" = "$2" ]; }
# A run that goes on and on.
begin() {
    phone_service --step-ms 3600000
    forget
    press F1
    wait_for in_log "Notify status: 4"
}

phone_start
press Down Down Down Down Down Return
phone_service --step-ms 20 --outcome download-error
press F1
wait_for in_log "showErrDlg, state is 5"
echo "Retry asks again, after a pause that is deaf to keys"
phone_service --step-ms 20 --items 9
press F1 F1 F2
wait_for in_log "Notify status: 3"
wait_for figure_is ItemsDownloaded "9, 2, 0"
! in_log "the dlg is hided" || fail "a key of the pause has hidden the dialog"
press Escape

echo "hidden, Refresh brings it back instead of asking again; cancelled, the service stops"
begin
press F1 F1 F2
wait_for grep -q CANCELLED "$phone_dir/service"
wait_for figure_is LastUpdateResult "CANCELLED, 1, 1"

echo "the service dies"
begin
phone_service_end KILL
wait_for in_log "showErrDlg, state is 4"

echo "and stays away, which Retry is told, too"
forget
press F1
wait_for in_log "showErrDlg, state is 4"
press Escape

echo "ended with a run hidden"
begin
press F1
wait_for in_log "the dlg is hided"
vistanectl idle
ends
