#include "BaseVisitor/BaseVisitor.h"

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

TEST(BaseVisitor, CountsPathsOfNames) {
    Probe p(nullptr);
    tinyxml2::XMLDocument doc;
    doc.Parse("<a><b><c/><c/></b><d/><b><c/></b></a>");
    doc.Accept(&p);
    EXPECT_EQ(p.get_element_count(0), 0u);
    EXPECT_EQ(p.get_element_count(1, "a"), 1u);
    EXPECT_EQ(p.get_element_count(2, "a", "b"), 2u);
    EXPECT_EQ(p.get_element_count(3, "a", "b", "c"), 3u);
    EXPECT_EQ(p.get_element_count(2, "a", "c") + p.get_element_count(2, "b", "c"), 0u);
    EXPECT_EQ(p.get_element_count(1, "a/b"), 2u);
    EXPECT_EQ(p.get_element_count(2, "a/b", "c"), 3u);
    for (const char* key : {"", "/", "/a", "a/", "a//b", "a/b/"}) {
        EXPECT_EQ(p.get_element_count(1, key), 0u) << key;
    }
}

TEST(BaseVisitor, ChecksPosition) {
    const Position at("<x/>");
    EXPECT_TRUE(at.p.check_element_stack(1, "a") && !at.p.check_element_stack(1, "A"));
    EXPECT_FALSE(at.p.check_element_stack(0) || at.p.check_element_stack(2, "a", "x"));
    EXPECT_TRUE(at.p.check_element_stack_with_top(2, "a", "x"));
    EXPECT_FALSE(at.p.check_element_stack_with_top(2, "a", "c")
                 || at.p.check_element_stack_with_top(2, "c", nullptr)  // to which it does not come
                 || at.p.check_element_stack_with_top(1, "a"));
    EXPECT_TRUE(Probe(nullptr).check_element_stack_with_top(0));
}

TEST(BaseVisitor, WordsReports) {
    Position at("<x k='1'\nv='2'/>");
    Probe& p = at.p;
    const XMLElement& e = at.e();
    const auto said = [&at](bool result) { return at.said(result); };
    EXPECT_EQ(said(p.report_error(e, "")), "|, line 2\n");
    EXPECT_EQ(said(p.report_error(*e.FindAttribute("v"), "m")), "|, line 3\nm\n");
    EXPECT_EQ(said(p.report_error("m")) + said(p.report_error("")), "|:\nm\n|:\n");
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
    EXPECT_EQ(said(p.report_unexpected_elem_count(e, 1, 1, 2, "a", "x")), "");
    EXPECT_EQ(said(p.report_unexpected_elem_count(e, 1, 3, 1, "x")), appear + "1-3 times.\n");
    EXPECT_EQ(said(p.report_unexpected_elem_count(e, 1, 2, "a", "x")), "");
    EXPECT_EQ(said(p.report_unexpected_elem_count(e, 2, 1, "a")), appear + "exactly 2 times.\n");
    EXPECT_EQ(said(p.report_unexpected_elem_stack_count(e, 1, 1)), "");
    EXPECT_EQ(said(p.report_unexpected_elem_stack_count(e, 2, 3)), appear + "2-3 times.\n");

    const std::string on_x = " attribute 'q' on element 'x'.\nm\n";
    EXPECT_EQ(said(p.report_missing_attr(e, "q", "m")), "|, line 2\nExpected" + on_x);
    EXPECT_EQ(said(p.report_attr_type_error(e, "q", "m")), "|, line 2\nIncorrect type for" + on_x);
    EXPECT_EQ(said(p.report_attr_error(e, "v", "m")), "|, line 3\nm\n");
    const std::string unexpected_v = "|, line 3\nUnexpected attribute 'v'.\n";
    const char* only_k[] = {"k"};
    EXPECT_EQ(said(p.report_unexpected_attrs(e, {"v", "k"})), "");
    EXPECT_EQ(said(p.report_unexpected_attrs(e, {"k"})), unexpected_v);
    EXPECT_EQ(said(p.report_unexpected_attrs(e, 2, "k", "v")), "");
    EXPECT_EQ(said(p.report_unexpected_attrs(e, 1, "v")),
              edit(edit(unexpected_v, "3", "2"), "v", "k"));
    EXPECT_EQ(said(p.report_unexpected_attrs(e, 1, only_k)), unexpected_v);
    static const char* const constant_names[] = {"k"};
    EXPECT_EQ(said(p.report_unexpected_attrs(e, 1, constant_names)), unexpected_v);
    p.m_has_error = true;
    EXPECT_FALSE(p.report_unexpected_attrs(e, 2, "k", "v"));  // the earlier error tells
    static const char* const table[] = {"k", "v"};
    EXPECT_FALSE(p.report_unexpected_attrs(e, FoundAttributes(e, table)));

    EXPECT_TRUE(p.report_warning("w") && p.report_warning(""));
    EXPECT_EQ(at.sink.log, "~Warning in 'b.xml':\nw\n~Warning in 'b.xml':\n");
    Probe mute(nullptr, Probe::walk_on, true);
    EXPECT_TRUE(mute.report_warning("w") && mute.VisitEnter(at.doc));
    EXPECT_FALSE(mute.report_error(e, "m") || mute.report_error("m"));
}

