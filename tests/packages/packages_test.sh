#!/usr/bin/env bash
# Builds the Debian packages from a copy of the tree, on a Debian with only the build dependencies of
# debian/control. Checks them with lintian, installs them on another Debian with nothing else, and runs the
# tests of debian/tests there.
#     tests/packages/packages_test.sh RELEASE            on trixie or bookworm
#     tests/packages/packages_test.sh RELEASE FOLDER     copies the packages to FOLDER
# This test is run by hand; it needs root, the Debian package mmdebstrap, the network and some minutes.
set -euo pipefail
source_dir=$(realpath "$(dirname "$0")/../..")
message=$source_dir/tests/fixtures/messages/related.mms
source "$source_dir/tests/support/script.sh"
source "$source_dir/tests/support/fresh_root.sh"
if ! is_release "${1:-}" || [ $# -gt 2 ]; then
  echo "usage: tests/packages/packages_test.sh RELEASE [FOLDER], with one of these releases: ${releases[*]}" >&2
  exit 2
fi
release=$1
folder=${2:-}
builder=$work/builder
user=$work/user

step() {
  echo "== $*"
}
on_builder() { # SCRIPT
  quietly in_root "$builder" sh -euc "cd /build/qvlsmilparser; $1"
}
on_user() { # SCRIPT: prints its output, so that the caller can compare it
  in_root "$user" bash -euc "cd /parts; $1"
}
install_on_user() { # PACKAGES, which may be a pattern of files
  quietly on_user "apt-get install -q -y --no-install-recommends $1"
}

step "two fresh roots of $release"
fresh_root "$release" "$builder"
quietly in_root "$builder" apt-get update
cp -a "$builder" "$user"

step "build"
mkdir -p "$builder/build/qvlsmilparser"
tar -C "$source_dir" --exclude=./build --exclude=./.git -c . | tar -C "$builder/build/qvlsmilparser" -x
quietly in_root "$builder" apt-get install -q -y --no-install-recommends build-essential lintian
on_builder 'apt-get build-dep -q -y --no-install-recommends .'
on_builder 'DEB_BUILD_OPTIONS=terse dpkg-buildpackage -us -uc'
[ -z "$folder" ] || { mkdir -p "$folder" && cp "$builder"/build/*.deb "$folder"; }

step "lintian"
in_root "$builder" sh -c 'lintian --allow-root --info --fail-on error,warning /build/*.changes' \
  || fail "lintian reports problems of the packages"

step "the command"
mkdir "$user/packages" "$user/parts" "$user/source"
cp "$builder"/build/*.deb "$user/packages"
cp "$message" "$user/parts"
tar -C "$source_dir" -c README.md debian/tests examples/data tests/fixtures tests/support | tar -C "$user/source" -x
install_on_user '/packages/libqvlsmilparser1_*.deb /packages/qvlmms_*.deb'
quietly on_user /source/debian/tests/command
[ "$(on_user 'qvlmms --version')" = "qvlmms $(on_user "dpkg-query -W -f '\${Version}' qvlmms")" ] \
  || fail "qvlmms and its package have different versions"
for file in man/man1/qvlmms.1.gz bash-completion/completions/qvlmms zsh/vendor-completions/_qvlmms \
  mime/packages/qvlmms.xml thumbnailers/qvlmms.thumbnailer; do
  [ -s "$user/usr/share/$file" ] || fail "/usr/share/$file is missing"
done

step "the desktop"
install_on_user 'file libfile-mimeinfo-perl shared-mime-info xdg-utils'
quietly on_user 'cp related.mms unnamed && update-mime-database /usr/share/mime'
for file in related.mms unnamed; do
  [ "$(on_user "xdg-mime query filetype $file")" = application/vnd.wap.mms-message ] \
    || fail "the desktop does not recognize $file"
done
quietly on_user "$(sed -n 's/^Exec=//p' "$source_dir/tools/desktop/qvlmms.thumbnailer" \
  | sed 's/%s/128/; s/%i/related.mms/; s/%o/thumbnail.png/') && [ -s thumbnail.png ]"

step "the window"
install_on_user '/packages/qvlmms-gui_*.deb'
quietly on_user /source/debian/tests/window

step "a program"
install_on_user '/packages/libqvlsmilparser-dev_*.deb cmake g++ ninja-build pkgconf'
quietly on_user /source/debian/tests/program
echo "== the packages work on $release"
