// vemo-boardspec-lint: every mistake in a board package.

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "Base/Program.h"
#include "BoardLint/PackageCheck.h"

int main(int argc, char** argv) {
    vemo::set_up_program("vemo-boardspec-lint", stderr);
    vemo::lint::PackageCheck check(100);
    int status = 0;
    for (int i = 1; i < argc; ++i) {
        if (!check.check(argv[i])) {
            std::fprintf(stderr, "vemo-boardspec-lint: cannot open '%s': %s\n", argv[i],
                         std::strerror(errno));
            status = 2;
        }
    }
    for (const auto& f : check.findings()) {
        std::printf("%s:%u:%u: error: %s [%s]%s%s\n", f.location.file.c_str(), f.location.line,
                    f.location.column, f.message.c_str(), f.id.c_str(),
                    f.suggestion.empty() ? "" : " did you mean ", f.suggestion.c_str());
        for (const auto& n : f.notes) {
            std::printf("%s:%u:%u: note: %s\n", n.location.file.c_str(), n.location.line,
                        n.location.column, n.text.c_str());
        }
    }
    for (const auto& n : check.incomplete_files()) {
        std::printf("incomplete: %s\n", n.c_str());
    }
    return status != 0 ? status : check.findings().empty() ? 0 : 1;
}
