#!/usr/bin/env bash
# On a bare Debian: gives it what a desktop has, unpacks the archive that lies beside this script into
# a folder with blanks in its name, and uses it as a user does. The folder e2e beside it has the
# scenario.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"

fail() {
  echo "use-archive: $*" >&2
  exit 1
}

apt-get update -qq
# X, Wayland's client libraries, OpenGL and a font; then what drives and checks.
apt-get install -y -qq --no-install-recommends fontconfig fonts-liberation2 libegl1 libgl1 \
  libgl1-mesa-dri libwayland-cursor0 libwayland-egl1 libx11-xcb1 xvfb \
  binutils imagemagick openbox python3 x11-utils xauth xdotool xz-utils >/dev/null
! dpkg-query -W -f '${Package}\n' | grep -E '^lib(qt|boost)' || fail "there are Qt or Boost already"

mkdir "any place"
tar -C "any place" -xf ./*.tar.xz
mv "any place"/* "any place/the viewer"
folder=$PWD/any\ place/the\ viewer
touch marker
binaries() {
  find "$folder" -path '*/bin/orvex-*' -o -name '*.so*'
}

# newest NAME: the highest version of a library's symbols that is asked for.
newest() {
  binaries | xargs -d '\n' readelf -VW | grep -oE "\b$1_[0-9.]+" | sort -Vu | tail -1
}
echo "carried: $(binaries | grep -c '\.so') libraries and plugins, $(du -sh "$folder" | cut -f1)"
echo "asked for: $(newest GLIBC), $(newest GLIBCXX)"
[ "$(printf '%s\n' GLIBC_2.36 "$(newest GLIBC)" | sort -V | tail -1)" = GLIBC_2.36 ] ||
  fail "a later C library than Debian 12's is asked for"
! binaries | xargs -d '\n' readelf -dW | grep -E 'NEEDED.*lib(GLX|OpenGL)\.' ||
  fail "libraries are asked for that not every desktop has"
! binaries | LD_LIBRARY_PATH=$folder/usr/lib xargs -d '\n' ldd | grep 'not found' ||
  fail "libraries are missing"

for program in "$folder"/usr/bin/orvex-*; do
  case $program in
    *-viewer) ;; # has no arguments
    *) "$program" --help | grep -i '^usage' || fail "$program does not start" ;;
  esac
done
e2e/run.py "$folder/usr/bin" use || fail "the viewer could not be used"
echo "used: a tree opened by keys, moved, exported as a .tif and read back"
mkdir home
# With nothing but a home, and from a folder of its own, as a desktop starts it.
HOME=$PWD/home LIBGL_ALWAYS_SOFTWARE=1 timeout 10 xvfb-run -a "$folder/AppRun" && code=0 || code=$?
[ $code -eq 124 ] || fail "AppRun ended with $code"

left=$(find / -xdev -newer marker -iname '*orvex*' -not -path '/root/home/*' -not -path '/tmp/*')
left+=$(find "$folder" -newer marker)
[ -z "$left" ] || fail "outside of a user's home there is now $left"
echo "nothing is written outside of a user's home"
