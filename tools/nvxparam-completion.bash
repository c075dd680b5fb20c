# bash completion of nvxparam: verbs, options, section names and SECTION.Key
# names (from `nvxparam keys`), and file names.
_nvxparam() {
  local cur=${COMP_WORDS[COMP_CWORD]}
  local prev=${COMP_WORDS[COMP_CWORD-1]}
  local verbs="new show get set add unset keys diff check report to-rsv from-rsv help"
  if [ "$COMP_CWORD" -eq 1 ]; then
    COMPREPLY=($(compgen -W "$verbs --help --version" -- "$cur"))
    return
  fi
  # --time-limit takes whole seconds, 1 to 3600 (10 when not given).
  if [ "$prev" = --time-limit ]; then
    COMPREPLY=($(compgen -W "1 5 10 30 60" -- "$cur"))
    return
  fi
  case "$cur" in
    -*)
      COMPREPLY=($(compgen -W "--json --markdown --model-kind --analysis-type --from-template --defaults --time-limit --help" -- "$cur"))
      return ;;
    *.*=*|*/*) ;;
    [A-Z]*)
      local keys
      keys=$(nvxparam keys 2>/dev/null | awk '!/^#/ {print $1}')
      if [[ $cur == *.* ]]; then
        COMPREPLY=($(compgen -W "$keys" -- "$cur"))
      else
        COMPREPLY=($(compgen -W "$(printf '%s\n' $keys | sed 's/\..*//' | sort -u)" -- "$cur"))
      fi
      [ ${#COMPREPLY[@]} -gt 0 ] && return ;;
  esac
  COMPREPLY=($(compgen -f -- "$cur"))
}
complete -o filenames -F _nvxparam nvxparam
