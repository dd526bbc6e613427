#include "CompactString.h"

#include "Testing.h"

using vemo::CompactString;

TEST(CompactString, HoldsTextsOfAnyLength) {
    for (const unsigned length : {0u, 1u, 15u, 16u, 17u, 40u}) {
        const std::string text(length, 'x');
        const CompactString string(text);
        CompactString copy;
        copy = string;
        CompactString moved(std::move(copy));
        copy = CompactString(std::string(20, 'y'));
        EXPECT_EQ(fields(string.c_str(), CompactString(string), moved), fields(text, text, text));
        EXPECT_EQ(fields(copy.size(), moved.size(), moved.empty()),
                  fields(20, length, length == 0));
        EXPECT_TRUE(string == moved && text == moved && !(moved == copy));
        moved = std::string_view("short");
        copy = std::move(moved);
        EXPECT_EQ(copy, std::string_view("short"));
    }
}
