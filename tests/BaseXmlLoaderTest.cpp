#include "BaseXmlLoader.h"

#include "DeviceModelXmlLoader.h"
#include "Xml.h"

using Document = std::unique_ptr<tinyxml2::XMLDocument>;
using vemo::dmodel::DeviceModelXmlLoader;
using vemo::xml::BaseXmlLoader;

TEST(BaseXmlLoader, ReportsWhatIsNoDocument) {
    const TempDir dir;
    dir.write("bad.xml", "<a></b>");
    for (const std::string& source :
         {dir / "none.xml", dir / "bad.xml", dir.path, std::string(), std::string("[mem]")}) {
        BaseXmlLoader loader;
        tinyxml2::XMLDocument expected;  // knows how the library words the failure
        ::testing::internal::CaptureStdout();
        if (source == "[mem]") {
            EXPECT_EQ(loader.parse_xml(""), nullptr);
            expected.Parse("");
        } else {
            EXPECT_EQ(loader.parse_file(source.c_str()), nullptr);
            expected.LoadFile(source.c_str());
        }
        const std::string name = expected.ErrorName();
        EXPECT_EQ(::testing::internal::GetCapturedStdout(),
                  source == "[mem]" ? "" : "ERROR FOUND: " + name + "\n");
        EXPECT_EQ(loader.get_num_errors(), 1u);
        EXPECT_EQ(loader.get_error(0), "XML error: " + name + ", " + expected.ErrorStr() + "\n");
        EXPECT_EQ(loader.get_source_name(), source);
    }
}

TEST(BaseXmlLoader, AnnouncesAFailureBeforeItReports) {
    struct Loader : BaseXmlLoader {
        void report_error(const std::string&) override { std::fputs("reported", stdout); }
    };
    ::testing::internal::CaptureStdout();
    Loader().parse_file("");
    EXPECT_EQ(::testing::internal::GetCapturedStdout(),
              "ERROR FOUND: XML_ERROR_FILE_NOT_FOUND\nreported");
}

TEST(BaseXmlLoader, ReportsAboutADocumentOfUnknownSource) {
    DeviceModelXmlLoader loader;
    EXPECT_EQ(loader.load_target_model(BaseXmlLoader().parse_xml("<x/>")), nullptr);
    EXPECT_EQ(loader.get_error(0), "Error in '', line 1\nUnexpected element 'x'.\n");
}

TEST(BaseXmlLoader, KeepsWhatTheLastParseReported) {
    BaseXmlLoader loader;
    EXPECT_EQ(loader.get_source_name(), nullptr);
    loader.report_error("e1");
    loader.report_error("e2");
    loader.report_warning("w");
    EXPECT_EQ(loader.get_num_errors(), 2u);
    EXPECT_EQ(loader.get_error(1), "e2");
    EXPECT_EQ(loader.get_num_warnings(), 1u);
    EXPECT_EQ(loader.get_warning(0), "w");
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
    load_outcome<DeviceModelXmlLoader>("<x/>", vemo::xml::Debug::On);
    load_outcome<DeviceModelXmlLoader>("<y/>", false);
    BaseXmlLoader().debug(std::string("no\0newline", 10));
    EXPECT_EQ(::testing::internal::GetCapturedStderr(),
              "<x/>\n[xml] entering document\n[xml] entering x\n[xml] exiting document\nno"
                  + std::string("\0newline", 8));
}

TEST(BaseXmlLoaderDeathTest, ArgumentsAreGuarded) {
    expect_aborts({
        {"index < m_errors.size()", [] { BaseXmlLoader().get_error(0); }},
        {"index < m_warnings.size()", [] { BaseXmlLoader().get_warning(0); }},
        {"filename != __null", [] { BaseXmlLoader().parse_file(nullptr); }},
        {"xml != __null", [] { BaseXmlLoader().parse_xml(nullptr); }},
        {"doc != __null", [] { BaseXmlLoader::doc_to_string(nullptr); }},
    });
}
