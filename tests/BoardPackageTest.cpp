// What a program that loads board packages through the library may rely on.

#include "BoardPackage/BoardPackage.h"

#include <atomic>
#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iterator>
#include <new>
#include <thread>

#include "Allocations.h"
#include "Base/InvariantTrap.h"
#include "Xml.h"

namespace {

using vemo::BoardPackage;

/// What a caller holds on to that a load must not use up.
struct Holdings {
    long blocks = num_blocks();
    long descriptors = std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});

    bool operator==(const Holdings& other) const {
        return blocks == other.blocks && descriptors == other.descriptors;
    }
};
std::ostream& operator<<(std::ostream& out, const Holdings& holdings) {
    return out << holdings.blocks << " blocks, " << holdings.descriptors << " descriptors";
}

/// A package in a directory of its own. The board has everything that a board may have.
struct Package : ::testing::Test {
    Package() {
        dir.write("board_spec.xml", BOARD);
        dir.write("dev.xml", DEVICE_MODEL);
        dir.write("tm.xml", TARGET_MODEL);
    }

    /// "loaded", "out of memory", or the reports of a failed load, in which an allocation fails
    /// after as many as given.
    std::string load(long allocations = -1, bool from_there_on = false) const {
        try {
            const Starvation starvation(allocations, from_there_on);
            const BoardPackage package(board_path);
        } catch (const std::bad_alloc&) {
            return "out of memory";
        } catch (const vemo::LoadError& error) {
            return error.reports();
        }
        return "loaded";
    }

    TempDir dir;
    std::string board_path = dir / "board_spec.xml";
};

/// Edits of the board or the target model, and the report that each brings about.
struct Mistake {
    const char* file;
    std::string text;
    const char* report;
};

std::vector<Mistake> mistakes() {
    return {
        {"board_spec.xml", BOARD + "<", "XML error: "},
        {"board_spec.xml", edit(BOARD, "<global_mem", "<nosuch/><global_mem"),
         "Unexpected element 'nosuch'."},
        {"board_spec.xml", edit(BOARD, "</board>", "<nosuch/></board>"),
         "Unexpected element 'nosuch'."},
        {"board_spec.xml", edit(BOARD, "</port>", "</port><nosuch/>"),
         "Unexpected element 'nosuch'."},
        {"board_spec.xml", edit(BOARD, "\"100.5\"", "\"nan\""),
         "assertion failed: max_bandwidth >= 0.0f\n"},
        {"tm.xml", edit(TARGET_MODEL, "<target_model", "<nosuch/><target_model"),
         "Unexpected element 'nosuch'."},
    };
}

}  // namespace

TEST_F(Package, LeavesNothingBehind) {
    std::vector<Mistake> cases = mistakes();
    cases.push_back({"board_spec.xml", BOARD, "loaded"});
    for (const auto& [file, text, report] : cases) {
        const std::string sound = dir.read(file);
        dir.write(file, text);
        const std::string usual = load();
        EXPECT_NE(usual.find(report), std::string::npos) << report << usual;
        const Holdings before;
        load();
        EXPECT_EQ(Holdings(), before) << report;
        // (When the XML library has no memory for the text of an error, it loses 1,000 bytes
        // itself.)
        const bool starves = usual.find("XML error: ") == std::string::npos;
        for (const bool from_there_on : {false, true}) {
            for (long allocations = 0; starves && load(allocations, from_there_on) != usual;
                 ++allocations) {
                EXPECT_EQ(load(allocations, from_there_on), "out of memory");
                ASSERT_EQ(Holdings(), before) << report << ", allocation " << allocations;
            }
        }
        dir.write(file, sound);
    }
}

TEST_F(Package, LoadsAndIsReadOnSeveralThreads) {
    dir.write("bad.xml", edit(BOARD, "\"100.5\"", "\"nan\""));
    const BoardPackage shared(board_path);
    const auto answers = [](const BoardPackage& package) {
        std::string texts;
        for (const vemo::Answer& answer : vemo::ANSWERS) {
            texts += answer.text(package.sources()) + "|";
        }
        return texts;
    };
    const std::string expected = answers(shared);
    std::atomic<int> num_right = 0;
    std::vector<std::thread> threads(8);
    const long before = num_blocks();
    for (std::thread& thread : threads) {
        thread = std::thread([&] {
            for (int round = 0; round < 20; ++round) {
                bool failed = false;
                try {
                    const BoardPackage bad(dir / "bad.xml");
                } catch (const vemo::LoadError&) {
                    failed = true;
                }
                const bool is_right = failed && answers(BoardPackage(board_path)) == expected
                                      && answers(shared) == expected;
                num_right += is_right ? 1 : 0;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(num_right, 8 * 20);
    EXPECT_EQ(num_blocks(), before);
}

TEST_F(Package, ReadsNumbersInAnyLocale) {
    setenv("LOCPATH", dir.path.c_str(), 1);
    const std::string make_locale = "localedef -i de_DE -f UTF-8 " + dir.path + "/de_DE.UTF-8 2>&1";
    const int made = std::system(make_locale.c_str());
    if (made != 0 || std::setlocale(LC_ALL, "de_DE.UTF-8") == nullptr) {
        GTEST_SKIP() << "no decimal comma: needs localedef and the locale sources";
    }
    const BoardPackage package(board_path);
    EXPECT_EQ(vemo::find_answer("version", package.sources()), "17.1");
    EXPECT_EQ(package.sources().spec->get_global_mem_config().get_max_bandwidth(), 100.5f);
    dir.write("board_spec.xml", edit(BOARD, "\"100.5\"", "\"nan\""));
    EXPECT_NE(load(), "loaded");
    // The program's own locale is in force again.
    EXPECT_EQ(std::strtod("1,5", nullptr), 1.5);
    std::setlocale(LC_ALL, "C");
    EXPECT_EQ(std::strtod("1.5", nullptr), 1.5);
}

TEST_F(Package, RoundsTheVersionTwice) {
    // This is 0.9 when read in double precision and then rounded to single, and more otherwise.
    dir.write("board_spec.xml", edit(BOARD_09, "\"0.9\"", "\"0.90000000596046447753906250001\""));
    EXPECT_EQ(load(), "loaded");
}

TEST_F(Package, LeavesStandardStreamsAlone) {
    ::testing::internal::CaptureStdout();
    ::testing::internal::CaptureStderr();
    load();
    for (const auto& [file, text, report] : mistakes()) {
        dir.write(file, text);
        load();
    }
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

TEST(InvariantTrapDeathTest, ThrowsOnItsThreadWhileItLives) {
    {
        const vemo::InvariantTrap outer;
        { const vemo::InvariantTrap inner; }
        try {
            VEMO_ASSERT(1 + 1 == 3);
            FAIL();
        } catch (const vemo::BrokenInvariant& broken) {
            EXPECT_STREQ(broken.condition, "1 + 1 == 3");
            EXPECT_STREQ(broken.what(), broken.condition);
            EXPECT_NE(std::string(broken.file).find("BoardPackageTest.cpp"), std::string::npos);
            EXPECT_GT(broken.line, 0);
        }
        expect_aborts(
            {{"1 + 1 == 4", [] { std::thread([] { VEMO_ASSERT(1 + 1 == 4); }).join(); }}});
    }
    expect_aborts({{"BoardPackageTest.cpp:", [] { VEMO_ASSERT(1 + 1 == 5); }}});
}
