#!/usr/bin/env bash
# Proves that a bare Debian 12 is enough: fresh.sh FOLDER
# In one bare root the two commands of the README run in a clone of HEAD, and the package is built.
# In a second one the package is installed, used and removed. The roots go when the script ends; the
# bare system and the packages that were fetched stay in FOLDER for the next time.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

fail() {
  echo "fresh: $*" >&2
  exit 1
}

mkdir -p "$1"
folder=$(realpath "$1")

# The work is done in namespaces of its own: its mounts and processes end with it, however it ends.
if [ -z "${ORVEX_FRESH:-}" ]; then
  ORVEX_FRESH=1 unshare --mount --pid --fork --kill-child "$PWD/packaging/fresh.sh" "$folder" &
  work=$!
  trap 'kill -KILL $work 2>/dev/null || true; wait; rm -rf --one-file-system "$folder"/{bare,build,use}' EXIT
  wait $work
  exit
fi

sources() {
  apt-get indextargets --format 'deb $(REPO_URI) $(RELEASE) $(COMPONENT)' \
    'Created-By: Packages' 'Origin: Debian' | grep -F bookworm | sort -u
}

# What debootstrap leaves, once it was run.
fetch_bare_system() {
  local mirror
  mirror=$(sources | awk '$3 == "bookworm" { print $2; exit }')
  [ -n "$mirror" ] || fail "apt has no source of Debian 12 here, or no lists: apt-get update"
  debootstrap --variant=minbase bookworm "$folder/bare" "$mirror" >"$folder/debootstrap.log" ||
    fail "debootstrap failed; $folder/debootstrap.log says why"
  tar -C "$folder/bare" -cf "$folder/bare.tar.part" .
  mv "$folder/bare.tar.part" "$folder/bare.tar"
  rm -r "$folder/bare"
}

# make_root NAME: a bare system with this machine's package sources and network.
make_root() {
  local root=$folder/$1
  mkdir -p "$root" "$folder/archives"
  tar -C "$root" -xf "$folder/bare.tar"
  mount -t proc proc "$root/proc"
  mount --rbind /dev "$root/dev"
  mount --bind "$folder/archives" "$root/var/cache/apt/archives"
  cp -L /etc/resolv.conf "$root/etc/resolv.conf"
  sources >"$root/etc/apt/sources.list"
  apt-config dump | grep -iE '^Acquire::[a-z]+::proxy' >"$root/etc/apt/apt.conf.d/proxy" || true
}

# in_root NAME COMMAND ...: runs it with nothing of this session but its proxies.
in_root() {
  local root=$folder/$1
  shift
  env -i HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin DEBIAN_FRONTEND=noninteractive \
    ${http_proxy:+"http_proxy=$http_proxy"} ${https_proxy:+"https_proxy=$https_proxy"} \
    chroot "$root" "$@"
}

step() {
  echo "fresh: $(date +%T) $*"
}

[ -f "$folder/bare.tar" ] || { step "a bare Debian 12"; fetch_bare_system; }

step "a clone of $(git log -1 --format='%h %s') in a bare root"
make_root build
git clone -q --no-hardlinks . "$folder/build/root/clone"
for command in "./dev run" "./dev test" "./dev package"; do
  step "$command"
  in_root build sh -c "cd /root/clone && $command" || fail "$command failed in a bare root"
done
[ -s "$folder/build/root/clone/build/great-apes.png" ] || fail "./dev run drew no picture"

step "the package in a second bare root"
make_root use
cp "$folder"/build/root/clone/build/package/*.deb "$folder/use/root/"
cp -r "$folder/build/root/clone/tests/e2e" packaging/use-installed.sh "$folder/use/root/"
in_root use /root/use-installed.sh || fail "the installed package is not as it should be"
step "all is well"
