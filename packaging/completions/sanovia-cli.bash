# Completions of sanovia-cli for bash.
_sanovia_cli() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} command=${COMP_WORDS[1]} options

  case $previous in
    --date-order) options="dmy mdy ymd" ;;
    --units) options="metric us" ;;
    --several) options="mean first last" ;;
    --format) options="csv fhir" ;;
    --paper) options="a4 letter" ;;
    --from | --to | --date) return ;; # a day, yyyy-MM-dd
    *)
      if [[ $COMP_CWORD -eq 1 ]]; then
        options="import export report summary stats backup restore check --help --version"
      elif [[ $current == -* ]]; then
        case $command in
          import) options="--date-order --units --several --keep --dry-run --json" ;;
          export) options="--format --from --to --with-person" ;;
          report | summary) options="--from --to --paper" ;;
          stats) options="--from --to --json" ;;
          restore) options="--list --date --missing --json" ;;
          check) options="--repair --json" ;;
        esac
      else
        [[ $command == @(stats|check) ]] || compopt -o default
        return
      fi
      ;;
  esac
  mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
}
complete -F _sanovia_cli sanovia-cli
