# shellcheck shell=bash

# calls_of PROGRAM NAMESPACE: the functions that the functions of a C++ namespace call in a
# self-contained program. These are known for a program that is not stripped.
calls_of() {
    objdump --disassemble --demangle --no-show-raw-insn "$1" | awk -v start="^[0-9a-f]+ <$2::" '
        /^[0-9a-f]+ </ { inside = $0 ~ start }
        inside && $2 == "call" { print $NF }'
}

# missing_calls SYMBOLS: which functions of a hardened program are not among the symbols, one per line.
missing_calls() {
    grep -qw '__stack_chk_fail' <<<"$1" || echo "stack protection"
    grep -qE '\b_{2,3}[a-z]+_chk\b' <<<"$1" || echo "fortified functions"
}

# missing_hardening PROGRAM...: what the programs lack of a hardened build, one per line. Needs
# binutils.
missing_hardening() {
    local program headers dynamic
    for program in "$@"; do
        headers=$(readelf --wide --file-header --program-headers "$program")
        dynamic=$(readelf --wide --dynamic "$program")
        {
            grep -q 'FLAGS_1.*PIE' <<<"$dynamic" || echo "position independence (PIE)"
            grep -q 'GNU_RELRO' <<<"$headers" || echo "read-only relocations (RELRO)"
            grep -q 'FLAGS.*NOW' <<<"$dynamic" || echo "binding at start (BIND_NOW)"
            grep -q 'GNU_STACK .* RW ' <<<"$headers" || echo "a non-executable stack"
            ! grep -qE '\((RPATH|RUNPATH)\)' <<<"$dynamic" || echo "no RPATH or RUNPATH"
            if grep -q 'INTERP' <<<"$headers"; then
                missing_calls "$(readelf --wide --dyn-syms "$program")"
            else # the C library in it has these functions in any case
                missing_calls "$(calls_of "$program" vemo)" | sed 's/$/ of its own code/'
                missing_calls "$(calls_of "$program" tinyxml2)" | sed 's/$/ of tinyxml2/'
            fi
        } | sed "s|^|$program: |"
    done
}
