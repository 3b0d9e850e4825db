# What every command answers before it does anything. To be sourced by a bash script, before it changes its folder:
#
#     usage "OPTION..." LEAST MOST "$@"     the options it knows, as patterns, and how many other words it takes
#
# --help prints the comment at the head of the script. What the script does not know is refused with status 2.
BASH_ARGV0=$(realpath "$0")

refuse() {
    echo "${0##*/}: $1; ${0##*/} --help tells what there is" >&2
    exit 2
}

usage() {
    local least=$2 most=$3 words=0 word option options
    read -ra options <<<"${1//$'\n'/}"
    shift 3
    for word in "$@"; do
        case $word in
        --help) sed -n '2,${/^#/!q;s/^# \{0,1\}//p}' "$0"; exit 0 ;;
        -*) for option in "${options[@]}"; do [[ $word != $option ]] || continue 2; done; refuse "unknown option $word" ;;
        *) [ $((++words)) -le "$most" ] || refuse "$word is one word too many" ;;
        esac
    done
    [ $words -ge "$least" ] || refuse "a word is missing"
}
