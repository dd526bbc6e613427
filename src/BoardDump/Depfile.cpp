#include "BoardDump/Depfile.h"

#include <cstddef>
#include <stdexcept>

namespace vemo::dump {
namespace {

/// `name` with a backslash before each of the characters `special`. Backslashes before such a
/// character or at the end are doubled; others are not special.
std::string escaped(const std::string& name, const std::string& special) {
    if (name.find_first_of("\n;") != std::string::npos) {
        throw std::runtime_error("A depfile cannot contain the file name '" + name + "'");
    }
    std::string text;
    std::size_t num_backslashes = 0;  // right before c
    for (const char c : name) {
        if (special.find(c) != std::string::npos) {
            text.append(num_backslashes + 1, '\\');
        } else if (c == '$') {
            text += '$';
        }
        text += c;
        num_backslashes = c == '\\' ? num_backslashes + 1 : 0;
    }
    return text.append(num_backslashes, '\\');
}

std::string target_text(const std::string& name) { return escaped(name, " \t#:%"); }

std::string file_text(const std::string& name) { return escaped(name, " \t#:|"); }

/// Whether make or ninja would not read "name:" as a rule for this name.
bool has_other_meaning(const std::string& name) {
    return name.find_first_of("=%\t") != std::string::npos;
}

}  // namespace

std::string depfile_text(const std::string& target, const std::vector<std::string>& files) {
    std::string text = target_text(target) + ":";
    if (files.front().find('=') != std::string::npos) {
        text += " /dev/null";  // a rule whose first word has a = would be an assignment
    }
    for (const std::string& file : files) {
        text += " " + file_text(file);
    }
    text += "\n";
    for (const std::string& file : files) {
        if (!has_other_meaning(file)) {
            text += target_text(file) + ":\n";
        }
    }
    return text;
}

}  // namespace vemo::dump
