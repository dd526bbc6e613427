#include "BaseXmlLoader.h"

#include <unistd.h>

#include <utility>

#include "Base/Assert.h"
#include "Base/CLocaleScope.h"
#include "Base/OpenForReading.h"

namespace vemo::xml {
namespace {

constexpr const char* MEMORY_SOURCE_NAME = "[mem]";

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

/// Null when the file cannot be opened.
File open_file(const char* filename) {
    const int fd = open_for_reading(filename);
    if (fd == -1) {
        return nullptr;
    }
    File file(fdopen(fd, "rb"));
    if (file == nullptr) {
        close(fd);
    }
    return file;
}

void load(tinyxml2::XMLDocument* doc, const char* filename) {
    const File file = open_file(filename);
    if (file != nullptr) {
        doc->LoadFile(file.get());
        return;
    }
    // The library words the failure. It would wait for the other end of a pipe, and so gets the
    // name only where it cannot wait.
    doc->LoadFile(opens_without_waiting(filename) ? filename : "");
}

}  // namespace

tinyxml2::XMLDocument* BaseXmlLoader::parse_file(const char* filename) {
    auto doc = read_file(filename);
    if (doc->Error()) {
        std::printf("ERROR FOUND: %s\n", doc->ErrorName());
    }
    return release_unless_failed(std::move(doc));
}

tinyxml2::XMLDocument* BaseXmlLoader::parse_file_quietly(const char* filename) {
    return release_unless_failed(read_file(filename));
}

std::unique_ptr<tinyxml2::XMLDocument> BaseXmlLoader::read_file(const char* filename) {
    VEMO_ASSERT(filename != NULL);
    m_source_name = filename;
    reset_errors();

    auto doc = std::make_unique<tinyxml2::XMLDocument>();
    load(doc.get(), filename);
    return doc;
}

tinyxml2::XMLDocument* BaseXmlLoader::parse_xml(const char* xml) {
    VEMO_ASSERT(xml != NULL);
    m_source_name = MEMORY_SOURCE_NAME;
    reset_errors();

    auto doc = std::make_unique<tinyxml2::XMLDocument>();
    doc->Parse(xml);
    return release_unless_failed(std::move(doc));
}

tinyxml2::XMLDocument* BaseXmlLoader::release_unless_failed(
    std::unique_ptr<tinyxml2::XMLDocument> doc) {
    if (doc->Error()) {
        set_last_error(doc.get());
        return nullptr;
    }
    return doc.release();
}

void BaseXmlLoader::report_error(const std::string& text) { m_errors.push_back(text); }

void BaseXmlLoader::report_warning(const std::string& text) { m_warnings.push_back(text); }

const char* BaseXmlLoader::get_source_name() const { return m_source_name; }

void BaseXmlLoader::debug(const std::string& text) {
    std::fwrite(text.data(), 1, text.size(), stderr);
}

void BaseXmlLoader::reset_errors() {
    m_errors.clear();
    m_warnings.clear();
}

unsigned BaseXmlLoader::get_num_errors() const { return static_cast<unsigned>(m_errors.size()); }

unsigned BaseXmlLoader::get_num_warnings() const {
    return static_cast<unsigned>(m_warnings.size());
}

const std::string& BaseXmlLoader::get_error(unsigned index) const {
    VEMO_ASSERT(index < m_errors.size());
    return m_errors[index];
}

const std::string& BaseXmlLoader::get_warning(unsigned index) const {
    VEMO_ASSERT(index < m_warnings.size());
    return m_warnings[index];
}

void BaseXmlLoader::set_last_error(tinyxml2::XMLDocument* doc) {
    std::string text = std::string("XML error: ") + doc->ErrorName();
    if (const char* detail = doc->ErrorStr()) {
        text += std::string(", ") + detail;
    }
    report_error(text + "\n");
}

bool BaseXmlLoader::walk(const tinyxml2::XMLDocument& doc, tinyxml2::XMLVisitor* visitor) {
    const CLocaleScope c_locale;
    return doc.Accept(visitor);
}

std::string BaseXmlLoader::doc_to_string(tinyxml2::XMLDocument* doc) {
    VEMO_ASSERT(doc != NULL);
    PrettyPrinter printer;
    doc->Accept(&printer);
    return printer.CStr();
}

PrettyPrinter::PrettyPrinter(std::FILE*, bool, int) : XMLPrinter(nullptr, false, 0) {}

void PrettyPrinter::PrintSpace(int depth) {
    for (int level = 0; level < depth; ++level) {
        Print("  ");
    }
}

}  // namespace vemo::xml
