#!/usr/bin/env bash
# Runs the unit and server tests in the coverage build and prints the line coverage of source/ and support/.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# shellcheck source=scripts/setup.sh
source scripts/setup.sh

need_packages "${build_packages[@]}" "${server_packages[@]}" "${test_packages[@]}" "${coverage_packages[@]}"
build_preset coverage "Building library and tests with line counters"
find build/coverage -name '*.gcda' -delete
run_step "Running the tests" env GTEST_BRIEF=1 ctest --test-dir build/coverage --output-on-failure -L gtest --parallel "$(nproc)"
say "Line coverage"
gcovr --root . --object-directory build/coverage --filter source/ --filter support/ --print-summary --sort-percentage "$@"
