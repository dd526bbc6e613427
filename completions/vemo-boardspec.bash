# shellcheck shell=bash
# bash completion for vemo-boardspec, vemo-boardspec-lint and vemo-boardspec-dump. It splits the
# command line itself, so it does not need the bash-completion package and works with any value of
# COMP_WORDBREAKS. The contents of files are neither expanded nor executed.

_vemo_boardspec_commands=(
    automigrate_exclude
    automigrate_include
    automigrate_type
    channelnames
    compileflownames
    defaultname
    devicemodel
    generate_cmd
    generic_kernel
    globalmemnames
    has_snoop
    lomb_file
    name
    numcompileflows
    numglobalmems
    project
    resolved_devicemodel
    resolved_targetmodel
    revision
    synthesize_cmd
    targetmodel
    version
)

# Splits the line before the cursor. Sets in the caller:
#   words  the words with quotes removed; the last one, possibly empty, is being completed
#   quote  the open quote character of the last word, if any
#   kept   the number of characters of the last word that readline does not replace: those up to an
#          open quote or up to the last word-breaking character
_vemo_boardspec_split_line() {
    local line=${COMP_LINE:0:COMP_POINT} char kept_outside=0 in_word=''
    local -i i last=0
    words=('') quote='' kept=0
    for ((i = 0; i < ${#line}; i++)); do
        char=${line:i:1}
        if [[ ! $quote && $char == [[:blank:]] ]]; then
            if [[ $in_word ]]; then
                words+=('') last+=1 kept=0 in_word=''
            fi
            continue
        fi
        in_word=yes
        if [[ $quote && $char == "$quote" ]]; then
            quote='' kept=$kept_outside
        elif [[ ! $quote && $char == [\'\"] ]]; then
            quote=$char kept_outside=$kept kept=${#words[last]}
        elif [[ $char == \\ && (! $quote || $quote == \" && ${line:i+1:1} == [\\\$\`\"]) ]]; then
            i+=1
            words[last]+=${line:i:1}
        else
            words[last]+=$char
            if [[ ! $quote && $COMP_WORDBREAKS == *"$char"* ]]; then
                kept=${#words[last]}
            fi
        fi
    done
}

# Offers the words that start with the word being completed, quoted so that they are used literally.
_vemo_boardspec_offer() {
    local word rest
    for word in "$@"; do
        rest=${word:kept}
        [[ $rest && $word == "${words[-1]}"* ]] || continue
        case $quote in
            \') rest=${rest//\'/"'\\''"} ;;
            \")
                rest=${rest//\\/\\\\} rest=${rest//\"/\\\"} rest=${rest//\$/\\\$}
                rest=${rest//\`/\\\`} rest=${rest//!/'"\!"'}
                ;;
            *) printf -v rest %q "$rest" ;;
        esac
        if [[ $quote && $rest == *"$quote" ]]; then
            rest+=$quote  # readline takes the existing quote for the closing one
        fi
        COMPREPLY+=("$rest")
    done
}

# Offers directories and XML files.
_vemo_boardspec_offer_files() {
    local word=${words[-1]} path name names
    path=${word/#'~/'/"$HOME/"}
    mapfile -d '' -t names < <(
        set +f
        shopt -u failglob
        shopt -s nullglob
        printf '%s\0' "$path"*.xml "$path"*/
    )
    compopt -o filenames  # readline quotes names and adds a slash to directories
    for name in "${names[@]}"; do
        name=${name%/}
        name=$word${name:${#path}}
        [[ ${name:kept} ]] && COMPREPLY+=("${name:kept}")
    done
}

# Offers the command with each compile flow of the board, if the tool answers in time. Flows whose
# name is empty or contains a colon cannot be selected. Names with control characters are not
# offered.
_vemo_boardspec_offer_flows() {
    local board=${words[1]/#'~/'/"$HOME/"} command=${words[2]%%:*} answer flow
    answer=$(timeout 2 vemo-boardspec "$board" compileflownames 2>/dev/null </dev/null) || return
    answer+=', '
    while [[ $answer ]]; do
        flow=${answer%%', '*} answer=${answer#*', '}
        [[ ! $flow || $flow == *[:[:cntrl:]]* ]] || _vemo_boardspec_offer "$command:$flow"
    done
}

_vemo_boardspec() {
    local words quote kept
    _vemo_boardspec_split_line
    case ${#words[@]} in
        2) _vemo_boardspec_offer_files ;;
        3)
            compopt -o nospace  # only a colon may follow
            if [[ ${words[2]} == *:* ]]; then
                _vemo_boardspec_offer_flows
            else
                _vemo_boardspec_offer "${_vemo_boardspec_commands[@]}"
            fi
            ;;
    esac
}

# Offers the option with each rule id; with each of the given severity if there is one.
_vemo_boardspec_offer_rules() {
    local option=$1 severity=$2 rules line
    mapfile -t rules < <(timeout 2 vemo-boardspec-lint --explain=list 2>/dev/null </dev/null)
    for line in "${rules[@]}"; do
        [[ $line != *$'\t'"$severity"*$'\t'* ]] || _vemo_boardspec_offer "$option=${line%%$'\t'*}"
    done
}

_vemo_boardspec_lint() {
    local words quote kept
    _vemo_boardspec_split_line
    case ${words[-1]} in
        --explain=*) _vemo_boardspec_offer_rules --explain ;;
        --no-warn=*) _vemo_boardspec_offer_rules --no-warn warning ;;
        -*)
            _vemo_boardspec_offer --color={always,auto,never} --explain= \
                --format={github,json,sarif,text} --help --max-findings= --no-warn= --strict --version
            [[ ${COMPREPLY[*]} != *= ]] || compopt -o nospace
            ;;
        *) _vemo_boardspec_offer_files ;;
    esac
}

_vemo_boardspec_dump() {
    local words quote kept
    _vemo_boardspec_split_line
    case ${words[-1]} in
        --output=* | --depfile=*) compopt -o default ;;  # readline completes file names
        -*)
            _vemo_boardspec_offer --allow-overlap --candidates --depfile= --depfile-target= \
                --format={text,json,sh,make,cmake,tcl,c,svg,html} --help --output= --version
            [[ ${COMPREPLY[*]} != *= ]] || compopt -o nospace
            ;;
        *) _vemo_boardspec_offer_files ;;
    esac
}

complete -F _vemo_boardspec vemo-boardspec
complete -F _vemo_boardspec_lint vemo-boardspec-lint
complete -F _vemo_boardspec_dump vemo-boardspec-dump
