#!/usr/bin/env bash
# Runs a test program of the driver: its test that passes says nothing of the driver, and the one that fails says
# in words what the driver did not find, and fails.
# Usage: report_in_words.sh PROGRAM ARGUMENT_FOR_THE_PASSING_TEST ARGUMENT_FOR_THE_FAILING_TEST
set -eu

program=$1
passing=$2
failing=$3
readonly words='step 2 (press the button 7): there is no such button; open was the message box "Second", which shows the buttons 1 "Yes", 2 "No"'

fail() {
  echo "$*" >&2
  exit 1
}

# A framework breaks lines and escapes quotes as it likes.
output_of() {
  timeout 60 "$program" "$1" 2>&1 | tr -d '\134' | tr -s '[:space:]' ' '
}

set -o pipefail
output=$(output_of "$passing") || fail "the test that should pass failed: $output"
[[ $output != *"no such button"* ]] || fail "the test that passes complains: $output"
! output=$(output_of "$failing") || fail "the test that should fail passed: $output"
[[ $output = *"$words"* ]] || fail "not in words: $output"
echo "in words: $words"
