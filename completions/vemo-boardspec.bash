# shellcheck shell=bash
# Completion for vemo-boardspec, vemo-boardspec-lint and vemo-boardspec-dump in bash. It needs bash
# alone: it splits the line itself, and so works with and without the package bash-completion,
# whatever COMP_WORDBREAKS holds. What files contain is neither expanded nor executed.

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

# Splits what stands before the cursor. Sets in the caller:
#   words  the words without their quotes; the last one, maybe empty, is being completed
#   quote  the quote that is open in the last word
#   kept   how many characters of the last word readline leaves alone: those up to an open quote or
#          up to the last character that breaks words
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

# Offers each of the words that begins like the one being completed, quoted to stand for itself.
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
            rest+=$quote  # readline takes the one that is there for the closing quote
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
    compopt -o filenames  # readline quotes them, and puts a slash behind directories
    for name in "${names[@]}"; do
        name=${name%/}
        name=$word${name:${#path}}
        [[ ${name:kept} ]] && COMPREPLY+=("${name:kept}")
    done
}

# Offers the command with each compile flow of the board that the tool tells in time. A flow whose
# name is empty or has a colon in it cannot be asked for; control characters are kept off the line.
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
            compopt -o nospace  # a colon may follow, and nothing else does
            if [[ ${words[2]} == *:* ]]; then
                _vemo_boardspec_offer_flows
            else
                _vemo_boardspec_offer "${_vemo_boardspec_commands[@]}"
            fi
            ;;
    esac
}

_vemo_boardspec_lint() {
    local words quote kept
    _vemo_boardspec_split_line
    case ${words[-1]} in
        -*) _vemo_boardspec_offer --help --version ;;
        *) _vemo_boardspec_offer_files ;;
    esac
}

_vemo_boardspec_dump() {
    local words quote kept
    _vemo_boardspec_split_line
    case ${words[-1]} in
        -*) _vemo_boardspec_offer --allow-overlap --format={text,json,sh,make} --help --version ;;
        *) _vemo_boardspec_offer_files ;;
    esac
}

complete -F _vemo_boardspec vemo-boardspec
complete -F _vemo_boardspec_lint vemo-boardspec-lint
complete -F _vemo_boardspec_dump vemo-boardspec-dump
