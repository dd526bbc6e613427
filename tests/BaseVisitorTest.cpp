#include "BaseVisitor.h"

#include "BaseXmlLoader.h"
#include "Testing.h"
#include "Xml.h"

using namespace vemo::xml;
using tinyxml2::XMLElement;

namespace {

/// Puts down all that it is told, errors behind a "|", warnings behind a "~".
struct Sink : VisitorCallbacks {
    void report_error(const std::string& text) override { log += "|" + text; }
    void report_warning(const std::string& text) override { log += "~" + text; }
    const char* get_source_name() const override { return "b.xml"; }
    void debug(const std::string& text) override { log += text; }

    std::string log;
};

/// Lets an action handle each element that is entered.
struct Probe : BaseVisitor {
    using Action = std::function<bool(Probe&, const XMLElement&)>;

    explicit Probe(VisitorCallbacks* callbacks, Action handle = walk_on, bool debug = false)
        : BaseVisitor(callbacks, debug), action(std::move(handle)) {}
    Probe(BaseVisitor* parent, const Action* handle) : BaseVisitor(parent), action(*handle) {}

    static bool walk_on(Probe&, const XMLElement&) { return true; }

    using BaseVisitor::delegate;
    using BaseVisitor::m_has_error;
    using BaseVisitor::VisitEnter;
    bool VisitEnter(const XMLElement& elem, const XMLAttribute* first) override {
        BaseVisitor::VisitEnter(elem, first);
        return action(*this, elem);
    }

    Action action;
};

/// A probe that has entered the elements `a` and `x`, the second of which stands in line 2.
struct Position {
    explicit Position(const std::string& x) {
        EXPECT_EQ(doc.Parse(("<a>\n" + x + "</a>").c_str()), tinyxml2::XML_SUCCESS) << x;
        p.VisitEnter(*doc.RootElement(), nullptr);
        p.VisitEnter(e(), nullptr);
    }

    const XMLElement& e() const { return *doc.RootElement()->FirstChildElement(); }

    /// The texts reported by a call of that result, without the place that they share.
    std::string said(bool result) {
        EXPECT_EQ(result, sink.log.empty());
        EXPECT_EQ(result, !p.m_has_error);
        p.m_has_error = false;
        return fill(std::exchange(sink.log, ""), {{"Error in 'b.xml'", ""}});
    }

    tinyxml2::XMLDocument doc;
    Sink sink;
    Probe p{&sink};
};

}  // namespace

TEST(BaseVisitor, TracesDelegation) {
    Sink sink;
    const Probe::Action child = Probe::walk_on;
    const auto delegate_device = [&](Probe& self, const XMLElement& elem) {
        return elem.Name() != std::string("device") || self.delegate<Probe>(elem, &child);
    };
    Probe root(&sink, delegate_device, true);
    tinyxml2::XMLDocument doc;
    doc.Parse("<board><device><res/></device><!-- --><host/>text</board>");
    EXPECT_TRUE(doc.Accept(&root));
    EXPECT_EQ(sink.log,
              "[xml] entering document\n[xml] entering board\n[xml] entering board/device\n"
              "[xml] entering device\n[xml] entering device/res\n[xml] exiting device/res\n"
              "[xml] exiting device\n[xml] exiting board/device\n[xml] entering board/host\n"
              "[xml] exiting board/host\n[xml] exiting board\n[xml] exiting document\n");
    EXPECT_EQ(root.get_element_count(2, "board", "device"), 1u);
    EXPECT_EQ(root.get_element_count(1, "device"), 0u);
    EXPECT_EQ(root.get_elem_stack_key(), "");
}

TEST(BaseVisitor, ErrorEndsTheWalk) {
    std::string entered;
    Sink sink;
    const Probe::Action fail = [](Probe& self, const XMLElement&) {
        return self.report_error("e");
    };
    Probe root(&sink, [&](Probe& self, const XMLElement& elem) {
        entered += elem.Name();
        return elem.Name() != std::string("b") || self.delegate<Probe>(elem, &fail);
    });
    tinyxml2::XMLDocument doc;
    doc.Parse("<a><b><c/></b><d/></a>");
    EXPECT_FALSE(doc.Accept(&root));
    EXPECT_EQ(entered + sink.log, "ab|Error in 'b.xml':\ne\n");

    EXPECT_FALSE(root.BaseVisitor::VisitEnter(*doc.RootElement(), nullptr));
    EXPECT_FALSE(root.VisitExit(*doc.RootElement()));
    EXPECT_EQ(root.get_elem_stack_key(), "a/b");
    EXPECT_FALSE(root.VisitEnter(doc) || root.VisitExit(doc) || root.Visit(*doc.NewDeclaration())
                 || root.Visit(*doc.NewText("")) || root.Visit(*doc.NewComment(""))
                 || root.Visit(*doc.NewUnknown("")));
}

