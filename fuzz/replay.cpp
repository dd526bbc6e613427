// replay FOLDER...: runs a harness on each file of the folders, without the fuzzing engine. Fails
// unless these break every expected invariant.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "expected_invariants.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

static void replay(const std::filesystem::path& file) {
    std::fprintf(stderr, "%s\n", file.c_str());  // the last one is to blame
    std::ifstream stream(file, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), {}};
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

int main(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
            replay(entry.path());
        }
    }
    const auto unbroken = vemo::fuzz::unbroken_invariants();
    for (const std::string& invariant : unbroken) {
        std::fprintf(stderr, "no input breaks the expected invariant %s\n", invariant.c_str());
    }
    return unbroken.empty() ? EXIT_SUCCESS : EXIT_FAILURE;
}
