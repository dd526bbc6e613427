# Link vemo_warnings to compile a target of this project with its warnings.

option(VEMO_WERROR "Treat compiler warnings as errors" OFF)

add_library(vemo_warnings INTERFACE)
target_compile_options(vemo_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    $<$<BOOL:${VEMO_WERROR}>:-Werror>)