TEST(BaseVisitor, WorksWithoutCallbacks) {
    Probe probe(nullptr, Probe::walk_on, true);
    tinyxml2::XMLDocument doc;
    doc.Parse("<?xml version='1.0'?><!DOCTYPE a><a/>");
    EXPECT_TRUE(doc.Accept(&probe));
    EXPECT_TRUE(probe.report_warning("w"));
    EXPECT_FALSE(std::exchange(probe.m_has_error, false));
    EXPECT_FALSE(probe.report_error("e"));
    EXPECT_TRUE(std::exchange(probe.m_has_error, false));
    EXPECT_FALSE(probe.report_error(*doc.RootElement(), "e"));
    EXPECT_TRUE(probe.m_has_error);
}

TEST(BaseVisitor, CountsPathsOfNames) {
    Probe probe(nullptr);
    tinyxml2::XMLDocument doc;
    doc.Parse("<a><b><c/><c/></b><b><c/></b></a>");
    doc.Accept(&probe);
    EXPECT_EQ(fields(probe.get_element_count(1, "a"), probe.get_element_count(2, "a", "b"),
                     probe.get_element_count(3, "a", "b", "c"),
                     probe.get_element_count(2, "a", "c"), probe.get_element_count(0)),
              "1|2|3|0|0|");
}

TEST(BaseVisitor, ChecksPosition) {
    const Position at("<x/>");
    EXPECT_TRUE(at.p.check_element_stack(1, "a"));
    EXPECT_FALSE(at.p.check_element_stack(1, "A"));
    EXPECT_FALSE(at.p.check_element_stack(0));
    EXPECT_FALSE(at.p.check_element_stack(2, "a", "x"));
    EXPECT_FALSE(at.p.check_element_stack_with_top(2, "c", nullptr));  // which it does not come to
    EXPECT_TRUE(at.p.check_element_stack_with_top(2, "a", "x"));
    EXPECT_FALSE(at.p.check_element_stack_with_top(2, "a", "c"));
    EXPECT_FALSE(at.p.check_element_stack_with_top(1, "a"));
    EXPECT_TRUE(Probe(nullptr).check_element_stack_with_top(0));
    EXPECT_FALSE(Probe(nullptr).check_element_stack(0));
}

