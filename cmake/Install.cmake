# Installation rules. No installed file contains the prefix or a path of the build machine, so the
# installed tree is relocatable.

include(CMakePackageConfigHelpers)

set(vemo_include_dir "${CMAKE_INSTALL_INCLUDEDIR}/vemo-boardspec")
set(vemo_package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/vemo-boardspec")
set(vemo_schema_dir "${CMAKE_INSTALL_DATADIR}/vemo-boardspec/schema")

# vemo_install_text(FILES|PROGRAMS <destination> <file>...): installs text files of the source tree
# after replacing @VARIABLES@ such as @PROJECT_VERSION@.
function(vemo_install_text kind destination)
    foreach(file IN LISTS ARGN)
        configure_file("${PROJECT_SOURCE_DIR}/${file}" "${PROJECT_BINARY_DIR}/${file}" @ONLY)
        install(${kind} "${PROJECT_BINARY_DIR}/${file}" DESTINATION "${destination}")
    endforeach()
endfunction()

# The programs and the library with its headers.
set(vemo_programs vemo-boardspec)
if(VEMO_BUILD_DUMP)
    list(APPEND vemo_programs vemo-boardspec-dump)
endif()
install(TARGETS ${vemo_programs} vemo-boardspec-lib
    EXPORT vemo-boardspec-targets
    FILE_SET HEADERS DESTINATION "${vemo_include_dir}")

vemo_install_text(PROGRAMS "${CMAKE_INSTALL_BINDIR}" programs/vemo-boardspec-lint)
list(APPEND vemo_programs vemo-boardspec-lint)

# The CMake package.
install(EXPORT vemo-boardspec-targets NAMESPACE vemo:: DESTINATION "${vemo_package_dir}")
write_basic_package_version_file(vemo-boardspec-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES
        cmake/Tinyxml2.cmake
        cmake/vemo-boardspec-config.cmake
        "${CMAKE_CURRENT_BINARY_DIR}/vemo-boardspec-config-version.cmake"
    DESTINATION "${vemo_package_dir}")

# The pkg-config file, which derives the prefix from its own location.
set(pc_dir "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
file(RELATIVE_PATH pc_to_prefix "${CMAKE_INSTALL_PREFIX}/${pc_dir}" "${CMAKE_INSTALL_PREFIX}")
vemo_install_text(FILES "${pc_dir}" cmake/vemo-boardspec.pc)

# The schemas, with the catalog in which editors look them up.
install(DIRECTORY schema/ DESTINATION "${vemo_schema_dir}")

# Manual pages and completions. bash and fish look for a file named after the program; in zsh, one
# file lists its programs.
set(VEMO_ZSH_COMPLETION_DIR "${CMAKE_INSTALL_DATADIR}/zsh/site-functions" CACHE STRING
    "Install directory of zsh completion functions")
foreach(program IN LISTS vemo_programs)
    vemo_install_text(FILES "${CMAKE_INSTALL_MANDIR}/man1" man/${program}.1)
    install(FILES completions/vemo-boardspec.bash RENAME ${program}
        DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions")
    install(FILES completions/vemo-boardspec.fish RENAME ${program}.fish
        DESTINATION "${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d")
endforeach()
vemo_install_text(FILES "${CMAKE_INSTALL_MANDIR}/man5"
    man/vemo-board-spec.5 man/vemo-device-model.5 man/vemo-target-model.5)
install(FILES completions/_vemo-boardspec DESTINATION "${VEMO_ZSH_COMPLETION_DIR}")
