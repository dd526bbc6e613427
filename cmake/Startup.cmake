# Link vemo_startup to a program for a short start; docs/performance.md tells what each flag gains.

add_library(vemo_startup INTERFACE)

# What a program does not use costs it no relocation.
target_compile_options(vemo_startup INTERFACE -ffunction-sections -fdata-sections)
target_link_options(vemo_startup INTERFACE LINKER:--gc-sections)

# The dynamic linker looks for a symbol in one library after the other. Nearly all that it looks for
# are the C++ library's own, so that one goes first. (Not with sanitizers, whose libraries must.)
if(NOT "${CMAKE_CXX_FLAGS} ${CMAKE_EXE_LINKER_FLAGS}" MATCHES "-fsanitize|-stdlib=libc|-static")
    target_link_options(vemo_startup INTERFACE
        LINKER:--push-state,--no-as-needed,-lstdc++,--pop-state)
endif()
