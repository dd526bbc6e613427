# Link to vemo_hardening to build a target with the hardening flags of Debian and the assertions of
# the C++ library. Flags that the builder has set take precedence.

option(VEMO_HARDENING "Build with hardening flags and C++ library assertions" ON)

add_library(vemo_hardening INTERFACE)

if(VEMO_HARDENING)
    include(CheckPIESupported)
    check_pie_supported()

    string(TOUPPER "${CMAKE_BUILD_TYPE}" config)
    set(compile_flags "${CMAKE_CXX_FLAGS} ${CMAKE_CXX_FLAGS_${config}}")
    set(link_flags "${CMAKE_EXE_LINKER_FLAGS} ${CMAKE_EXE_LINKER_FLAGS_${config}} ${compile_flags}")

    # vemo_harden(FLAGS PATTERN KIND FLAG...): adds each FLAG unless the builder's FLAGS match
    # PATTERN.
    function(vemo_harden builder_flags pattern kind)
        if("${builder_flags}" MATCHES "${pattern}")
            return()
        endif()
        cmake_language(CALL "target_${kind}" vemo_hardening INTERFACE ${ARGN})
    endfunction()

    set(optimized "$<CONFIG:Release,RelWithDebInfo,MinSizeRel>")  # required by _FORTIFY_SOURCE
    vemo_harden("${compile_flags}" "stack-protector" compile_options -fstack-protector-strong)
    vemo_harden("${compile_flags}" "format-security" compile_options -Wformat -Werror=format-security)
    vemo_harden("${compile_flags}" "_FORTIFY_SOURCE" compile_definitions "$<${optimized}:_FORTIFY_SOURCE=2>")
    vemo_harden("${compile_flags}" "_GLIBCXX_ASSERTIONS" compile_definitions _GLIBCXX_ASSERTIONS)
    vemo_harden("${link_flags}" "z[, ](no)?relro" link_options LINKER:-z,relro)
    vemo_harden("${link_flags}" "z[, ](now|lazy)" link_options LINKER:-z,now)
    if(NOT DEFINED CMAKE_POSITION_INDEPENDENT_CODE AND NOT link_flags MATCHES "pie|PIE|-static( |$)")
        set(CMAKE_POSITION_INDEPENDENT_CODE ON)
    endif()
endif()
