#!/bin/sh
# Writes the nvxparam man page from the tool's own help and key list:
# scripts/gen-man.sh PATH-TO-NVXPARAM OUTPUT.
set -eu
tool=$1
out=$2
esc() { sed -e 's/\\/\\e/g' -e 's/^\./\\\&./' -e "s/^'/\\\\\\&'/"; }
{
  echo ".TH NVXPARAM 1 \"\" \"$("$tool" --version)\" \"User Commands\""
  echo ".SH NAME"
  echo "nvxparam \\- create, show, edit, check and compare computation parameter files"
  echo ".SH SYNOPSIS"
  echo ".nf"
  "$tool" --help | esc
  echo ".fi"
  echo ".SH VERBS"
  for verb in $("$tool" --help | sed -n 's/^  \([a-z-]*\) .*/\1/p'); do
    echo ".SS $verb"
    echo ".nf"
    "$tool" help "$verb" | esc
    echo ".fi"
  done
  echo ".SH KEYS"
  echo ".nf"
  XDG_CONFIG_HOME=$(mktemp -d) HOME=/nonexistent "$tool" keys | esc
  echo ".fi"
} > "$out"
