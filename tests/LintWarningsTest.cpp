#include "LintPackage.h"
#include "Testing.h"

TEST(LintWarnings, PointAtWhatLoadsAndIsWrong) {
    struct {
        std::string from;
        std::string to;
        std::string warnings;
    } const cases[] = {
        {"name=\"DDR\"", "name=\"DDR\"", ""},
        // Numbers.
        {"0x018", "0x900000018",
         "dropped-bits 36:40+25 Attribute 'config_addr' is more than 32 bits wide: 0x18 is "
         "used.\n"},
        {"address=\"0x80000000\"", "address=\" 0x180000000\"",
         "dropped-bits 47:16+22 Attribute 'address' is more than 32 bits wide: 0x80000000 is "
         "used.\n"},
        {"size=\"0x00100000\"", "size=\"99999999999\"",
         "number-too-large 59:39+18 Attribute 'size' is too large: 4294967295 is used.\n"},
        {"\"0x018\"", "\"0x12345678901234567890\"",
         "number-too-large 36:40+36 Attribute 'config_addr' is too large: 18446744073709551615 "
         "is used.\n"},
        {"8532.5", "8,532.5 MB/s",
         "partly-read-number 45:27+28 Attribute 'max_bandwidth' is read as 8: ',532.5 MB/s' is "
         "ignored.\n"},
        {"8532.5", " 8532.5\t", ""},
        {"=\"17.1", "=\"17.1.2",
         "partly-read-number 3:8+16 Attribute 'version' is read as 17.1: '.2' is ignored.\n"},
        {"generic_kernel=\"1\"", "generic_kernel=\"08b\"",
         "partly-read-number 17:35+20 Attribute 'generic_kernel' is read as true: 'b' is "
         "ignored.\n"},
        {"generic_kernel=\"1\"", "generic_kernel=\"08\"", ""},
        {"\"0.75\"", "\".75x\"",
         "partly-read-number 16:29+12 Attribute 'value' is read as 0.75: 'x' is ignored.\n"},
        // Resources: the note is about the other file.
        {"\"46200\"", "\"2147483748\"",
         "wrapping-alms 8:13+16 The number of ALMs is too large: 200 logic elements are used.\n"},
        {"\"46200\"", "\"2147483647\"",
         "too-many-resources 8:7+5 The board uses 4294967294 logic elements, more than the device "
         "has: 636000.\n"},
        {"<dsps num=\"0\"/>", "<dsps num=\"1537\"/>",
         "too-many-resources 10:7+5 The board uses 1537 DSP blocks, more than the device has: "
         "1536.\n"},
        {"<alms num=\"46200\"/>", "<les num=\"636001\"/>",
         "too-many-resources 8:7+4 The board uses 636001 logic elements, more than the device has: "
         "636000.\n"},
        {"<alms num=\"46200\"/>", "<les num=\"1\"/><alms num=\"1\"/>",
         "overridden-element 8:7+4 Element 'les' is replaced by a later one.\n"},
        // Memories.
        {"\"SRAM\"", "\"DDR\"",
         "duplicate-memory 45:15+10 Global memory 'DDR' is defined again: a lookup by name finds "
         "the last one.\n"},
        {"0x40000000\" size=\"0x40000000\"", "0x70000000\" size=\"0x90000001\"",
         "wrapping-range 40:37+17 The address range wraps: it extends from 0x70000000 to "
         "0x100000000, which is 0x0 in 32 bits.\n"},
        {"0x80000000\" size=\"0x01000000\"", "0x80000000\" size=\"0x80000000\"", ""},
        {"name=\"SRAM\"", "name=\"SRAM\" interleaved_bytes=\"64\"",
         "unused-interleaving 45:27+22 Attribute 'interleaved_bytes' has no effect on a memory "
         "with one interface.\n"},
        {"name=\"SRAM\"", "name=\"SRAM\" interleaved_bytes=\"0\"", ""},
        // Flows.
        {"\"full\"", "\"incremental\"",
         "duplicate-flow 16:3+8 Compile flow 'incremental' is replaced by a later one of that "
         "name.\n"},
        {"\"full\"", "\"\"",
         "unusable-flow-name 26:12+7 A compile flow with an empty name cannot be selected.\n"},
        {"\"full\"", "\"a:b\"",
         "unusable-flow-name 26:12+10 Compile flow 'a:b' cannot be selected: its name has a "
         "colon.\n"},
        {"\"full\"", "\"a,b\"", ""},
        {"<exclude fixes=\"pin_swap\"/>", "<include fixes=\"\"/>",
         "overridden-element 21:7+8 Element 'include' is replaced by a later one.\n"},
        // What is passed over.
        {"<host>", "<host><![CDATA[ x ]]>",
         "ignored-text 58:3+5 Text in element 'host' is ignored.\n"},
        {"attribute name=\"bypass\"", "attribute name=\"posted\"",
         "overridden-element 52:9+10 Element 'attribute' is replaced by a later one.\n"},
        {" attribute_width=\"2\"", "",
         "ignored-element 51:9+10 Element 'attribute' has no effect in a port without "
         "'attribute_width'.\nignored-element 52:9+10 Element 'attribute' has no effect in a port "
         "without 'attribute_width'.\nignored-element 53:9+10 Element 'attribute' has no effect "
         "in a port without 'attribute_width'.\n"},
        {"<port name=\"sram_read\" direction=\"r\"/>",
         "<port name=\"sram_read\" direction=\"r\"><interface name=\"\"/></port>",
         "ignored-element 49:44+10 Element 'interface' has no effect here.\n"},
        {"</interface>\n  </global_mem>", "</interface><port zz=\"\"><zz/></port></global_mem>",
         "ignored-element 55:17+5 Element 'port' has no effect here.\n"},
    };
    for (const auto& [from, to, warnings] : cases) {
        EXPECT_EQ(LintPackage().change(from, to).warnings(), warnings) << from << " => " << to;
    }
}

TEST(LintWarnings, KnowTheRulesOfOldFormats) {
    LintPackage package;
    package.change("=\"17.1", "=\"14.1");
    package.change("</board>",
                   R"(<compile project="" revision="" lomb_file="" generic_kernel="0"/></board>)");
    EXPECT_EQ(package.warnings(), fill(R"(ignored-name 16:12+18 The name 'incremental' is ignored: \
before format 17.0, all compile flows have the name 'default'.
duplicate-flow 16:3+8 Compile flow 'default' is replaced by a later one of that name.
ignored-name 26:12+11 The name 'full' is ignored: \
before format 17.0, all compile flows have the name 'default'.
duplicate-flow 26:3+8 Compile flow 'default' is replaced by a later one of that name.
)",
                                       {{"\\\n", ""}}));
}
