# With VEMO_STATIC, programs are self-contained and tinyxml2::tinyxml2 is a static library, which is
# searched for in CMAKE_PREFIX_PATH.

option(VEMO_STATIC "Build self-contained programs (needs libtinyxml2.a)" OFF)

if(VEMO_STATIC)
    find_library(VEMO_STATIC_TINYXML2 libtinyxml2.a)
    find_path(VEMO_STATIC_TINYXML2_INCLUDE_DIR tinyxml2.h)
    if(NOT VEMO_STATIC_TINYXML2 OR NOT VEMO_STATIC_TINYXML2_INCLUDE_DIR)
        message(FATAL_ERROR "A static build needs libtinyxml2.a and tinyxml2.h, which Debian does not "
            "provide: build tinyxml2 with BUILD_SHARED_LIBS=OFF, install it, and add its prefix to "
            "CMAKE_PREFIX_PATH")
    endif()
    add_library(tinyxml2::tinyxml2 STATIC IMPORTED)
    set_target_properties(tinyxml2::tinyxml2 PROPERTIES
        IMPORTED_LOCATION "${VEMO_STATIC_TINYXML2}"
        INTERFACE_INCLUDE_DIRECTORIES "${VEMO_STATIC_TINYXML2_INCLUDE_DIR}")

    # A position-independent program would have to relocate itself at each start.
    string(APPEND CMAKE_EXE_LINKER_FLAGS " -static")
endif()
