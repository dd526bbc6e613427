// replay FOLDER...: runs a harness on each file of the folders, without the fuzzing engine, and
// prints what the readers report about them, each report once. Fails unless the files break every
// expected invariant.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include "loading.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

static std::set<std::string> reports;

static void replay(const std::filesystem::path& file) {
    std::fprintf(stderr, "%s\n", file.c_str());  // the last one is to blame
    std::ifstream stream(file, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), {}};
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

int main(int argc, char** argv) {
    vemo::fuzz::watch_report = [](const std::string& text) { reports.insert(text); };
    std::vector<std::filesystem::path> files;
    for (int i = 1; i < argc; ++i) {
        for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
            files.push_back(std::filesystem::absolute(entry.path()));
        }
    }
    for (const auto& file : files) {  // a harness may change the working directory
        replay(file);
    }
    for (const std::string& report : reports) {
        std::fputs(report.c_str(), stdout);
    }
    const auto unbroken = vemo::fuzz::unbroken_invariants();
    for (const std::string& invariant : unbroken) {
        std::fprintf(stderr, "no input breaks the expected invariant %s\n", invariant.c_str());
    }
    return unbroken.empty() ? EXIT_SUCCESS : EXIT_FAILURE;
}
