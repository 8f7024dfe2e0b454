#!/usr/bin/env bash
# Proves that a bare Debian is enough: fresh.sh [--cache] [FOLDER] [SUITE...]
# For each suite the two commands of the README run in a clone of HEAD in a bare root, and the package
# is built. In a second root the package is installed, used and removed. The archive for other systems
# is built on the oldest suite and used in a third root of each. The roots go when the script ends; the
# bare systems, and the packages that were fetched, stay in FOLDER for the next time.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

known=(bookworm trixie) # the oldest first
needed=9                # GiB that a suite takes in FOLDER

fail() {
  echo "fresh: $*" >&2
  exit 1
}

is_known() {
  [[ " ${known[*]} " == *" $1 "* ]]
}

cache=
[ "${1:-}" = --cache ] && { cache=yes; shift; }
folder=build/fresh
[[ "${1:-}" == */* || -d "${1:-}" ]] && { folder=$1; shift; }
suites=("$@")
[ $# -gt 0 ] || suites=("${known[@]}")
for suite in "${suites[@]}"; do
  is_known "$suite" || fail "'$suite' is neither a folder nor a suite that is known here: ${known[*]}"
done

# The work is done in namespaces of its own: its mounts and processes end with it, however it ends.
if [ -z "${ORVEX_FRESH:-}" ]; then
  [ "$(id -u)" -eq 0 ] || fail "only root can make a bare system"
  command -v debootstrap >/dev/null || fail "debootstrap is missing: apt-get install debootstrap"
  mkdir -p "$folder"
  folder=$(realpath "$folder")
  free=$(($(df --output=avail -k "$folder" | tail -1) / 1024 / 1024))
  [ $free -ge $needed ] || fail "$folder has $free GiB left, and a bare system takes up to $needed"
  ORVEX_FRESH=1 unshare --mount --pid --fork --kill-child "$PWD/packaging/fresh.sh" \
    ${cache:+--cache} "$folder" "${suites[@]}" &
  work=$!
  trap 'kill -KILL $work 2>/dev/null || true; wait
    rm -rf --one-file-system "$folder"/*/{bare,build,use,archive}' EXIT
  wait $work
  exit
fi

# sources SUITE: this machine's sources of Debian's packages, taken to another suite.
sources() {
  local here
  here=$(. /etc/os-release && echo "$VERSION_CODENAME")
  apt-get indextargets --format 'deb $(REPO_URI) $(RELEASE) $(COMPONENT)' \
    'Created-By: Packages' 'Origin: Debian' | sed -n "s/ $here/ $1/p" | sort -u
}

# What debootstrap leaves, once it was run for the suite.
fetch_bare_system() {
  local mirror
  mirror=$(sources "$suite" | awk -v suite="$suite" '$3 == suite { print $2; exit }')
  [ -n "$mirror" ] || fail "apt has no source of Debian here, or no lists: apt-get update"
  debootstrap --variant=minbase "$suite" bare "$mirror" >debootstrap.log ||
    fail "debootstrap failed; $PWD/debootstrap.log says why"
  # These systems live for an hour: nothing has to be safe on the disk at once.
  echo force-unsafe-io >bare/etc/dpkg/dpkg.cfg.d/unsafe-io
  tar -C bare -cf bare.tar.part .
  mv bare.tar.part bare.tar
  rm -r bare
}

# make_root NAME: a bare system with this machine's package sources and network.
make_root() {
  mkdir -p "$1" archives
  tar -C "$1" -xf bare.tar
  mount -t proc proc "$1/proc"
  mount --rbind /dev "$1/dev"
  mount --bind archives "$1/var/cache/apt/archives"
  cp -L /etc/resolv.conf "$1/etc/resolv.conf"
  sources "$suite" >"$1/etc/apt/sources.list"
  apt-config dump | grep -iE '^Acquire::[a-z]+::proxy' >"$1/etc/apt/apt.conf.d/proxy" || true
}

# in_root NAME COMMAND ...: runs it with nothing of this session but its proxies.
in_root() {
  local root=$1
  shift
  env -i HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin DEBIAN_FRONTEND=noninteractive \
    ${http_proxy:+"http_proxy=$http_proxy"} ${https_proxy:+"https_proxy=$https_proxy"} \
    chroot "$root" "$@"
}

# in_clone COMMAND ...: one of the project's commands, in the root that builds.
in_clone() {
  step "$*"
  in_root build sh -c "cd /root/clone && $*" || fail "$* failed in a bare $suite$(full)"
}

# Why things fail that nobody expects to.
full() {
  [ "$(df --output=avail -k . | tail -1)" -gt 100000 ] || echo ": the disk of $folder is full"
}

step() {
  echo "fresh: $suite $(date +%T) $*"
}

build_all() {
  step "a clone of $(git -C "$project" log -1 --format='%h %s') in a bare root"
  make_root build
  if [ -n "$cache" ]; then
    mkdir -p ccache build/root/.cache/ccache
    mount --bind ccache build/root/.cache/ccache
  fi
  git clone -q --no-hardlinks "$project" build/root/clone
  in_clone ./dev run
  [ -s build/root/clone/build/great-apes.png ] || fail "./dev run drew no picture"
  in_clone ./dev test
  in_clone ./dev package
  cp build/root/clone/build/package/*.deb .
  [ "$suite" != "${known[0]}" ] || {
    in_clone ./dev bundle
    cp build/root/clone/build/bundle/*.tar.xz ..
  }
}

# use_in_root NAME FILE SCRIPT: a second bare root, where a user has the file and nothing else of ours.
# What uses it is of the clone's revision, as the project may have a later one by now.
use_in_root() {
  step "$(basename "$2"), $(du -h "$2" | cut -f1), in a bare root"
  make_root "$1"
  cp -r "$2" build/root/clone/tests/e2e "build/root/clone/packaging/$3" "$1/root/"
  in_root "$1" "/root/$3" || fail "$(basename "$2") is not as it should be on $suite$(full)"
}

project=$PWD
rm -f "$folder"/*.tar.xz
for suite in "${known[@]}"; do
  [[ " ${suites[*]} " == *" $suite "* ]] || continue
  mkdir -p "$folder/$suite"
  cd "$folder/$suite"
  rm -f ./*.deb
  [ -f bare.tar ] || { step "a bare system"; fetch_bare_system; }
  build_all
  use_in_root use "$(echo ./*.deb)" use-installed.sh
  if archive=$(ls ../*.tar.xz 2>/dev/null); then
    use_in_root archive "$archive" use-archive.sh
  else
    step "no archive is tried: it is built on ${known[0]}"
  fi
done
step "all is well"
