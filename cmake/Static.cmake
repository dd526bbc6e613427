# With VEMO_STATIC, programs are self-contained and contain tinyxml2: compiled from the folder
# VEMO_TINYXML2_SOURCE, or from a libtinyxml2.a that is searched for in CMAKE_PREFIX_PATH. Include
# this file after Hardening.cmake.

option(VEMO_STATIC "Build self-contained programs (VEMO_TINYXML2_SOURCE or libtinyxml2.a)" OFF)
set(VEMO_TINYXML2_SOURCE "" CACHE PATH "Source folder of tinyxml2, for VEMO_STATIC")

if(VEMO_TINYXML2_SOURCE AND NOT VEMO_STATIC)
    message(FATAL_ERROR "VEMO_TINYXML2_SOURCE needs VEMO_STATIC=ON (the preset static sets it)")
endif()

if(VEMO_TINYXML2_SOURCE)
    foreach(file IN ITEMS tinyxml2.cpp tinyxml2.h)
        if(NOT EXISTS "${VEMO_TINYXML2_SOURCE}/${file}")
            message(FATAL_ERROR "VEMO_TINYXML2_SOURCE (${VEMO_TINYXML2_SOURCE}) has no ${file}; "
                "scripts/fetch-tinyxml2 gets the source of tinyxml2")
        endif()
    endforeach()
    add_library(vemo_tinyxml2 STATIC "${VEMO_TINYXML2_SOURCE}/tinyxml2.cpp")
    target_include_directories(vemo_tinyxml2 SYSTEM PUBLIC "${VEMO_TINYXML2_SOURCE}")
    target_compile_options(vemo_tinyxml2 PRIVATE "-ffile-prefix-map=${VEMO_TINYXML2_SOURCE}/=")
    target_link_libraries(vemo_tinyxml2 PRIVATE vemo_hardening vemo_startup)
    # Imported, so that the installed library refers to the tinyxml2 of its user.
    add_library(tinyxml2::tinyxml2 INTERFACE IMPORTED)
    target_link_libraries(tinyxml2::tinyxml2 INTERFACE vemo_tinyxml2)
elseif(VEMO_STATIC)
    find_library(VEMO_STATIC_TINYXML2 libtinyxml2.a)
    find_path(VEMO_STATIC_TINYXML2_INCLUDE_DIR tinyxml2.h)
    if(NOT VEMO_STATIC_TINYXML2 OR NOT VEMO_STATIC_TINYXML2_INCLUDE_DIR)
        message(FATAL_ERROR "A static build compiles tinyxml2: set VEMO_TINYXML2_SOURCE to the "
            "folder that scripts/fetch-tinyxml2 prints. (Or add the prefix of a libtinyxml2.a, "
            "which Debian does not provide, to CMAKE_PREFIX_PATH.)")
    endif()
    add_library(tinyxml2::tinyxml2 STATIC IMPORTED)
    set_target_properties(tinyxml2::tinyxml2 PROPERTIES
        IMPORTED_LOCATION "${VEMO_STATIC_TINYXML2}"
        INTERFACE_INCLUDE_DIRECTORIES "${VEMO_STATIC_TINYXML2_INCLUDE_DIR}")
endif()

if(VEMO_STATIC AND CMAKE_POSITION_INDEPENDENT_CODE AND CMAKE_CXX_LINK_PIE_SUPPORTED)
    # In place of -pie, which would prevail over an option of our own.
    set(CMAKE_CXX_LINK_OPTIONS_PIE -fPIE -static-pie)
    set(CMAKE_CXX_COMPILE_OPTIONS_PIC -fPIE)
elseif(VEMO_STATIC)
    add_link_options(-static)
endif()
