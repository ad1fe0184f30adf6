#!/usr/bin/env bash
# Builds the client library of Breakpad, which no Debian package brings. Does nothing, silently, when it is there.
#
#   scripts/build-breakpad.sh [PREFIX]    default .deps; cmake/FindBreakpad.cmake looks in PREFIX/breakpad
#
# The sources come with an npm package; nothing but the headers in need, the archive and the licence is kept.
set -euo pipefail
source "$(dirname "$0")/common.sh"

package=minidump
version=0.26.0
sha512=d4227a9100ddd546b05e09a1b77a472b32cfb993dbf31ad9960acdf87ebfdf3296b1429aa53485d8513b8363638bf367562f863ac57033cb26da677a06325482

target=$(realpath --canonicalize-missing "${1:-$root/.deps}")/breakpad
archive=src/client/linux/libbreakpad_client.a
entry=src/client/linux/handler/exception_handler.h

if [[ -f $target/lib/${archive##*/} && -f $target/include/${entry#src/} ]]; then
    exit 0
fi

fail() {
    echo "Breakpad cannot be built: $*" >&2
    exit 1
}

say "building Breakpad from the npm package $package $version"
command -v npm >/dev/null || fail "npm is missing"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

tarball=$package-$version.tgz
quietly "$work/pack.log" npm pack --cache "$work/npm" "$package@$version" || fail "the package $package@$version cannot be had"
echo "$sha512  $tarball" | sha512sum --check --status || fail "$tarball is not the file that was expected"
tar -xzf "$tarball"

cd package/deps/breakpad
mkdir -p src/third_party
cp -r ../third_party/lss src/third_party/
flags='-O2 -fPIC -w'
quietly "$work/configure.log" sh ./configure --disable-processor --disable-tools CFLAGS="$flags" CXXFLAGS="$flags" ||
    fail "its configuration failed"
quietly "$work/make.log" make --jobs "$jobs" "$archive" || fail "its compilation failed"

# The archive last: it tells that the rest is complete.
headers=$("${CXX:-g++}" -std=c++17 -I src -MM "$entry" | tr -s ' \\' '\n' | grep '^src/.*\.h$')
mkdir -p "$target/include" "$target/lib"
(cd src && cp --parents ${headers//src\//} "$target/include")
cp LICENSE "$target"
cp "$archive" "$target/lib"
