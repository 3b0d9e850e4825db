#!/usr/bin/env bash
# A disk that has room for no write, or for a part of one: each answers in words and leaves the store as it was, and
# the menu runs on. The disk is one of its own where the machine lets us mount it, else a limit on the size of files.
if [ -z "${DISK:-}" ]; then
    DISK=limit
    unshare -rm mount -t tmpfs none /mnt 2>/dev/null && DISK=small
    export DISK
    [ $DISK = limit ] || exec unshare -rm "$0" "$@"
fi
. "$(dirname "$0")/lib.sh"
phone_begin "$1" "$@"
trap '' XFSZ
mkdir "$phone_dir/disk"
if [ $DISK = small ]; then
    mount -t tmpfs -o size=2m none "$phone_dir/disk"
    trap 'umount -l "$phone_dir/disk"; phone_end' EXIT
fi
export VISTANE_DB=$phone_dir/disk/core.db

step=20
[ -z "${VISTANE_CAMPAIGN:-}" ] || step=4

# Leaves room for so many kB: in all, or in each file that a new program or the menu writes.
leave() {
    local free
    if [ $DISK = limit ]; then
        ulimit -S -f "$1"
        [ -z "${phone_program:-}" ] || prlimit --pid "$phone_program" --fsize=$(($1 * 1024)):
        return
    fi
    free=$(stat -f -c '%a * %S / 1024' "$phone_dir/disk")
    head -c $(((free - $1) * 1024)) /dev/zero >"$phone_dir/disk/filler"
}
make_room() {
    rm -f "$phone_dir/disk/filler"
    ulimit -S -f unlimited
    [ -z "${phone_program:-}" ] || prlimit --pid "$phone_program" --fsize=unlimited:
}

state() { { vistanectl list && vistanectl pack export && vistanectl profile list; } 2>&1 | md5sum; }

# Runs vistanectl with ever more room, until there is enough. What fails before says so and leaves things as they
# were, which is asked of `still`.
until_there_is_room() {
    local still=$1 room status error
    shift
    for ((room = 0; room < 1000; room += step)); do
        leave $room
        status=0
        error=$(vistanectl "$@" 2>&1 >/dev/null) || status=$?
        if [ $status -eq 0 ]; then
            make_room
            [ $room -gt 0 ] || fail "$*: the disk was not full"
            return
        fi
        same "$status with $room kB for $*" "3 with $room kB for $*"
        grep -q 'the settings store' <<<"$error" || fail "$*: said \"$error\""
        $still
        make_room
    done
    fail "$*: never done"
}

echo "a first start"
nothing() { :; }
until_there_is_room nothing list
fresh=$(state)
rm "$VISTANE_DB"
same "$(state)" "$fresh"

echo "each write"
as_before() { same "$(state)" "$before"; }
while read -ra write; do
    before=$(state)
    until_there_is_room as_before "${write[@]}"
    [ "$(state)" != "$before" ] || fail "${write[*]}: was not written"
done <<END
set VtNewsReader.UI.ScrollingRate 3
reset VtNewsReader.UI.ScrollingRate
device set model Other
channel add new New
channel remove new
profile add new New
profile use new
profile remove new
pack install share/packs/ar.json
pack install share/packs/en.json
END

echo "the menu"
try_changes() {
    phone_press Down Down Down Down Return Return Up Return # scrolling speed
    phone_press Down Down Return Down Return Return         # profile
    phone_press Escape Up Up Up Up Return Down Return Return # home screen headlines, off
    kill -0 "$phone_program" 2>/dev/null || fail "the program is gone"
}
phone_start
before=$(state)
leave 0
try_changes
as_before
[ $DISK = limit ] || in_log "failed for VtCore.System.EnabledMode: 3" || fail "nothing was logged"
phone_press Escape
wait "$phone_program" || fail "exit status $?"
unset phone_program
make_room
as_before

export VISTANE_DB=$phone_dir/disk/new.db
leave 0
phone_start
try_changes
phone_stop
unset phone_program
make_room
[ "$(state)" = "$fresh" ] || fail "half a store was left"
! compgen -G "$phone_dir/disk/*.set-aside*" || fail "a sound store was set aside"
