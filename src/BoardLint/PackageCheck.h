#pragma once

#include <cstddef>
#include <deque>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <sys/types.h>
#include <tinyxml2.h>

#include "BoardLint/FileCheck.h"
#include "BoardLint/Finding.h"
#include "BoardLint/SourceText.h"

namespace vemo::lint {

/// Checks files, and the files that they lead to: a board leads to its device model, and this to
/// its target model. Each file is checked once.
class PackageCheck {
public:
    /// Stops when there are `max_findings`.
    explicit PackageCheck(std::size_t max_findings) : m_max_findings(max_findings) {}

    /// Checks the file `path`. Its root element determines what it is; a file that is called
    /// board_spec.xml, or has another root, is a board. Returns false, with errno set, if the file
    /// cannot be opened.
    bool check(const std::string& path);

    /// In the order of the files: a board, its device model, its target model.
    const std::vector<Finding>& findings() const { return m_findings; }

    /// What was not checked, or was checked instead: messages for people, without a full stop. If
    /// there are any, there are findings too.
    const std::vector<std::string>& remarks() const { return m_remarks; }

    /// The texts of the files.
    const Sources& sources() const { return m_sources; }

    /// A file that was checked.
    struct File {
        std::string path;
        Format format;
        SourceText* text;
        std::unique_ptr<tinyxml2::XMLDocument> doc;
        std::unique_ptr<FileCheck> check;
        File* model = nullptr;  ///< The model that it leads to, if that could be parsed.
    };

    /// All files that were checked.
    const std::deque<File>& files() const { return m_files; }

private:
    using Key = std::tuple<dev_t, ino_t, Format>;

    /// Checks a file that has been opened as `fd`, which is closed. Null if it was not parsed.
    File* check_file(const std::string& path, int fd, const Format* format);

    /// Follows the reference in `file` to a model.
    void follow(File& file);
    void add(Finding finding);

    std::size_t m_max_findings;
    std::vector<Finding> m_findings;
    std::vector<std::string> m_remarks;
    Sources m_sources;
    std::deque<File> m_files;
    std::map<Key, File*> m_checked;    // null for a file that could not be parsed
    std::set<std::string> m_followed;  // paths of files
};

}  // namespace vemo::lint
