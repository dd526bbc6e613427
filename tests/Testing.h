#pragma once

#include <cmath>
#include <functional>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

// What the tests share, besides the documents of Xml.h.

/// An action that breaks an invariant, and the condition that the run then dies with.
struct Abort {
    std::string condition;
    std::function<void()> action;
};
void expect_aborts(const std::vector<Abort>& aborts);

template <typename T>
std::string dump(const T& value) {
    std::ostringstream text;
    text << value;
    return text.str();
}

std::vector<std::string> split(const std::string& text, const std::string& separator);

std::string read_file(const std::string& path);

/// A file of data/. The test fails if there is none.
std::string read_data(const std::string& file);

/// `text` with every occurrence of each name replaced by its value.
std::string fill(std::string text, const std::vector<std::pair<std::string, std::string>>& values);

/// A new directory for files of a test, removed with everything in it.
class TempDir {
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    std::string operator/(const std::string& file) const { return path + "/" + file; }

    /// Writes a file in the directory, making the directories above it.
    void write(const std::string& file, const std::string& text) const;
    std::string read(const std::string& file) const;

    std::string path;
};
