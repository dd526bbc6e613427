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
if(VEMO_BUILD_LINT)
    list(APPEND vemo_programs vemo-boardspec-lint)
endif()
install(TARGETS ${vemo_programs} vemo-boardspec-lib
    EXPORT vemo-boardspec-targets
    FILE_SET HEADERS DESTINATION "${vemo_include_dir}")

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

# The schemas, with the catalog in which editors look them up, and that of the JSON output.
install(DIRECTORY schema/ DESTINATION "${vemo_schema_dir}" PATTERN "*.json" EXCLUDE)
if(VEMO_BUILD_DUMP)
    install(FILES schema/board.schema.json DESTINATION "${CMAKE_INSTALL_DATADIR}/vemo-boardspec")
endif()

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

# vemo_install_page(<file>): installs a Markdown page without its parts about the source tree, which
# stand between comments. Links to the schemas lead to the installed ones.
function(vemo_install_page page)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${page}")
    file(READ "${PROJECT_SOURCE_DIR}/${page}" text)
    set(begin "<!-- source tree -->\n")
    set(end "<!-- /source tree -->\n")
    string(LENGTH "${end}" end_length)
    string(FIND "${text}" "${begin}" from)
    while(from GREATER_EQUAL 0)
        string(SUBSTRING "${text}" 0 ${from} before)
        string(FIND "${text}" "${end}" to)
        math(EXPR to "${to} + ${end_length}")
        string(SUBSTRING "${text}" ${to} -1 after)
        set(text "${before}${after}")
        string(FIND "${text}" "${begin}" from)
    endwhile()

    get_filename_component(destination "${CMAKE_INSTALL_DOCDIR}/${page}" DIRECTORY)
    file(RELATIVE_PATH schemas "/${destination}" "/${vemo_schema_dir}")
    string(REPLACE "](../schema" "](${schemas}" text "${text}")
    file(WRITE "${PROJECT_BINARY_DIR}/installed/${page}" "${text}")
    install(FILES "${PROJECT_BINARY_DIR}/installed/${page}" DESTINATION "${destination}")
endfunction()

# The pages for users, and what they refer to.
vemo_install_page(README.md)
vemo_install_page(docs/schemas.md)
install(FILES docs/teasel.svg DESTINATION "${CMAKE_INSTALL_DOCDIR}/docs")
install(FILES CHANGELOG.md DESTINATION "${CMAKE_INSTALL_DOCDIR}")
install(DIRECTORY editors examples DESTINATION "${CMAKE_INSTALL_DOCDIR}" USE_SOURCE_PERMISSIONS)
