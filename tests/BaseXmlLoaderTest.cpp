#include "BaseXmlLoader.h"

#include "DeviceModelXmlLoader.h"
#include "Testing.h"
#include "Xml.h"

using Document = std::unique_ptr<tinyxml2::XMLDocument>;
using vemo::xml::BaseXmlLoader;

/// Parses what is no document; `expected` holds how the XML library words the failure.
static std::string failed_parse(const char* text, const char* file,
                                tinyxml2::XMLDocument* expected) {
    BaseXmlLoader loader;
    ::testing::internal::CaptureStdout();
    EXPECT_EQ(text != nullptr ? loader.parse_xml(text) : loader.parse_file(file), nullptr);
    EXPECT_EQ(loader.get_num_errors(), 1u);
    EXPECT_EQ(loader.get_error(0), std::string("XML error: ") + expected->ErrorName() + ", "
                                       + expected->ErrorStr() + "\n");
    EXPECT_STREQ(loader.get_source_name(), text != nullptr ? "[mem]" : file);
    return ::testing::internal::GetCapturedStdout();
}

TEST(BaseXmlLoader, ReportsWhatIsNoDocument) {
    const TempDir dir;
    dir.write("bad.xml", "<a></b>");
    for (const std::string& file : {dir / "none.xml", dir / "bad.xml", dir.path, std::string()}) {
        tinyxml2::XMLDocument expected;
        expected.LoadFile(file.c_str());
        EXPECT_EQ(failed_parse(nullptr, file.c_str(), &expected),
                  std::string("ERROR FOUND: ") + expected.ErrorName() + "\n");
    }
    for (const char* text : {"", "<a", "text"}) {
        tinyxml2::XMLDocument expected;
        expected.Parse(text);
        EXPECT_EQ(failed_parse(text, nullptr, &expected), "");
    }
}

TEST(BaseXmlLoader, KeepsWhatTheLastParseReported) {
    BaseXmlLoader loader;
    EXPECT_EQ(loader.get_source_name(), nullptr);
    loader.report_error("e1");
    loader.report_error("e2");
    loader.report_warning("w");
    EXPECT_EQ(fields(loader.get_num_errors(), loader.get_error(1), loader.get_num_warnings(),
                     loader.get_warning(0)),
              "2|e2|1|w|");
    EXPECT_NE(Document(loader.parse_xml("<a/>")), nullptr);
    EXPECT_EQ(loader.get_num_errors() + loader.get_num_warnings(), 0u);

    const TempDir dir;
    dir.write("a.xml", "<a b=\" x&#32;&amp; \"/>");
    loader.report_error("e");
    const Document doc(loader.parse_file((dir / "a.xml").c_str()));
    EXPECT_STREQ(doc->RootElement()->Attribute("b"), " x & ");
    EXPECT_EQ(loader.get_num_errors(), 0u);
}

TEST(BaseXmlLoader, PrintsDocumentIndentedByTwo) {
    const Document doc(BaseXmlLoader().parse_xml("<a><b><c/></b></a>"));
    const char* text = "<a>\n  <b>\n    <c/>\n  </b>\n</a>\n";
    EXPECT_EQ(BaseXmlLoader::doc_to_string(doc.get()), text);
    vemo::xml::PrettyPrinter printer(stdout, true, 7);  // of which it heeds nothing
    doc->Accept(&printer);
    EXPECT_STREQ(printer.CStr(), text);
}

TEST(BaseXmlLoader, EchoesAndTracesWhenDebugging) {
    ::testing::internal::CaptureStderr();
    load_outcome<vemo::dmodel::DeviceModelXmlLoader>("<x/>", true);
    load_outcome<vemo::dmodel::DeviceModelXmlLoader>("<y/>", false);
    BaseXmlLoader().debug("no newline");
    EXPECT_EQ(
        ::testing::internal::GetCapturedStderr(),
        "<x/>\n[xml] entering document\n[xml] entering x\n[xml] exiting document\nno newline");
}

TEST(BaseXmlLoaderDeathTest, ArgumentsAreGuarded) {
    BaseXmlLoader loader;
    loader.report_error("e");
    loader.report_warning("w");
    expect_aborts({
        {"filename != __null", [&] { loader.parse_file(nullptr); }},
        {"xml != __null", [&] { loader.parse_xml(nullptr); }},
        {"index < m_errors.size()", [&] { loader.get_error(1); }},
        {"index < m_warnings.size()", [&] { loader.get_warning(1); }},
        {"doc != __null", [&] { BaseXmlLoader::doc_to_string(nullptr); }},
    });
}
