#include "BaseVisitor/UnsignedNumber.h"

#include <cstdlib>

#include "Testing.h"

using namespace vemo::xml;

/// The number that `text` is in base 10, and those that it is in words of 32 and of 64 bits.
static std::string read(const char* text) {
    std::uint32_t number = 0;
    unsigned_hex word;
    unsigned64_hex word64;
    return (convert_to_unsigned(text, &number, 10) ? fields(number) : "-|")
           + (convert_word(text, &word) ? fields(word.value) : "-|")
           + (convert_word(text, &word64) ? fields(word64.value) : "-|");
}

TEST(UnsignedNumber, ReadsNotations) {
    EXPECT_EQ(read("0") + read("42") + read("017") + read("08"), "0|0|0|42|42|42|17|15|15|8|-|-|");
    EXPECT_EQ(read("0x1000") + read("0X1f") + read(" \t0x10"), "-|4096|4096|-|31|31|-|16|16|");
    EXPECT_EQ(read("4294967294"), "4294967294|4294967294|4294967294|");
    EXPECT_EQ(read("4294967296"), "4294967295|4294967295|4294967296|");
    EXPECT_EQ(read("99999999999999999999"), "4294967295|4294967295|18446744073709551615|");
    for (const char* text : {"", " ", "1 ", "1 2", "-1", "+1", "1.0", ":", "/", "9a", "x10", "0x",
                             "0xg", "0b1", "0x10 "}) {
        EXPECT_EQ(read(text), "-|-|-|") << text;
    }
}

TEST(UnsignedNumber, StoresLeadingDigits) {
    std::uint32_t number = 7;
    std::uint64_t number64 = 7;
    EXPECT_FALSE(convert_to_unsigned("x1", &number, 10));
    EXPECT_FALSE(convert_to_unsigned64("12x", &number64, 16));
    EXPECT_EQ(fields(number, number64), "7|18|");
    EXPECT_TRUE(convert_to_unsigned("0x11", &number, 0) && number == 17);
}

TEST(UnsignedNumber, ReadsEveryBaseAsTheCLibrary) {
    for (int base = 2; base <= 36; ++base) {
        for (const char* text : {"0", "1", "012", "09", "0x", "0xf", "0zZ", "1 ", "0000000001"}) {
            char* end = nullptr;
            const unsigned long expected = std::strtoul(text, &end, base);
            std::uint32_t number = 7;
            EXPECT_EQ(convert_to_unsigned(text, &number, base), *end == '\0') << text << base;
            EXPECT_EQ(number, expected) << text << " in base " << base;
        }
    }
    for (const int base : {-16, -1, 1, 37}) {
        std::uint32_t number = 7;
        EXPECT_FALSE(convert_to_unsigned("1", &number, base)) << base;
    }
}

TEST(UnsignedNumber, ReadsStreamsOfWords) {
    std::istringstream stream(" 0x10 020 08 1");
    unsigned_hex hex;
    unsigned64_hex hex64;
    EXPECT_TRUE(stream >> hex >> hex64);
    EXPECT_EQ(fields(hex.value, hex64.value), "16|16|");
    EXPECT_FALSE(stream >> hex);
}
