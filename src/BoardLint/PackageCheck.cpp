#include "BoardLint/PackageCheck.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "Base/FilePath.h"
#include "Base/OpenForReading.h"
#include "Base/SdkModelPath.h"
#include "Base/TriedPaths.h"
#include "BaseXmlLoader.h"
#include "DeviceModelXmlLoader.h"
#include "TargetModelXmlLoader.h"

namespace vemo::lint {
namespace {

using tinyxml2::XMLDocument;

/// A kind of model that another file refers to.
struct ModelKind {
    Format format;
    const char* name;
};
constexpr ModelKind DEVICE_MODEL = {Format::DeviceModel, "device model"};
constexpr ModelKind TARGET_MODEL = {Format::TargetModel, "target model"};

constexpr const char* BOARD_FILE_NAME = "board_spec.xml";

bool is_regular_file(int fd) {
    struct stat status = {};
    return fstat(fd, &status) == 0 && S_ISREG(status.st_mode);
}

/// Reads a regular file into `*text`. False if it is none or cannot be read.
bool read_text(int fd, std::string* text) {
    if (!is_regular_file(fd)) {
        return false;
    }
    char block[65536];
    while (true) {
        const ssize_t size = read(fd, block, sizeof block);
        if (size > 0) {
            text->append(block, static_cast<std::size_t>(size));
        } else if (size == 0 || errno != EINTR) {
            return size == 0;
        }
    }
}

/// Parses a file as the tool does. `*text` receives its contents, if they can be read.
std::unique_ptr<XMLDocument> parse(const std::string& path, int fd, std::string* text) {
    auto doc = std::make_unique<XMLDocument>();
    if (read_text(fd, text)) {
        doc->Parse(text->data(), text->size());
    } else {
        text->clear();
        doc->LoadFile(opens_without_waiting(path.c_str()) ? path.c_str() : "");
    }
    return doc;
}

Format format_of(const std::string& path, const XMLDocument& doc) {
    const tinyxml2::XMLElement* root = doc.RootElement();
    if (root == nullptr || std::filesystem::path(path).filename() == BOARD_FILE_NAME) {
        return Format::Board;
    }
    for (const Format format : {Format::DeviceModel, Format::TargetModel}) {
        if (std::string_view(root->Name()) == root_name(format)) {
            return format;
        }
    }
    return Format::Board;
}

/// The only file beside `referrer` that has the root element of a model and ends in ".xml"; empty
/// when there is none, or several.
std::string lone_model(const ModelKind& kind, const std::string& referrer) {
    std::string found;
    std::error_code error;
    const std::string folder = FilePath::parent_path(referrer);
    for (std::filesystem::directory_iterator entry(folder.empty() ? "." : folder, error), end;
         entry != end; entry.increment(error)) {
        const std::filesystem::path name = entry->path().filename();
        XMLDocument doc;
        if (name.extension() == ".xml" && entry->is_regular_file(error)
            && doc.LoadFile(entry->path().c_str()) == tinyxml2::XML_SUCCESS
            && format_of(name, doc) == kind.format) {
            if (!found.empty()) {
                return "";
            }
            found = FilePath::append(folder, name);
        }
    }
    return found;
}

/// The message of the tool about a document that was not parsed, in one line.
std::string parse_error(XMLDocument* doc) {
    vemo::xml::BaseXmlLoader loader;
    loader.set_last_error(doc);
    std::string text = loader.get_error(0);
    text.erase(text.find_last_not_of('\n') + 1);
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

std::string find_model(const ModelKind& kind, const std::string& name, const std::string& referrer,
                       TriedPaths* tried) {
    return kind.format == Format::DeviceModel
               ? dmodel::DeviceModelXmlLoader().resolve_device_model_file(name, referrer, tried)
               : tmodel::TargetModelXmlLoader().resolve_target_model_file(name, referrer, tried);
}

/// Opens the model that was found at `path`. -1 if there is none, or no file that can be read.
int open_model(const std::string& path) {
    const int fd = path.empty() ? -1 : open_for_reading(path.c_str());
    if (fd != -1 && !is_regular_file(fd)) {
        close(fd);
        return -1;
    }
    return fd;
}

/// About a model that cannot be opened: where it was searched, or what was found at `path`.
Finding missing_model(const ModelKind& kind, const std::string& name, const TriedPaths& tried,
                      const std::string& path) {
    Finding finding;
    finding.id = "model-not-found";
    finding.message = std::string(path.empty() ? "Cannot find the " : "Cannot read the ")
                      + kind.name + " '" + name + "'.";
    if (!path.empty()) {
        finding.notes.push_back(
            {Location(), "'" + path + "' cannot be opened or is not a regular file"});
        return finding;
    }
    for (const std::string& place : tried) {
        finding.notes.push_back({Location(), "tried '" + place + "'"});
    }
    if (!FilePath::is_absolute(name) && std::getenv(SDK_ROOT_VARIABLE) == nullptr) {
        finding.notes.push_back({Location(), std::string("not searched in a development kit: ")
                                                 + SDK_ROOT_VARIABLE + " is not set"});
    }
    return finding;
}

}  // namespace

bool PackageCheck::check(const std::string& path) {
    const int fd = open_for_reading(path.c_str());
    if (fd == -1) {
        return false;
    }
    File* file = check_file(path, fd, nullptr);
    if (file != nullptr) {
        follow(*file);
    }
    return true;
}

PackageCheck::File* PackageCheck::check_file(const std::string& path, int fd,
                                             const Format* format) {
    struct stat status = {};
    fstat(fd, &status);
    if (format != nullptr) {
        const auto checked = m_checked.find({status.st_dev, status.st_ino, *format});
        if (checked != m_checked.end()) {
            close(fd);
            return checked->second;
        }
    }
    std::string bytes;
    auto doc = parse(path, fd, &bytes);
    close(fd);
    const Format actual_format = format != nullptr ? *format : format_of(path, *doc);
    const Key key = {status.st_dev, status.st_ino, actual_format};
    const auto [checked, is_new] = m_checked.emplace(key, nullptr);
    if (!is_new) {
        return checked->second;
    }
    SourceText& text = m_sources.add(path, std::move(bytes));
    if (doc->Error()) {
        add({Severity::Error,
             "malformed-xml",
             text.whole(static_cast<unsigned>(std::max(doc->ErrorLineNum(), 0))),
             parse_error(doc.get()),
             "",
             {}});
        return nullptr;
    }
    m_files.push_back({path, actual_format, &text, std::move(doc), nullptr});
    File& file = m_files.back();
    checked->second = &file;
    file.check = std::make_unique<FileCheck>(file.doc.get(), actual_format, &text);
    file.check->run(m_max_findings - std::min(m_max_findings, m_findings.size()));
    for (const Finding& finding : file.check->findings()) {
        add(finding);
    }
    if (!file.check->is_complete()) {
        m_remarks.push_back("'" + path + "' was not checked to its end");
    }
    return &file;
}

void PackageCheck::follow(File& file) {
    if (file.format == Format::TargetModel || !m_followed.insert(file.path).second
        || m_findings.size() >= m_max_findings) {
        return;
    }
    const ModelKind& kind = file.format == Format::Board ? DEVICE_MODEL : TARGET_MODEL;
    const Reference reference = file.check->reference();
    TriedPaths tried;
    std::string path =
        reference.is_known ? find_model(kind, reference.name, file.path, &tried) : "";
    int fd = open_model(path);
    if (fd == -1) {
        if (reference.is_known) {
            Finding finding = missing_model(kind, reference.name, tried, path);
            finding.location = file.check->locate_reference();
            add(std::move(finding));
        }
        path = lone_model(kind, file.path);
        fd = open_model(path);
        m_remarks.push_back("'" + file.path + "' leads to no " + kind.name + "; "
                            + (fd == -1 ? "no model was checked"
                                        : "'" + path + "' was checked, the only one beside it"));
    }
    if (fd != -1) {
        file.model = check_file(path, fd, &kind.format);
    }
    if (file.model != nullptr) {
        follow(*file.model);
    }
}

void PackageCheck::add(Finding finding) {
    if (m_findings.size() < m_max_findings) {
        m_findings.push_back(std::move(finding));
    }
}

}  // namespace vemo::lint
