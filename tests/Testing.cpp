#include "Testing.h"

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

void expect_aborts(const std::vector<Abort>& aborts) {
    for (const Abort& abort : aborts) {
        std::string pattern;
        for (const char c : abort.condition) {
            pattern += std::string(".[{}()\\*+?|^$").find(c) == std::string::npos ? "" : "\\";
            pattern += c;
        }
        EXPECT_EXIT(abort.action(), ::testing::KilledBySignal(SIGABRT), pattern);
    }
}

std::vector<std::string> split(const std::string& text, const std::string& separator) {
    std::vector<std::string> pieces;
    std::size_t start = 0;
    for (std::size_t end; (end = text.find(separator, start)) != std::string::npos;
         start = end + separator.size()) {
        pieces.push_back(text.substr(start, end - start));
    }
    pieces.push_back(text.substr(start));
    return pieces;
}

std::string fill(std::string text, const std::vector<std::pair<std::string, std::string>>& values) {
    for (const auto& [name, value] : values) {
        std::string filled;
        for (const std::string& piece : split(text, name)) {
            filled += piece + value;
        }
        text = filled.substr(0, filled.size() - value.size());
    }
    return text;
}

std::string read_file(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::string read_data(const std::string& file) {
    std::string text = read_file(VEMO_TEST_DATA "/" + file);
    EXPECT_NE(text, "") << file;
    return text;
}

TempDir::TempDir() : path(::testing::TempDir() + "vemo-XXXXXX") {
    EXPECT_NE(mkdtemp(path.data()), nullptr) << path;
}

TempDir::~TempDir() { std::filesystem::remove_all(path); }

void TempDir::write(const std::string& file, const std::string& text) const {
    const std::filesystem::path target = *this / file;
    std::filesystem::create_directories(target.parent_path());
    std::ofstream(target, std::ios::binary) << text;
}

std::string TempDir::read(const std::string& file) const { return read_file(*this / file); }
