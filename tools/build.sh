# shellcheck shell=bash
# Building and testing; sourced by the scripts in the root and in this folder. The working directory is the root.

# quietly COMMAND...: shows what the command prints only when it fails.
quietly() {
  local output
  output=$("$@" 2>&1) || {
    local status=$?
    printf '%s\n' "$output" >&2
    return "$status"
  }
}

# build_programs: brings the two programs of the release build up to date, in silence when they are.
build_programs() {
  local folder=build/release
  mkdir -p build
  (
    flock 9
    [[ -x $folder/bin/dorvane && -x $folder/bin/dorvane-batch ]] ||
      echo "Building Dorvane; the first time this takes some minutes." >&2
    [[ -f $folder/build.ninja ]] || quietly cmake --preset release -DDORVANE_TESTS=OFF -DDORVANE_BENCH=OFF
    quietly ninja -C "$folder" dorvane dorvane-batch
  ) 9>build/release.lock
}

# build_targets PRESET FOLDER TARGET...: brings the targets of the preset up to date in the folder, in silence when that
# works.
build_targets() {
  local preset=$1 folder=$2
  mkdir -p "$folder"
  (
    flock 9
    quietly cmake --preset "$preset" -B "$folder"
    quietly ninja -C "$folder" "${@:3}"
  ) 9>"$folder.lock"
}

# build_all PRESET FOLDER [CMAKE_OPTION...]: everything that the preset builds, in the folder.
build_all() {
  local preset=$1 folder=$2
  mkdir -p "$folder"
  (
    flock 9
    quietly cmake --preset "$preset" -B "$folder" "${@:3}"
    cmake --build "$folder"
  ) 9>"$folder.lock"
}

# Totals over all calls of run_tests.
passed=0 failed=0

# run_tests FOLDER: runs every test of a build; no test at all is a failure.
run_tests() {
  local folder=$1 status=0 ok bad
  ctest --test-dir "$folder" --output-on-failure --no-tests=error -j "$(nproc)" || status=$?
  read -r ok bad < <(count_tests <"$folder/Testing/Temporary/LastTest.log")
  ((status == 0 || bad > 0)) || bad=1
  ((ok + bad > 0)) || bad=1
  echo "$folder: $ok passed, $bad failed"
  passed=$((passed + ok)) failed=$((failed + bad))
}

# count_tests: prints the tests passed and failed of a log of ctest. A test that was begun and neither ended well nor was
# skipped has failed, and so has a program that failed without a failed test (a leak is found at its end); a program
# that is not made of single tests counts as one.
count_tests() {
  awk '
    /^[0-9]+\/[0-9]+ Testing: / { begun = ended = 0 }
    index($0, "[ RUN      ] ") { begun++ }
    index($0, "[       OK ] ") { ended++; ok++ }
    index($0, "[  SKIPPED ] ") && /\([0-9]+ ms\)$/ { ended++ }
    /^Test (Passed|Failed)\.$/ {
      good = $2 == "Passed."
      if (begun > ended) bad += begun - ended
      else if (!good) bad++
      else if (begun == 0) ok++
    }
    END { print ok + 0, bad + 0 }'
}
