# CMake package vemo-boardspec: the library vemo::boardspec, the program vemo::vemo-boardspec and
# the function vemo_boardspec_query.

include("${CMAKE_CURRENT_LIST_DIR}/Tinyxml2.cmake")
if(NOT TARGET tinyxml2::tinyxml2)
    set(${CMAKE_FIND_PACKAGE_NAME}_FOUND FALSE)
    set(${CMAKE_FIND_PACKAGE_NAME}_NOT_FOUND_MESSAGE "It needs tinyxml2, which was not found.")
    return()
endif()
include("${CMAKE_CURRENT_LIST_DIR}/vemo-boardspec-targets.cmake")

# vemo_boardspec_query(<variable> <board> <command>)
#
# Asks the tool one question and sets <variable> to the answer. <board> is the path of a board file,
# relative to the current source directory. A failure ends the configure run with what the tool has
# to say. The run is repeated when the board file or a model file that it leads to has changed.
function(vemo_boardspec_query variable board command)
    get_filename_component(board "${board}" ABSOLUTE)
    get_target_property(tool vemo::vemo-boardspec LOCATION)
    execute_process(COMMAND "${tool}" "${board}" "${command}"
        WORKING_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}"
        RESULT_VARIABLE status OUTPUT_VARIABLE answer ERROR_VARIABLE errors)
    if(NOT status EQUAL 0)
        # Indented lines are those that message() does not fill anew.
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
