# Link vemo_hardening to build a target the way Debian hardens its programs, with the assertions of
# the C++ library on top. What the builder's own flags already say is left to them.

option(VEMO_HARDENING "Build with hardening flags and C++ library assertions" ON)

add_library(vemo_hardening INTERFACE)

if(VEMO_HARDENING)
    include(CheckPIESupported)
    check_pie_supported()

    # vemo_harden(FLAGS PATTERN KIND FLAG...): adds flags unless FLAGS, the builder's, match PATTERN.
    function(vemo_harden builder_flags pattern kind)
        if("${builder_flags}" MATCHES "${pattern}")
            return()
        endif()
        cmake_language(CALL "target_${kind}" vemo_hardening INTERFACE ${ARGN})
    endfunction()

    set(optimized "$<CONFIG:Release,RelWithDebInfo,MinSizeRel>")  # _FORTIFY_SOURCE needs it
    vemo_harden("${CMAKE_CXX_FLAGS}" "stack-protector" compile_options -fstack-protector-strong)
    vemo_harden("${CMAKE_CXX_FLAGS}" "format-security" compile_options -Wformat -Werror=format-security)
    vemo_harden("${CMAKE_CXX_FLAGS}" "_FORTIFY_SOURCE" compile_definitions "$<${optimized}:_FORTIFY_SOURCE=2>")
    vemo_harden("${CMAKE_CXX_FLAGS}" "_GLIBCXX_ASSERTIONS" compile_definitions _GLIBCXX_ASSERTIONS)
    vemo_harden("${CMAKE_EXE_LINKER_FLAGS}" "z,(no)?relro" link_options LINKER:-z,relro)
    vemo_harden("${CMAKE_EXE_LINKER_FLAGS}" "z,(now|lazy)" link_options LINKER:-z,now)
    if(NOT CMAKE_CXX_FLAGS MATCHES "pie|PIE")
        set(CMAKE_POSITION_INDEPENDENT_CODE ON)
    endif()
endif()
