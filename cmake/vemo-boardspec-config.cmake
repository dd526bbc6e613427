# CMake package vemo-boardspec: the library vemo::boardspec, the programs vemo::vemo-boardspec,
# vemo::vemo-boardspec-dump and vemo::vemo-boardspec-lint, and functions that read boards:
#
#     vemo_boardspec_load(<prefix> <board>)
#     vemo_boardspec_query(<variable> <board> <command>)
#     vemo_boardspec_generate(OUTPUT <file> FORMAT <format> BOARD <board>)
#
# <board> is the path of a board file, relative to the current source directory, which is also the
# working directory in which its models are searched for. A board is read by one run of
# vemo-boardspec-dump per configure run. If that fails, configuration stops with its messages.
#
# CMake reconfigures when the board file or one of its models changes, and when a model appears in a
# place that is searched earlier. Paths that CMake cannot watch are refused.

include("${CMAKE_CURRENT_LIST_DIR}/Tinyxml2.cmake")
if(NOT TARGET tinyxml2::tinyxml2)
    set(${CMAKE_FIND_PACKAGE_NAME}_FOUND FALSE)
    set(${CMAKE_FIND_PACKAGE_NAME}_NOT_FOUND_MESSAGE "tinyxml2 is required, but was not found.")
    return()
endif()
include("${CMAKE_CURRENT_LIST_DIR}/vemo-boardspec-targets.cmake")

# In contrast to functions, targets are not known in all directories.
foreach(_vemo_program IN ITEMS vemo-boardspec vemo-boardspec-dump vemo-boardspec-lint)
    if(TARGET vemo::${_vemo_program})
        get_target_property(_vemo_location vemo::${_vemo_program} LOCATION)
        set_property(GLOBAL PROPERTY _vemo_location_of_${_vemo_program} "${_vemo_location}")
    endif()
endforeach()
unset(_vemo_location)

cmake_policy(PUSH)
cmake_policy(VERSION 3.20...3.31)

# vemo_boardspec_load(<prefix> <board>)
#
# Sets the variables of vemo-boardspec-dump --format=cmake, with <prefix> in place of "vemo": for
# example <prefix>_<command>, <prefix>_num_flows and <prefix>_flow_<i>_<command>.
function(vemo_boardspec_load prefix board)
    if(NOT prefix MATCHES "^[A-Za-z0-9_]+$")
        message(FATAL_ERROR "vemo_boardspec_load: '${prefix}' cannot begin the name of a variable")
    endif()
    _vemo_boardspec_read("${board}")
    string(REPLACE "\nset(vemo_" "\nset(${prefix}_" all_assignments "${all_assignments}")
    string(REPLACE "\")\n" "\" PARENT_SCOPE)\n" all_assignments "${all_assignments}")
    cmake_language(EVAL CODE "${all_assignments}")
endfunction()

# vemo_boardspec_query(<variable> <board> <command>)
#
# Sets <variable> to the answer of vemo-boardspec.
function(vemo_boardspec_query variable board command)
    _vemo_boardspec_read("${board}")
    cmake_language(EVAL CODE "${assignments}")
    if(command MATCHES "^([a-z_]+)(:([^:]+))?$")
        set(word "${CMAKE_MATCH_1}")
        set(flow "${CMAKE_MATCH_3}")
        # The answers come before anything else.
        string(REGEX REPLACE "\nset\\(vemo_file_board .*" "\n" answers "${assignments}")
        if(flow STREQUAL "" AND "${answers}" MATCHES "\nset\\(vemo_${word} ")
            set(${variable} "${vemo_${word}}" PARENT_SCOPE)
            return()
        endif()
        set(i 0)
        while(i LESS vemo_num_flows)
            if("${vemo_flow_${i}_name}" STREQUAL "${flow}" AND NOT word STREQUAL "name"
                    AND "${assignments}" MATCHES "\nset\\(vemo_flow_${i}_${word} ")
                set(${variable} "${vemo_flow_${i}_${word}}" PARENT_SCOPE)
                return()
            endif()
            math(EXPR i "${i} + 1")
        endwhile()
    endif()
    # A mistake, or a flow that the command does not need: the tool knows what to say.
    _vemo_boardspec_run(answer vemo-boardspec "${board}" "${command}")
    set(${variable} "${answer}" PARENT_SCOPE)
endfunction()

