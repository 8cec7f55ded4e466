# shellcheck shell=bash disable=SC2034
# The Debian packages that Dorvane needs, and their installation; sourced by the scripts that build.

# The programs: compiler and build tools, libraries, and the fonts of window and pictures.
BUILD_PACKAGES=(
  g++ cmake ninja-build ccache
  qt6-base-dev qt6-svg-dev qt6-wayland libqt6opengl6-dev
  libcli11-dev nlohmann-json3-dev libsqlite3-dev sqlite3
  fontconfig fonts-open-sans fonts-dejavu-core fonts-ipafont-gothic
)

# The tests: the second compiler with its sanitizers and the symbols in their reports, and the test libraries.
TEST_PACKAGES=(clang libclang-rt-dev llvm libgtest-dev libgmock-dev libbenchmark-dev)

# missing_packages PACKAGE...: prints those that are not installed.
missing_packages() {
  local installed
  installed=$(dpkg-query -W -f='${Package} ${db:Status-Status}\n' "$@" 2>/dev/null || true)
  for package in "$@"; do
    grep -qxF "$package installed" <<<"$installed" || echo "$package"
  done
}

# need_packages PACKAGE...: installs those that are missing; touches no network when there are none.
need_packages() {
  local missing as_root=()
  mapfile -t missing < <(missing_packages "$@")
  ((${#missing[@]})) || return 0
  if ! command -v apt-get >/dev/null; then
    echo "This system has no apt-get. Install the counterparts of: ${missing[*]}" >&2
    return 1
  fi
  if ((EUID != 0)); then
    if ! command -v sudo >/dev/null; then
      echo "Packages are missing, and there is no sudo. As root: apt-get install ${missing[*]}" >&2
      return 1
    fi
    as_root=(sudo)
  fi
  echo "Installing: ${missing[*]}" >&2
  local apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -y -o DPkg::Lock::Timeout=300)
  if ! { "${apt[@]}" update && "${apt[@]}" install --no-install-recommends "${missing[@]}"; } >&2; then
    echo "The packages could not be installed: ${missing[*]}" >&2
    return 1
  fi
}
