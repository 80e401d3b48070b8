# Shared by the set-up scripts: installs missing Debian packages and builds
# a configuration of the project. Sourced, not run.

# Installs the named Debian packages that are not installed yet, through
# sudo when not run as root.
ensure_packages() {
  local missing=()
  local package
  for package in "$@"; do
    if [[ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" != "installed" ]]; then
      missing+=("$package")
    fi
  done
  ((${#missing[@]} == 0)) && return 0
  echo "installing: ${missing[*]}"
  local sudo=()
  if [[ $(id -u) -ne 0 ]]; then
    if ! command -v sudo >/dev/null; then
      echo "error: need root or sudo to install: ${missing[*]}" >&2
      return 1
    fi
    sudo=(sudo)
  fi
  "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -qq
  "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq \
    --no-install-recommends "${missing[@]}"
}

# What building the library and its program needs.
BUILD_PACKAGES=(g++ cmake ninja-build pkg-config libsqlite3-dev libpugixml-dev libfreexl-dev zlib1g-dev)
# What the tests add: GoogleTest, clang's libFuzzer and sanitizer runtimes,
# mdbtools to read back the databases we write.
TEST_PACKAGES=(libgtest-dev libgmock-dev clang libclang-rt-14-dev mdbtools)

# configure_and_build <build-dir> [cmake options...]
configure_and_build() {
  local dir=$1
  shift
  cmake -S . -B "$dir" -G Ninja "$@" >/dev/null
  cmake --build "$dir" --parallel "$(nproc)"
}