# vemo_boardspec_generate(OUTPUT <file> FORMAT <format> BOARD <board>)
#
# Adds a build rule that writes the output of vemo-boardspec-dump --format=<format> to <file>,
# relative to the current binary directory. The rule runs when one of the files of the board has
# changed. It leaves <file> alone if the output is the same, and then nothing that depends on <file>
# is built.
function(vemo_boardspec_generate)
    cmake_parse_arguments(PARSE_ARGV 0 arg "" "OUTPUT;FORMAT;BOARD" "")
    if(NOT DEFINED arg_OUTPUT OR NOT DEFINED arg_FORMAT OR NOT DEFINED arg_BOARD
            OR DEFINED arg_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR
            "Usage: vemo_boardspec_generate(OUTPUT <file> FORMAT <format> BOARD <board>)")
    endif()
    set(output "${arg_OUTPUT}")
    cmake_path(ABSOLUTE_PATH output BASE_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}" NORMALIZE)
    _vemo_boardspec_check_path("${output}" IN_RULE)
    _vemo_boardspec_read("${arg_BOARD}")
    cmake_language(EVAL CODE "${assignments}")

    # The prerequisites are the files that were found now. The rule also runs when others are found,
    # which may be older than the output. With ninja, it looks at the files that it has read itself.
    # (In makefiles, CMake never forgets what a depfile once contained. It mistakes some names in a
    # depfile, and takes relative ones for files in the binary directory.)
    string(SHA256 name "${output}")
    set(base "${CMAKE_CURRENT_BINARY_DIR}/CMakeFiles/vemo-boardspec/${name}")
    set(depfile_options "--depfile=${base}.d" "--depfile-target=${output}")
    set(depfile DEPFILE "${base}.d")
    foreach(path IN ITEMS vemo_file_board vemo_file_device_model vemo_file_target_model)
        if(NOT CMAKE_GENERATOR MATCHES "Ninja" OR NOT ${path} MATCHES "^/[A-Za-z0-9/_.+ -]*$")
            set(depfile_options "")
            set(depfile "")
        endif()
        cmake_path(ABSOLUTE_PATH ${path} NORMALIZE)
        _vemo_boardspec_check_path("${${path}}" IN_RULE)
        string(REPLACE ";" "\\;" ${path} "${${path}}")
    endforeach()
    string(SHA256 paths "${vemo_file_board}\n${vemo_file_device_model}\n${vemo_file_target_model}")
    file(CONFIGURE OUTPUT "${base}.paths" CONTENT "${paths}\n")

    cmake_path(GET output PARENT_PATH directory)
    file(MAKE_DIRECTORY "${directory}")
    _vemo_boardspec_program(dump vemo-boardspec-dump)
    add_custom_command(OUTPUT "${output}"
        COMMAND "${dump}" "--format=${arg_FORMAT}" "--output=${output}" ${depfile_options} "${board}"
        DEPENDS "${dump}" "${base}.paths"
            "${vemo_file_board}" "${vemo_file_device_model}" "${vemo_file_target_model}"
        ${depfile}
        WORKING_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}"
        VERBATIM)
endfunction()

# What follows is for the functions above.

# Sets in the scope of the caller:
#   board            the absolute path of the board file
#   all_assignments  the output of vemo-boardspec-dump --format=cmake, after an empty line; each
#                    variable has a line
#   assignments      the answers, files and flows among them
function(_vemo_boardspec_read board)
    # As in the commands of CMake, a tilde stands for the home directory.
    if(board MATCHES "^~/" AND NOT EXISTS "${CMAKE_CURRENT_SOURCE_DIR}/${board}")
        get_filename_component(board "${board}" ABSOLUTE)
    endif()
    cmake_path(ABSOLUTE_PATH board NORMALIZE)
    set(board "${board}" PARENT_SCOPE)

    set(anywhere "_vemo_boardspec_read $ENV{VEMOSDKROOT} ${board}")
    set(here "${anywhere} ${CMAKE_CURRENT_SOURCE_DIR}")
    get_property(all_assignments GLOBAL PROPERTY "${here}")
    if("${all_assignments}" STREQUAL "")
        # What was read from another directory holds unless a relative path leads to a model.
        get_property(all_assignments GLOBAL PROPERTY "${anywhere}")
        set(is_local TRUE)
        if(NOT "${all_assignments}" STREQUAL "")
            _vemo_boardspec_watch(is_local "${all_assignments}")
        endif()
        if(is_local)
            _vemo_boardspec_run(all_assignments vemo-boardspec-dump --format=cmake "${board}")
            string(PREPEND all_assignments "\n")
            _vemo_boardspec_watch(is_local "${all_assignments}")
        endif()
        if(NOT is_local)
            set_property(GLOBAL PROPERTY "${anywhere}" "${all_assignments}")
        endif()
        set_property(GLOBAL PROPERTY "${here}" "${all_assignments}")
    endif()
    set(all_assignments "${all_assignments}" PARENT_SCOPE)

    string(FIND "${all_assignments}" "\nset(vemo_num_memories " end)
    string(SUBSTRING "${all_assignments}" 0 ${end} assignments)
    set(assignments "${assignments}\n" PARENT_SCOPE)
