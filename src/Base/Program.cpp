#include "Base/Program.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <new>

namespace vemo {
namespace {

const char* program_name = "";
std::FILE* error_stream = nullptr;

[[noreturn]] void run_out_of_memory() {
    std::fputs("Error: out of memory\n", error_stream);
    finish_output();
    std::exit(EXIT_FAILURE);
}

}  // namespace

bool set_up_program(const char* name, std::FILE* errors) {
    program_name = name;
    error_stream = errors;
    std::set_new_handler(run_out_of_memory);
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    return true;
}

void write_output(std::string_view text) { std::fwrite(text.data(), 1, text.size(), stdout); }

bool finish_output() {
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) {
        return true;
    }
    std::fprintf(stderr, "%s: cannot write to standard output: %s\n", program_name,
                 std::strerror(errno));
    return false;
}

}  // namespace vemo
