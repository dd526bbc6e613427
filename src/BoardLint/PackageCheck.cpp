#include "BoardLint/PackageCheck.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>

#include "Base/FilePath.h"
#include "Base/OpenForReading.h"
#include "Base/SdkModelPath.h"
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
    const char* kit_directory;
};
constexpr ModelKind DEVICE_MODEL = {Format::DeviceModel, "device model", "dm"};
constexpr ModelKind TARGET_MODEL = {Format::TargetModel, "target model", "tm"};

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

/// Parses a file as the tool does. `*text` is what it holds, if that can be told.
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

Format format_of(const XMLDocument& doc) {
    const tinyxml2::XMLElement* root = doc.RootElement();
    for (const Format format : {Format::DeviceModel, Format::TargetModel}) {
        if (root != nullptr && std::string_view(root->Name()) == root_name(format)) {
            return format;
        }
    }
    return Format::Board;
}

/// What the tool says about a document that was not parsed, in one line.
std::string parse_error(XMLDocument* doc) {
    vemo::xml::BaseXmlLoader loader;
    loader.set_last_error(doc);
    std::string text = loader.get_error(0);
    text.erase(text.find_last_not_of('\n') + 1);
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

/// Where a model is searched, in order.
std::vector<std::string> search_places(const ModelKind& kind, const std::string& name,
                                       const std::string& referrer) {
    if (FilePath::is_absolute(name)) {
        return {name};
    }
    std::vector<std::string> places = {name};
    const std::string beside = FilePath::append(FilePath::parent_path(referrer), name);
    if (beside != name) {
        places.push_back(beside);
    }
    if (const char* root = std::getenv(SDK_ROOT_VARIABLE)) {
        places.push_back(sdk_model_path(root, kind.kit_directory, name));
    }
    return places;
}

std::string find_model(const ModelKind& kind, const std::string& name,
                       const std::string& referrer) {
    return kind.format == Format::DeviceModel
               ? dmodel::DeviceModelXmlLoader().resolve_device_model_file(name, referrer)
               : tmodel::TargetModelXmlLoader().resolve_target_model_file(name, referrer);
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
    const Format actual_format = format != nullptr ? *format : format_of(*doc);
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
        m_incomplete_files.push_back(path);
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
    if (!reference.is_known) {
        return;
    }
    const std::string path = find_model(kind, reference.name, file.path);
    const int fd = path.empty() ? -1 : open_for_reading(path.c_str());
    Finding finding;
    finding.id = "model-not-found";
    if (fd == -1) {
        finding.message =
            std::string("Cannot find the ") + kind.name + " '" + reference.name + "'.";
        for (const std::string& place : search_places(kind, reference.name, file.path)) {
            finding.notes.push_back({Location(), "tried '" + place + "'"});
        }
        if (!FilePath::is_absolute(reference.name) && std::getenv(SDK_ROOT_VARIABLE) == nullptr) {
            finding.notes.push_back({Location(), std::string("not searched in a development kit: ")
                                                     + SDK_ROOT_VARIABLE + " is not set"});
        }
    } else if (!is_regular_file(fd)) {
        close(fd);
        finding.message =
            std::string("Cannot read the ") + kind.name + " '" + reference.name + "'.";
        finding.notes.push_back({Location(), "'" + path + "' is not a regular file"});
    } else {
        file.model = check_file(path, fd, &kind.format);
        if (file.model != nullptr) {
            follow(*file.model);
        }
        return;
    }
    finding.location = file.check->locate_reference();
    add(std::move(finding));
}

void PackageCheck::add(Finding finding) {
    if (m_findings.size() < m_max_findings) {
        m_findings.push_back(std::move(finding));
    }
}

}  // namespace vemo::lint
