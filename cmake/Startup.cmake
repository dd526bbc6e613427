# Link to vemo_startup to reduce the start-up time of a program. docs/performance.md has the effect
# of each flag.

add_library(vemo_startup INTERFACE)

# Unused code needs no relocations.
target_compile_options(vemo_startup INTERFACE -ffunction-sections -fdata-sections)
target_link_options(vemo_startup INTERFACE LINKER:--gc-sections)

# The dynamic linker searches the libraries in link order. Nearly all symbols are those of the C++
# library, so it comes first. (Except with sanitizers, whose libraries must be first.)
if(NOT VEMO_STATIC
    AND NOT "${CMAKE_CXX_FLAGS} ${CMAKE_EXE_LINKER_FLAGS}" MATCHES "-fsanitize|-stdlib=libc|-static")
    target_link_options(vemo_startup INTERFACE
        LINKER:--push-state,--no-as-needed,-lstdc++,--pop-state)
endif()
