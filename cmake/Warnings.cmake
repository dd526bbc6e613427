# Link to vemo_warnings to compile a target with the warnings of this project.

option(VEMO_WERROR "Treat compiler warnings as errors" OFF)

add_library(vemo_warnings INTERFACE)
target_compile_options(vemo_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    $<$<BOOL:${VEMO_WERROR}>:-Werror>)
