# Defines tinyxml2::tinyxml2: from the library's own CMake package, else from pkg-config. It is for
# the includer to test whether the target exists. (Also installed: part of the CMake package.)

find_package(tinyxml2 CONFIG QUIET)
if(NOT TARGET tinyxml2::tinyxml2)
    find_package(PkgConfig QUIET)
    if(PKG_CONFIG_FOUND)
        pkg_check_modules(tinyxml2 QUIET IMPORTED_TARGET tinyxml2)
    endif()
    if(TARGET PkgConfig::tinyxml2)
        add_library(tinyxml2::tinyxml2 INTERFACE IMPORTED)
        target_link_libraries(tinyxml2::tinyxml2 INTERFACE PkgConfig::tinyxml2)
    endif()
endif()
