#include "BaseVisitor/UnsignedNumber.h"

#include <cstdlib>
#include <optional>

#include "Testing.h"

using namespace vemo::xml;

template <typename Word>
static std::optional<std::uint64_t> read_word(const char* text) {
    Word word;
    return convert_word(text, &word) ? std::optional<std::uint64_t>(word.value) : std::nullopt;
}

static std::optional<std::uint64_t> read_decimal(const char* text) {
    std::uint32_t number = 0;
    return convert_to_unsigned(text, &number, 10) ? std::optional<std::uint64_t>(number)
                                                  : std::nullopt;
}

TEST(UnsignedNumber, ReadsNotations) {
    const struct {
        const char* text;
        std::optional<std::uint64_t> decimal;
        std::optional<std::uint64_t> word;  // of 32 bits
        std::optional<std::uint64_t> word64;
    } cases[] = {
        {"0", 0, 0, 0},
        {"42", 42, 42, 42},
        {"017", 17, 15, 15},
        {"08", 8, {}, {}},
        {"0x1000", {}, 4096, 4096},
        {"0X1f", {}, 31, 31},
        {" \t\n\v\f\r0x10", {}, 16, 16},
        {"4294967294", 4294967294, 4294967294, 4294967294},
        {"4294967296", 4294967295, 4294967295, 4294967296},
        {"0xfffffffff", {}, 4294967295, 0xfffffffff},
        {"99999999999999999999", 4294967295, 4294967295, 18446744073709551615u},
    };
    for (const auto& [text, decimal, word, word64] : cases) {
        EXPECT_EQ(read_decimal(text), decimal) << text;
        EXPECT_EQ(read_word<unsigned_hex>(text), word) << text;
        EXPECT_EQ(read_word<unsigned64_hex>(text), word64) << text;
    }
    for (const char* text : {"", " ", "1 ", "1 2", "-1", "+1", "1.0", ":", "/", "9a", "x10", "0x",
                             "0xg", "0b1", "0x10 ", "\b1",
                             "\x0e"
                             "1"}) {
        EXPECT_FALSE(read_decimal(text)) << text;
        EXPECT_FALSE(read_word<unsigned_hex>(text)) << text;
        EXPECT_FALSE(read_word<unsigned64_hex>(text)) << text;
    }
}

TEST(UnsignedNumber, StoresLeadingDigits) {
    std::uint32_t number = 7;
    std::uint64_t number64 = 7;
    EXPECT_FALSE(convert_to_unsigned("x1", &number, 10));
    EXPECT_EQ(number, 7u);
    EXPECT_FALSE(convert_to_unsigned64("12x", &number64, 16));
    EXPECT_EQ(number64, 18u);
    EXPECT_TRUE(convert_to_unsigned("0x11", &number, 0));
    EXPECT_EQ(number, 17u);
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
    EXPECT_EQ(hex.value, 16u);
    EXPECT_EQ(hex64.value, 16u);
    EXPECT_FALSE(stream >> hex);
}
