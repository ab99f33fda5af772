# What bash completes behind vornik-cli; its place is /usr/share/bash-completion/completions/vornik-cli.

_vornik_cli_commands="adapters streams watch report values record check convert"

# The options of a command; `options` is set in the function below.
_vornik_cli_options() {
  case $1 in
    adapters) options="--json" ;;
    streams | report) options="--seconds --fast --json" ;;
    watch) options="--seconds --fast --metrics --fail-on --frequency" ;;
    values | record)
      options="--station --seconds --fast --filter --frequency --samplings --current --voltage"
      [ "$1" = values ] && options+=" --blocks --interval --json" || options+=" --format --folder --every"
      ;;
    check) options="--round --log --json" ;;
    convert)
      options="--to --binary --binary32 --float --station --channels --unit --start --utc-offset"
      options+=" --frequency --round --output --force"
      ;;
    *) options="--version" ;;
  esac
  options+=" -h --help"
}

# Adds the files of these endings that begin like the word, and the folders to look for more in.
_vornik_cli_files() {
  local word=$1 ending
  shift
  compopt -o filenames 2>/dev/null
  mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(
    compgen -d -- "$word"
    for ending in "$@"; do compgen -f -X "!*$ending" -- "$word"; done
  )
}

_vornik_cli_choice() {
  mapfile -t COMPREPLY < <(compgen -W "$2" -- "$1")
}

# Words of a list with commas between them: what is there already stays in front.
_vornik_cli_list() {
  local last=${1##*,}
  mapfile -t COMPREPLY < <(compgen -P "${1%"$last"}" -W "$2" -- "$last")
}

# Adds what the program itself can capture from, and the capture files.
_vornik_cli_adapters() {
  local names
  names=$("${COMP_WORDS[0]}" adapters --json 2>/dev/null |
    sed -n 's/^ *"name": "\(.*\)",$/\1/p')
  local IFS=$'\n'
  mapfile -t COMPREPLY < <(compgen -W "$names" -- "$1")
  _vornik_cli_files "$1" .pcap .pcapng
}

_vornik_cli() {
  local word=$2 before=$3 command=${COMP_WORDS[1]} options
  COMPREPLY=()
  if [ "$COMP_CWORD" -eq 1 ]; then
    _vornik_cli_options ""
    _vornik_cli_choice "$word" "$_vornik_cli_commands $options"
    return
  fi
  # The value of the option in front.
  case $before in
    --seconds | --station | --filter | --samplings | --blocks | --interval) ;;
    --round | --channels | --start | --utc-offset) ;;
    --frequency) _vornik_cli_choice "$word" "50 60" ;;
    --current) _vornik_cli_choice "$word" "A mA" ;;
    --voltage) _vornik_cli_choice "$word" "kV V mV" ;;
    --format) _vornik_cli_choice "$word" "text worksheet comtrade cff" ;;
    --every) _vornik_cli_choice "$word" "1h 30m 10m" ;;
    --to) _vornik_cli_choice "$word" "comtrade-1999 comtrade-2013 cff" ;;
    --unit) _vornik_cli_list "$word" "A mA kV V mV" ;;
    --folder | --output) _vornik_cli_files "$word" ;;
    --fail-on) _vornik_cli_list "$word" "loss synch silence" ;;
    --metrics) _vornik_cli_files "$word" .prom ;;
    *) _vornik_cli_words "$command" "$word" ;;
  esac
}

# What begins like the word, behind neither the program nor an option that takes a value.
_vornik_cli_words() {
  local command=$1 word=$2 options
  _vornik_cli_options "$command"
  if [[ $word == -* ]]; then
    _vornik_cli_choice "$word" "$options"
    return
  fi
  case $command in
    streams | watch | report | values | record) _vornik_cli_adapters "$word" ;;
    check | convert) _vornik_cli_files "$word" .txt ;;
  esac
}

complete -F _vornik_cli vornik-cli