TEST(BaseVisitor, WordsReports) {
    Position at("<x k='1'\nv='2'/>");
    Probe& p = at.p;
    const XMLElement& e = at.e();
    const auto said = [&at](bool result) { return at.said(result); };
    EXPECT_EQ(said(p.report_error(e, "")), "|, line 2\n");
    EXPECT_EQ(said(p.report_error(e, "m")), "|, line 2\nm\n");
    EXPECT_EQ(said(p.report_error(*e.FindAttribute("v"), "m")), "|, line 3\nm\n");
    EXPECT_EQ(said(p.report_error("m")), "|:\nm\n");
    EXPECT_EQ(said(p.report_error("")), "|:\n");
    EXPECT_EQ(said(p.report_error(*at.doc.NewElement("made"), "m")), "|\nm\n");

    const std::string unexpected = "|, line 2\nUnexpected element 'x'.\n";
    EXPECT_EQ(said(p.report_unexpected_elem(e, "m")), unexpected + "m\n");
    EXPECT_EQ(said(p.report_unexpected_elem_stack(e, 1, "a")), "");
    EXPECT_EQ(said(p.report_unexpected_elem_stack(e, 0)), unexpected);
    EXPECT_EQ(said(p.report_unexpected_elem_stack_with_top(e, 2, "a", "x")), "");
    EXPECT_EQ(said(p.report_unexpected_elem_stack_with_top(e, 1, "a")), unexpected);

    const std::string appear = "|, line 2\nExpected element <x> to appear ";
    EXPECT_EQ(said(p.report_unexpected_elem_count_error(e, 0, 0)), unexpected);
    EXPECT_EQ(said(p.report_unexpected_elem_count_error(e, 1, 1)), appear + "exactly once.\n");
    EXPECT_EQ(said(p.report_unexpected_elem_count_error(e, 0, 1)), appear + "0-1 times.\n");
    EXPECT_EQ(said(p.report_unexpected_elem_count(e, 1, 3, 2, "a", "x")), "");
    EXPECT_EQ(said(p.report_unexpected_elem_count(e, 0, 1, 2, "a", "x")), "");
    EXPECT_EQ(said(p.report_unexpected_elem_count(e, 1, 3, 1, "x")), appear + "1-3 times.\n");
    EXPECT_EQ(said(p.report_unexpected_elem_count(e, 0, 0, 2, "a", "x")), unexpected);
    EXPECT_EQ(said(p.report_unexpected_elem_count(e, 1, 2, "a", "x")), "");
    EXPECT_EQ(said(p.report_unexpected_elem_count(e, 2, 1, "a")), appear + "exactly 2 times.\n");
    EXPECT_EQ(said(p.report_unexpected_elem_stack_count(e, 2)), appear + "exactly 2 times.\n");
    EXPECT_EQ(said(p.report_unexpected_elem_stack_count(e, 0, 1)), "");
    EXPECT_EQ(said(p.report_unexpected_elem_stack_count(e, 1, 3)), "");
    EXPECT_EQ(said(p.report_unexpected_elem_stack_count(e, 2, 3)), appear + "2-3 times.\n");
    EXPECT_EQ(said(p.report_unexpected_elem_stack_count(e, 0, 0)), unexpected);

    const std::string missing = "|, line 2\nExpected attribute 'q' on element 'x'.\nm\n";
    const std::string mistyped = "|, line 2\nIncorrect type for attribute 'q' on element 'x'.\nm\n";
    EXPECT_EQ(said(p.report_missing_attr(e, "q", "m")), missing);
    EXPECT_EQ(said(p.report_attr_error(e, "v", "m")), "|, line 3\nm\n");
    EXPECT_EQ(said(p.report_attr_error(e, "q", "m")), "|, line 2\nm\n");
    EXPECT_EQ(said(p.report_attr_type_error(e, "q", "m")), mistyped);
    const std::string unexpected_k = "|, line 2\nUnexpected attribute 'k'.\n";
    const std::string unexpected_v = "|, line 3\nUnexpected attribute 'v'.\n";
    const char* only_k[] = {"k"};
    EXPECT_EQ(said(p.report_unexpected_attrs(e, {"v", "k"})), "");
    EXPECT_EQ(said(p.report_unexpected_attrs(e, {"k"})), unexpected_v);
    EXPECT_EQ(said(p.report_unexpected_attrs(e, 2, "k", "v")), "");
    EXPECT_EQ(said(p.report_unexpected_attrs(e, 0)), unexpected_k + unexpected_v);
    EXPECT_EQ(said(p.report_unexpected_attrs(e, 1, only_k)), unexpected_v);
    p.m_has_error = true;
    EXPECT_FALSE(p.report_unexpected_attrs(e, 2, "k", "v"));  // the earlier error tells
}

TEST(BaseVisitor, WarningIsNoError) {
    Position at("<x/>");
    EXPECT_TRUE(at.p.report_warning("w") && at.p.report_warning("") && !at.p.m_has_error);
    EXPECT_EQ(at.sink.log, "~Warning in 'b.xml':\nw\n~Warning in 'b.xml':\n");
}

namespace vemo::xml {
static std::ostream& operator<<(std::ostream& os, unsigned_hex n) { return os << n.value; }
static std::ostream& operator<<(std::ostream& os, unsigned64_hex n) { return os << n.value; }
}  // namespace vemo::xml

/// The values read from `texts` as T; then none of `bad_texts` is a T.
template <typename T>
static std::string read(const std::vector<const char*>& texts,
                        const std::vector<const char*>& bad_texts) {
    std::string values;
    const auto query = [&values](const std::string& text) {
        Position at("<x v='" + text + "'/>");
        T value{};
        const std::string error = at.said(at.p.query_attribute(at.e(), "v", &value, true, true));
        values += fields(value);
        return error;
    };
    for (const char* text : texts) {
        EXPECT_EQ(query(text), "") << text;
    }
    for (const char* text : bad_texts) {
        EXPECT_EQ(query(text), "|, line 2\nIncorrect type for attribute 'v' on element 'x'.\n")
            << text;
    }
    return values.substr(0, values.size() - bad_texts.size() * fields(T{}).size());
}

