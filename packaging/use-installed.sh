#!/usr/bin/env bash
# On a bare Debian: installs the package that lies beside this script, uses it as a user does, and
# removes it. The folder e2e beside it has the scenario.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
name=orvex-tree-viewer

fail() {
  echo "use-installed: $*" >&2
  exit 1
}

apt-get update -qq
apt-get install -y -qq ./*.deb >/dev/null
echo "installed: $(dpkg-query -W "$name"), $(dpkg -l | grep -c '^ii') packages in all"
! dpkg-query -W -f '${Package}\n' | grep -e '-dev$' || fail "a development package was pulled in"
dpkg -L "$name" | grep -E '\.(1.gz|desktop|nwk|png|svg|xml)$|/bin/.' | sort

apt-get install -y -qq --no-install-recommends man-db imagemagick openbox python3 x11-utils xauth \
  xdotool xvfb >/dev/null
man "$name" | grep -A 2 '^NAME' || fail "the manual can't be read"
e2e/run.py /usr/bin use || fail "the viewer could not be used"
echo "used: a tree opened by keys, moved, exported as a .tif and read back"
LIBGL_ALWAYS_SOFTWARE=1 xvfb-run -a orvex-snapshot "/usr/share/doc/$name/examples/great-cats.nwk" cats.png
orvex-snapshot "/usr/share/doc/$name/examples/great-cats.nwk" cats.pdf --whole

apt-get purge -y -qq "$name" >/dev/null
# The reader of manuals keeps pages that it has shown.
left=$(find / -xdev -iname '*orvex*' -not -path '/root/*' -not -path '/var/cache/man/*')
[ -z "$left" ] || fail "removing left $left"
echo "removed: nothing is left"
