# CMake package vemo-boardspec: the library vemo::boardspec, the program vemo::vemo-boardspec and
# the function vemo_boardspec_query.

include("${CMAKE_CURRENT_LIST_DIR}/Tinyxml2.cmake")
if(NOT TARGET tinyxml2::tinyxml2)
    set(${CMAKE_FIND_PACKAGE_NAME}_FOUND FALSE)
    set(${CMAKE_FIND_PACKAGE_NAME}_NOT_FOUND_MESSAGE "tinyxml2 is required, but was not found.")
    return()
endif()
include("${CMAKE_CURRENT_LIST_DIR}/vemo-boardspec-targets.cmake")

# vemo_boardspec_query(<variable> <board> <command>)
#
# Runs the tool and sets <variable> to the answer. <board> is the path of a board file, relative to
# the current source directory. If the tool fails, configuration stops with its error message. CMake
# reconfigures when the board file or one of its model files changes.
function(vemo_boardspec_query variable board command)
    get_filename_component(board "${board}" ABSOLUTE)
    get_target_property(tool vemo::vemo-boardspec LOCATION)
    execute_process(COMMAND "${tool}" "${board}" "${command}"
        WORKING_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}"
        RESULT_VARIABLE status OUTPUT_VARIABLE answer ERROR_VARIABLE errors)
    if(NOT status EQUAL 0)
        # message() does not reflow indented lines.
        string(REPLACE "\n" "\n  " text "${answer}${errors}")
        message(FATAL_ERROR "vemo-boardspec failed (${status}):\n  ${text}")
    endif()
    set(${variable} "${answer}" PARENT_SCOPE)

    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${board}")
    foreach(model resolved_devicemodel resolved_targetmodel)
        execute_process(COMMAND "${tool}" "${board}" ${model}
            WORKING_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}"
            OUTPUT_VARIABLE file)
        get_filename_component(file "${file}" ABSOLUTE)
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${file}")
    endforeach()
endfunction()
