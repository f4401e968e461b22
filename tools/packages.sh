# Sourced. The Debian packages that building, testing and running need, in one place.
# An entry NAME=WHAT is not asked for where that command, or the file of that path, is there already.

# building the product for 32-bit Windows
packages=(g++-mingw-w64-i686-posix cmake ninja-build git ca-certificates)
# building the rules for this machine, under the sanitizers and by the fuzzer
packages+=(g++ clang)
compgen -G '/usr/lib/llvm-*/lib/clang/*/lib/linux/libclang_rt.fuzzer-*.a' >/dev/null ||
    packages+=(libclang-rt-dev)
# the tests' framework, as sources; the downloader's JSON reader; the places' names and positions
packages+=(googletest rapidjson-dev weather-util-data)
# running Windows programs; the i386 library, which some releases have under a longer name, gives them
# https
packages+=(wine wine32:i386 libgnutls30:i386=/usr/lib/i386-linux-gnu/libgnutls.so.30)
# a screen nobody sees, its taskbar with a notification area, clicks, keyboards, pictures, window lists,
# fonts
packages+=(xvfb icewm xdotool x11-xkb-utils imagemagick x11-utils fonts-liberation fonts-dejavu-core)
# the desktop tests, the demonstration feed
packages+=(python3 python3-pytest)
# form and faults of the C++ code
packages+=(clang-format clang-tidy)
# the help page, from docs/help.md
packages+=(cmark-gfm)
# putting the map page together
packages+=(nodejs=node npm=npm)
# the installer and the archive
packages+=(nsis zip)
# the browser in which the map page is tested; Ubuntu's package only points to another package system
if grep -qs '^ID=ubuntu' /etc/os-release; then
    leftOutPackages=(chromium)
else
    packages+=(chromium=chromium)
    leftOutPackages=()
fi
