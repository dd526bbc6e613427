#include "BaseVisitor/UnsignedNumber.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>

#include "Testing.h"

using namespace vemo::xml;

TEST(UnsignedNumber, IsReadAsTheCLibraryDoes) {
    const std::string texts =
        "0|1|42|012|08|09|0x|0xf|0X1F|0xg|0zZ|9a|1 |1 2|1.0|0000000001|"
        "4294967294|4294967295|4294967296|0xfffffffff|"
        "18446744073709551615|99999999999999999999|| | 1|-1|+1|:|/|x1";
    for (const std::string& text : split(texts, "|")) {
        for (int base = 0; base <= 36; base += base == 0 ? 2 : 1) {
            SCOPED_TRACE(text + " in base " + std::to_string(base));
            char* end = nullptr;
            std::uint64_t expected = std::strtoull(text.c_str(), &end, base);
            const bool has_digit = std::isdigit(static_cast<unsigned char>(text[0])) != 0;
            const bool is_number = has_digit && *end == '\0';
            expected = has_digit ? expected : 7;  // then nothing is written
            std::uint32_t number = 7;
            std::uint64_t number64 = 7;
            EXPECT_EQ(convert_to_unsigned(text.c_str(), &number, base), is_number);
            EXPECT_EQ(number, std::min<std::uint64_t>(expected, 4294967295));
            EXPECT_EQ(convert_to_unsigned64(text.c_str(), &number64, base), is_number);
            EXPECT_EQ(number64, expected);
        }
    }
    for (const int base : {-16, -1, 1, 37}) {
        std::uint32_t number = 7;
        EXPECT_FALSE(convert_to_unsigned("1", &number, base)) << base;
    }
    // Some C libraries read a binary prefix.
    std::uint32_t number = 7;
    EXPECT_FALSE(convert_to_unsigned("0b1", &number, 0));
    EXPECT_EQ(number, 0u);
}

TEST(UnsignedNumber, IsReadFromWords) {
    unsigned_hex hex;
    unsigned64_hex hex64;
    EXPECT_TRUE(convert_word(" \t\n\v\f\r0x123456789", &hex));
    EXPECT_EQ(hex.value, 4294967295u);
    EXPECT_TRUE(convert_word(" \t\n\v\f\r0x123456789", &hex64));
    EXPECT_EQ(hex64.value, 0x123456789u);
    for (const char* text : {"", " ", "1 ", "1 2", "\b1", "\x0e\x31", " -1", "08"}) {
        EXPECT_FALSE(convert_word(text, &hex)) << text;
        EXPECT_FALSE(convert_word(text, &hex64)) << text;
    }
    std::istringstream stream(" 0x10 020 08 1");
    EXPECT_TRUE(stream >> hex >> hex64);
    EXPECT_EQ(hex.value, 16u);
    EXPECT_EQ(hex64.value, 16u);
    EXPECT_FALSE(stream >> hex);
}
