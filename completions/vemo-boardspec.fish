# fish completion for vemo-boardspec, vemo-boardspec-lint and vemo-boardspec-dump. The contents of
# files are neither expanded nor executed.

set -g __vemo_boardspec_commands \
    automigrate_exclude\t'fixes to skip during migration' \
    automigrate_include\t'fixes to apply during migration' \
    automigrate_type\t'platform type for automatic migration' \
    channelnames\t'identifiers of the streaming channels' \
    compileflownames\t'names of the compile flows' \
    defaultname\t'name of the default compile flow' \
    devicemodel\t'device model file name in the board file' \
    generate_cmd\t'command that generates the system' \
    generic_kernel\t'1 if the flow uses a generic kernel' \
    globalmemnames\t'names of the global memories' \
    has_snoop\t'1 if any kernel interface is a stream source' \
    lomb_file\t'system integration file' \
    name\t'name of the board' \
    numcompileflows\t'number of compile flows' \
    numglobalmems\t'number of global memories' \
    project\t'project name' \
    resolved_devicemodel\t'path of the device model file' \
    resolved_targetmodel\t'path of the target model file' \
    revision\t'revision of the project' \
    synthesize_cmd\t'command that synthesizes the system' \
    targetmodel\t'target model file name in the device model' \
    version\t'version of the board file format'

# Whether the argument with the given number is being completed.
function __vemo_boardspec_at_argument -a number
    test (count (commandline -opc)) -eq $number
end

# Directories and XML files.
function __vemo_boardspec_files
    __fish_complete_suffix .xml | string match -r '.*(?:\.xml|/)(?:\t.*)?$'
end

# The commands; after a colon, the command with each compile flow of the board, if the tool answers
# in time. Flows whose name is empty or contains a colon cannot be selected. Names with control
# characters are not offered.
function __vemo_boardspec_command_words
    set -l command (string match -rg '^["\']?([a-z_]+:)' -- (commandline -ct))
    if test -z "$command"
        printf '%s\n' $__vemo_boardspec_commands
        return
    end
    set -l board (commandline -opc)[2]
    set board (string replace -r '^~/' "$HOME/" -- $board)
    set -l answer (timeout 2 vemo-boardspec $board compileflownames 2>/dev/null </dev/null)
    and test (count $answer) -eq 1
    and printf '%s\n' $command(string split ', ' -- $answer | string match -vr '^$|[:[:cntrl:]]')
end

# The ids of rules with their summaries; those of one severity if it is given.
function __vemo_boardspec_rules -a severity
    timeout 2 vemo-boardspec-lint --explain=list 2>/dev/null </dev/null |
        string replace -rf '^([^\t]*)\t'"$severity"'[^\t]*\t' '$1\t'
end

complete -c vemo-boardspec -f
complete -c vemo-boardspec -n '__vemo_boardspec_at_argument 1' -a '(__vemo_boardspec_files)'
complete -c vemo-boardspec -n '__vemo_boardspec_at_argument 2' -a '(__vemo_boardspec_command_words)'

complete -c vemo-boardspec-lint -f -a '(__vemo_boardspec_files)'
complete -c vemo-boardspec-lint -l color -x -a 'auto always never' -d 'color the text format'
complete -c vemo-boardspec-lint -l explain -x -a '(__vemo_boardspec_rules)' \
    -d 'print what a rule means'
complete -c vemo-boardspec-lint -l format -x -a 'text json sarif github' -d 'output format'
complete -c vemo-boardspec-lint -l help -d 'print a usage summary'
complete -c vemo-boardspec-lint -l max-findings -x -d 'stop after this many findings'
complete -c vemo-boardspec-lint -l no-warn -x -a '(__vemo_boardspec_rules warning)' \
    -d 'do not show warnings of a rule'
complete -c vemo-boardspec-lint -l strict -d 'let warnings count for the exit status'
complete -c vemo-boardspec-lint -l version -d 'print the version'

complete -c vemo-boardspec-dump -f -a '(__vemo_boardspec_files)'
complete -c vemo-boardspec-dump -l allow-overlap -d 'accept overlapping global memories'
complete -c vemo-boardspec-dump -l candidates -d 'print where the models were searched for'
complete -c vemo-boardspec-dump -l depfile -r -F -d 'write the names of the files as a make rule'
complete -c vemo-boardspec-dump -l depfile-target -x -d 'target of that rule'
complete -c vemo-boardspec-dump -l output -r -F -d 'write to a file'
complete -c vemo-boardspec-dump -l format -x -a 'text json sh make cmake tcl c svg html' -d 'output format'
complete -c vemo-boardspec-dump -l help -d 'print a usage summary'
complete -c vemo-boardspec-dump -l version -d 'print the version'
