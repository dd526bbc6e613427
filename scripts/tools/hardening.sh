# shellcheck shell=bash

# missing_hardening PROGRAM...: what the programs lack of a hardened build, one per line. Needs
# binutils.
missing_hardening() {
    local program headers dynamic symbols
    for program in "$@"; do
        headers=$(readelf --wide --file-header --program-headers "$program")
        dynamic=$(readelf --wide --dynamic "$program")
        symbols=$(readelf --wide --dyn-syms "$program")
        grep -q 'FLAGS_1.*PIE' <<<"$dynamic" || echo "$program: position independence (PIE)"
        grep -q 'GNU_RELRO' <<<"$headers" || echo "$program: read-only relocations (RELRO)"
        grep -q 'FLAGS.*NOW' <<<"$dynamic" || echo "$program: binding at start (BIND_NOW)"
        grep -q 'GNU_STACK .* RW ' <<<"$headers" || echo "$program: a non-executable stack"
        ! grep -qE '\((RPATH|RUNPATH)\)' <<<"$dynamic" || echo "$program: no RPATH or RUNPATH"
        grep -qw '__stack_chk_fail' <<<"$symbols" || echo "$program: stack protection"
        grep -qE ' __[a-z]+_chk\b' <<<"$symbols" || echo "$program: fortified functions"
    done
}
