# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=sh disable=SC2317
#
# A minimal Debian 12 in a folder, for the tools that try something on a fresh system. Such a tool says what it is
# (usage) and what is to be done in the system (inside), then reads this file, which reads the tool's options and leaves
# its operands. Then it calls "begin", and "enter": "inside" runs as process 1 of namespaces of its own, so that whatever
# it mounts or starts is gone when it ends. $work is a scratch folder, $system the new system below it.

tool=${0##*/}
say() { printf '%s\n' "$tool: $*" >&2; }
die() { say "$@"; exit 1; }

# --- Inside ---------------------------------------------------------------------------------------------------

in_system() { chroot "$system" env -i HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin LANG=C.UTF-8 "$@"; }

mount_system() {
    mount -t proc proc "$system/proc"
    mount -t sysfs -o ro sysfs "$system/sys"
    mount -t tmpfs -o mode=755 tmpfs "$system/dev"
    mkdir "$system/dev/pts" "$system/dev/shm"
    for device in null zero full random urandom tty; do
        touch "$system/dev/$device"
        mount --bind "/dev/$device" "$system/dev/$device"
    done
    mount -t devpts -o newinstance,ptmxmode=666 devpts "$system/dev/pts"
    mount -t tmpfs -o mode=1777 tmpfs "$system/dev/shm"
    ln -s pts/ptmx "$system/dev/ptmx"
    ln -s /proc/self/fd "$system/dev/fd"
}

# What this machine knows of Debian 12's archive, updates and security fixes included; nobody else's packages.
copy_sources() {
    for file in /etc/apt/sources.list /etc/apt/sources.list.d/*; do
        if [ -f "$file" ] && grep -q bookworm "$file" && grep -q debian.org "$file"; then
            cp "$file" "$system${file}"
        fi
    done
    apt-config dump 2>/dev/null | grep -E '^Acquire::[a-z:]*Proxy' >"$system/etc/apt/apt.conf.d/90proxy" || true
}

make_system() {
    say "making a minimal Debian 12"
    debootstrap --variant=minbase bookworm "$system" "$mirror" >"$work/debootstrap.log" 2>&1 || {
        tail -n 20 "$work/debootstrap.log" >&2
        die "debootstrap failed"
    }
    mount_system
    copy_sources
}

# --- Outside --------------------------------------------------------------------------------------------------

# shellcheck disable=SC2317 # by the trap
clean_up() {
    [ -z "$inner" ] || { kill -KILL "$inner" && wait "$inner"; } 2>/dev/null || true
    # What is killed may need a moment to go.
    rm -rf --one-file-system "$work" 2>/dev/null || { sleep 2 && rm -rf --one-file-system "$work"; }
}

begin() { # FOLDER
    [ "$(id -u)" -eq 0 ] || die "a system is made and entered as root"
    for command in debootstrap unshare chroot; do
        command -v "$command" >/dev/null || die "$command is needed"
    done
    mkdir -p "$1"
    work=$(mktemp -d "$(realpath "$1")/$tool.XXXXXX")
    inner=''
    trap clean_up EXIT
    trap 'exit 130' INT
    trap 'exit 143' TERM HUP
}

# Runs this tool's "inside" and ends as that does. In the background, so that a signal is heard at
# once; with its end, all that it started ends.
enter() {
    unshare --mount --pid --fork --kill-child "$0" --inside "$work" "$mirror" &
    inner=$!
    wait "$inner" && status=0 || status=$?
    inner=''
    exit "$status"
}

mirror=http://deb.debian.org/debian
if [ "${1:-}" = --inside ]; then
    work=$2
    system=$work/system
    mirror=$3
    inside
    exit
fi
while [ $# -gt 0 ]; do
    case $1 in
    --mirror)
        mirror=${2:?"--mirror needs an address"}
        shift
        ;;
    -h | --help)
        usage
        exit
        ;;
    -*)
        usage >&2
        exit 2
        ;;
    *) break ;;
    esac
    shift
done
