#!/usr/bin/env bash
# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

usage() {
    cat <<'END'
Usage: scripts/fresh_machine.sh [--keep] RELEASE COMMAND...

Runs the commands of the committed checkout on a bare Debian: a tree that holds Debian's minimal
base and nothing else, entered with chroot. RELEASE is 12 (bookworm) or 13 (trixie). Each COMMAND is
one argument for the shell, run in the checkout's top folder, one after the other until one fails:

    scripts/fresh_machine.sh 12 ./run ./test
    scripts/fresh_machine.sh 13 'apt-get update' './test win32'

The base is made once with debootstrap, in build/fresh-RELEASE-base. Each call copies it to
build/fresh-RELEASE, writes what the commands print to build/fresh-RELEASE.log as well, and says how
long each took. The tree is removed afterwards; --keep leaves it there. What a call mounts lies in a
mount namespace of its own and is gone when the call ends, however it ends. Downloaded packages are
kept in build/fresh-RELEASE-packages for the next call.

Needs root, git and debootstrap; of this machine only the archive that it uses, its name servers,
its certificates and the variables CI and OGL_* reach the tree.
END
}

keep=no
case ${1:-} in
-h | --help)
    usage
    exit 0
    ;;
--keep)
    keep=yes
    shift
    ;;
esac
case ${1:-} in
12 | bookworm) release=12 suite=bookworm ;;
13 | trixie) release=13 suite=trixie ;;
*)
    usage >&2
    exit 2
    ;;
esac
shift
[ $# -gt 0 ] || {
    usage >&2
    exit 2
}

base=$root/build/fresh-$release-base
tree=$root/build/fresh-$release
packages=$root/build/fresh-$release-packages
log=build/fresh-$release.log

make_base() {
    local uri
    [ -e "$base/etc/debian_version" ] && return
    command -v debootstrap >/dev/null || {
        apt_quiet update || true
        apt_quiet install --no-install-recommends debootstrap || die "cannot install debootstrap"
    }
    read -r uri _ <<<"$(debian_archive)"
    say "making a bare Debian $release ($suite) in ${base#"$root"/}"
    as_root rm -rf --one-file-system "$base.partial"
    in_namespace debootstrap --variant=minbase "$suite" "$base.partial" \
        "${uri:-http://deb.debian.org/debian}" >"$log" 2>&1 || {
        tail -n 20 "$log" >&2
        die "debootstrap failed; $log has all of it"
    }
    as_root mv "$base.partial" "$base"
}

# What ties the tree to this machine's network. The certificates are those of a private archive's
# or proxy's issuer too, so they stand where the package ca-certificates takes its own additions.
join_network() {
    as_root cp /etc/resolv.conf "$tree/etc/resolv.conf"
    apt-config dump | grep '^Acquire::' | grep -v -e '{$' -e IndexTargets |
        as_root tee "$tree/etc/apt/apt.conf.d/90machine" >/dev/null
    [ -f /etc/ssl/certs/ca-certificates.crt ] || return 0
    as_root mkdir -p "$tree/etc/ssl/certs" "$tree/usr/local/share/ca-certificates"
    as_root cp /etc/ssl/certs/ca-certificates.crt "$tree/etc/ssl/certs/"
    as_root cp /etc/ssl/certs/ca-certificates.crt "$tree/usr/local/share/ca-certificates/machine.crt"
}

make_tree() {
    as_root rm -rf --one-file-system "$tree"
    as_root cp -a "$base" "$tree"
    join_network
    as_root mkdir -p "$tree/home/user/ogl" "$packages"
    git archive HEAD | as_root tar -x -C "$tree/home/user/ogl"
}

# Runs as root in a mount namespace of its own.
enter='
set -eu
tree=$1 packages=$2
shift 2
mount -t proc proc "$tree/proc"
mount --rbind /sys "$tree/sys"
mount --rbind /dev "$tree/dev"
mount --bind "$packages" "$tree/var/cache/apt/archives"
mkdir -p "$packages/partial"
cd /
exec chroot "$tree" env -i HOME=/root TERM=dumb LC_ALL=C.UTF-8 \
    PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin \
    "$@"
'

# run_command COMMAND: in the tree; its output is shown, and added to the log.
run_command() {
    local pairs
    mapfile -t pairs < <(env | grep -E '^(CI|OGL_[A-Z_]*)=' || true)
    in_namespace bash -c "$enter" enter "$tree" "$packages" "${pairs[@]}" \
        sh -c "cd /home/user/ogl && $1" </dev/null 2>&1 | tee -a "$log"
}

clean_up() {
    [ "$keep" = yes ] || as_root rm -rf --one-file-system "$tree"
}

mkdir -p build
make_base
trap clean_up EXIT
make_tree
: >"$log"
for command in "$@"; do
    say "Debian $release: $command" | tee -a "$log"
    started=$SECONDS
    status=0
    run_command "$command" || status=$?
    say "Debian $release: $command: status $status after $((SECONDS - started)) s" | tee -a "$log"
    [ "$status" = 0 ] || exit "$status"
done
