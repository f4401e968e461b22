# Sourced. The Debian packages required to build, test and run the program.
# An entry NAME=WHAT is not required if the command WHAT, or the file of that path, exists already.

# build for 32-bit Windows
packages=(g++-mingw-w64-i686-posix cmake ninja-build git ca-certificates)
# build of the portable code for this machine, with sanitizers and fuzzers
packages+=(g++ clang)
compgen -G '/usr/lib/llvm-*/lib/clang/*/lib/linux/libclang_rt.fuzzer-*.a' >/dev/null ||
    packages+=(libclang-rt-dev)
# test framework (sources), JSON and XML readers of the downloader, positions of places
packages+=(googletest rapidjson-dev librapidxml-dev weather-util-data)
# running Windows programs; the i386 library, which has a longer name in some releases, provides https
packages+=(wine wine32:i386 libgnutls30:i386=/usr/lib/i386-linux-gnu/libgnutls.so.30)
# virtual display, taskbar with a notification area, mouse and keyboard, screenshots, window lists, fonts
packages+=(xvfb icewm xdotool x11-xkb-utils imagemagick x11-utils fonts-liberation fonts-dejavu-core)
# desktop tests, demonstration feed, reader of executables
packages+=(python3 python3-pytest python3-pefile)
# format and static analysis of the C++ code
packages+=(clang-format clang-tidy)
# help page
packages+=(cmark-gfm)
# map page
packages+=(nodejs=node npm=npm)
# installer, archive and their signatures
packages+=(nsis zip osslsigncode)
# browser for the tests of the map page; Ubuntu's package only installs a snap
if grep -qs '^ID=ubuntu' /etc/os-release; then
    leftOutPackages=(chromium)
else
    packages+=(chromium=chromium)
    leftOutPackages=()
fi