TEST(BaseVisitor, ReadsTypedAttributes) {
    EXPECT_EQ(read<std::string>({"", " a b "}, {}), "| a b |");
    EXPECT_EQ(read<unsigned>({"42", "010", "0", "4294967294", "4294967296", "99999999999"},
                             {"", " 1", "1 ", "-1", "+1", "0x10", "1.0", ":", "/", "9a"}),
              "42|10|0|4294967294|4294967295|4294967295|");
    EXPECT_EQ(read<int>({"-7"}, {"x"}), "-7|");
    EXPECT_EQ(read<float>({"2.5", "-1e3"}, {"", "fast"}), "2.5|-1000|");
    EXPECT_EQ(read<bool>({"true", "false", "1", "0", "5"}, {"yes"}), "1|0|1|0|1|");
    EXPECT_EQ(read<unsigned_hex>({"0x1000", "0X1f", "017", "4096", "0", " \t0x100", "0x100000000"},
                                 {"08", "0x", "x10", "", " ", "0x100 ", "1 2", "-1", "0b1"}),
              "4096|31|15|4096|0|256|4294967295|");
    EXPECT_EQ(
        read<unsigned64_hex>({"0x100000000", "\r\n017", "99999999999999999999"}, {"08", "1 ", ""}),
        "4294967296|15|18446744073709551615|");
}

TEST(BaseVisitor, QueriesAsTheFlagsSay) {
    Position at("<x\nv='bad'/>");
    unsigned number = 7;
    const auto query = [&](const char* name, bool report, bool required) {
        EXPECT_FALSE(at.p.query_attribute(at.e(), name, &number, report, required));
        EXPECT_EQ(number, 7u);
        return at.said(!at.p.m_has_error);
    };
    EXPECT_EQ(query("q", true, true), "|, line 2\nExpected attribute 'q' on element 'x'.\n");
    EXPECT_EQ(query("q", true, false) + query("q", false, true) + query("v", false, true), "");
    EXPECT_EQ(query("v", true, false),
              "|, line 3\nIncorrect type for attribute 'v' on element 'x'.\n");
    EXPECT_TRUE(at.p.attribute_exists(at.e(), "v"));
    EXPECT_FALSE(at.p.attribute_exists(at.e(), "q"));
}

TEST(BaseVisitor, ConvertsNumbers) {
    std::uint32_t number = 7;
    std::uint64_t number64 = 7;
    EXPECT_FALSE(convert_to_unsigned("x1", &number, 10));
    EXPECT_EQ(number, 7u);
    EXPECT_FALSE(convert_to_unsigned("12x", &number, 10));
    EXPECT_EQ(number, 12u);
    EXPECT_TRUE(convert_to_unsigned("12", &number, 16)
                && convert_to_unsigned64("012", &number64, 10));
    EXPECT_EQ(fields(number, number64), "18|12|");

    std::istringstream stream(" 0x10 020 08 1");
    unsigned_hex hex;
    unsigned64_hex hex64;
    EXPECT_TRUE(stream >> hex >> hex64);
    EXPECT_EQ(fields(hex.value, hex64.value), "16|16|");
    EXPECT_FALSE(stream >> hex);
}

TEST(BaseVisitorDeathTest, InvariantsAreGuarded) {
    Position at("<x/>");
    Probe& p = at.p;
    const XMLElement& e = at.e();
    const char* const null = nullptr;
    BaseVisitor* const no_parent = nullptr;
    expect_aborts({
        {"parent != 0", [&] { BaseVisitor child(no_parent); }},
        {"elem_name != 0", [&] { p.check_element_stack(1, null); }},
        {"elem_name != 0", [&] { p.check_element_stack_with_top(2, "a", null); }},
        {"m_elem_stack.size() > 0", [&] { Probe(nullptr).VisitExit(e); }},
        {"m_elem_stack.back() == elem.Value()", [&] { p.VisitExit(*at.doc.RootElement()); }},
        {"min_count <= max_count", [&] { p.report_unexpected_elem_count_error(e, 2, 1); }},
        {"min_count <= max_count", [&] { p.report_unexpected_elem_count(e, 2, 1, 1, "a"); }},
        {"min_count <= max_count", [&] { p.report_unexpected_elem_stack_count(e, 2, 1); }},
        {"m_callbacks != __null", [] { Probe(nullptr).get_source_name(); }},
    });
}