endfunction()

# Lets CMake reconfigure when one of the files of a board changes or disappears, or appears in a
# place that is searched earlier. Sets <variable> to whether the current source directory has a
# model of the board.
function(_vemo_boardspec_watch variable assignments)
    cmake_language(EVAL CODE "${assignments}")
    set(is_local FALSE)
    _vemo_boardspec_watch_path("${vemo_file_board}")
    set(i 0)
    while(i LESS vemo_num_candidates)
        set(path "${vemo_candidate_${i}}")
        cmake_path(IS_RELATIVE path is_relative)
        cmake_path(ABSOLUTE_PATH path NORMALIZE)
        _vemo_boardspec_watch_path("${path}")
        if(is_relative AND EXISTS "${path}")
            set(is_local TRUE)
        endif()
        math(EXPR i "${i} + 1")
    endwhile()
    set(${variable} ${is_local} PARENT_SCOPE)
endfunction()

function(_vemo_boardspec_watch_path path)
    _vemo_boardspec_check_path("${path}")
    if(EXISTS "${path}")
        string(REPLACE ";" "\\;" path "${path}")
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${path}")
    else()
        string(REGEX REPLACE "[[*?$@]" "[\\0]" pattern "${path}")
        file(GLOB files CONFIGURE_DEPENDS "${pattern}")
    endif()
endfunction()

# Stops at a path that CMake would mistake for another one in the files that it generates. With the
# argument IN_RULE, the path is part of a build rule.
function(_vemo_boardspec_check_path path)
    set(mistaken "[\"\\\n]|[$](ENV|CACHE)?{")
    if(CMAKE_GENERATOR MATCHES "Ninja")
        string(APPEND mistaken "|[|]")
    else()
        string(APPEND mistaken "|;")
    endif()
    if(ARGC GREATER 1)
        string(APPEND mistaken "|[$][<(]")
        if(NOT CMAKE_GENERATOR MATCHES "Ninja")
            string(APPEND mistaken "|[:|\t]")
        endif()
    endif()
    # A semicolon in brackets does not end an item of a list.
    string(REGEX REPLACE "[^[]" "" opening "${path}")
    string(REGEX REPLACE "[^]]" "" closing "${path}")
    string(LENGTH "${opening}" num_opening)
    string(LENGTH "${closing}" num_closing)
    if("${path}" MATCHES "(${mistaken})")
        set(character "'${CMAKE_MATCH_1}'")
    elseif(NOT num_opening EQUAL num_closing)
        set(character "a bracket without its counterpart")
    else()
        return()
    endif()
    message(FATAL_ERROR "vemo-boardspec: CMake cannot handle ${character} in the path of a file "
        "that builds with ${CMAKE_GENERATOR} depend on:\n  ${path}")
endfunction()

# Sets <variable> to the output of a program with two arguments. The caller has the board in board.
function(_vemo_boardspec_run variable program argument1 argument2)
    _vemo_boardspec_program(location ${program})
    execute_process(COMMAND "${location}" "${argument1}" "${argument2}"
        WORKING_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}"
        RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE errors)
    if(NOT "${status}" STREQUAL "0")
        set(text "${output}${errors}")
        get_property(lint GLOBAL PROPERTY _vemo_location_of_vemo-boardspec-lint)
        if(lint)
            string(APPEND text "\nThis command reports all errors of the board package:\n"
                "${lint} '${board}'")
        endif()
        string(REPLACE "\n" "\n  " text "\n${text}")  # message() does not reflow indented lines
        message(FATAL_ERROR "${program} failed (${status}):${text}")
    endif()
    set(${variable} "${output}" PARENT_SCOPE)
endfunction()

function(_vemo_boardspec_program variable program)
    get_property(location GLOBAL PROPERTY _vemo_location_of_${program})
    if(NOT location)
        message(FATAL_ERROR "This installation of vemo-boardspec lacks ${program}: it was built "
            "without CLI11 or nlohmann_json.")
    endif()
    set(${variable} "${location}" PARENT_SCOPE)
endfunction()

cmake_policy(POP)