static std::ostream& operator<<(std::ostream& os, unsigned_hex hex) { return os << hex.value; }
static std::ostream& operator<<(std::ostream& os, unsigned64_hex hex) { return os << hex.value; }

/// The number that a query of the attribute `v` gives, in brackets, or what it reports.
template <typename T>
static std::string query(const std::string& v, const char* name = "v", bool report = true,
                         bool required = true) {
    Position at("<x\nv='" + v + "'/>");
    T value{};
    const bool was_read = at.p.query_attribute(at.e(), name, &value, report, required);
    EXPECT_EQ(at.p.attribute_exists(at.e(), name), *name == 'v');
    std::ostringstream text;
    text << value;
    if (was_read) {
        return "[" + text.str() + "]";
    }
    EXPECT_TRUE(text.str().empty() || text.str() == "0") << v << " is read as " << text.str();
    return at.said(!at.p.m_has_error);
}

TEST(BaseVisitor, QueriesTypedAttributes) {
    const std::string bad = "|, line 3\nIncorrect type for attribute 'v' on element 'x'.\n";
    EXPECT_EQ(query<std::string>(""), "[]");
    EXPECT_EQ(query<std::string>(" a "), "[ a ]");
    EXPECT_EQ(query<unsigned>("010"), "[10]");
    EXPECT_EQ(query<unsigned>("7x"), bad);
    EXPECT_EQ(query<unsigned_hex>("010"), "[8]");
    EXPECT_EQ(query<unsigned_hex>("7x"), bad);
    EXPECT_EQ(query<unsigned64_hex>(" 0x123456789"), "[4886718345]");
    EXPECT_EQ(query<unsigned64_hex>("7 "), bad);
    EXPECT_EQ(query<int>("-7"), "[-7]");
    EXPECT_EQ(query<int>("x"), bad);
    EXPECT_EQ(query<float>("-1e3"), "[-1000]");
    EXPECT_EQ(query<float>("x"), bad);
    EXPECT_EQ(query<bool>("5"), "[1]");
    EXPECT_EQ(query<bool>("false"), "[0]");
    EXPECT_EQ(query<bool>("yes"), bad);
    EXPECT_EQ(query<int>("1", "q"), "|, line 2\nExpected attribute 'q' on element 'x'.\n");
    EXPECT_EQ(query<int>("x", "v", true, false), bad);
    EXPECT_EQ(query<int>("x", "v", false, true) + query<int>("1", "q", false, true), "");
    EXPECT_EQ(query<std::string>("1", "q", true, false), "");
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
        {"m_elem_stack.size() > 0", [&] { Probe(nullptr).VisitExit(e); }},
        {"m_elem_stack.back() == elem.Value()", [&] { p.VisitExit(*at.doc.RootElement()); }},
        {"min_count <= max_count", [&] { p.report_unexpected_elem_count_error(e, 2, 1); }},
        {"min_count <= max_count", [&] { p.report_unexpected_elem_count(e, 2, 1, 1, "a"); }},
        {"min_count <= max_count", [&] { p.report_unexpected_elem_stack_count(e, 2, 1); }},
    });
}
