#include <cstdlib>
#include <filesystem>

#include "DeviceModelXmlLoader.h"
#include "TargetModelXmlLoader.h"
#include "Testing.h"

using vemo::dmodel::DeviceModelXmlLoader;
using vemo::tmodel::TargetModelXmlLoader;

namespace {

/// Runs in a directory of its own.
struct ModelFileSearch : ::testing::Test {
    ModelFileSearch() {
        std::filesystem::current_path(dir.path);
        unsetenv("VEMOSDKROOT");
    }
    ~ModelFileSearch() override { std::filesystem::current_path("/"); }

    TempDir dir;
};

/// Where the two searches, which differ in one folder, find `name` in the file `from`.
std::string find(const std::string& name, const std::string& from,
                 vemo::TriedPaths* tried = nullptr) {
    std::string found = TargetModelXmlLoader(false).resolve_target_model_file(name, from, tried);
    vemo::TriedPaths tried_for_dm;
    EXPECT_EQ(DeviceModelXmlLoader(true).resolve_device_model_file(name, from, &tried_for_dm),
              fill(found, {{"/tm/", "/dm/"}}));
    for (std::size_t i = 0; tried != nullptr && i < tried->size(); ++i) {
        EXPECT_EQ(tried_for_dm.at(i), fill(tried->at(i), {{"/tm/", "/dm/"}}));
    }
    return found;
}

std::string trace_of_find(const std::string& name, const std::string& from) {
    ::testing::internal::CaptureStdout();
    TargetModelXmlLoader(true).resolve_target_model_file(name, from);
    return ::testing::internal::GetCapturedStdout();
}

}  // namespace

TEST_F(ModelFileSearch, GoesFromNearToFar) {
    dir.write("kit/share/models/dm/m.xml", "");
    dir.write("kit/share/models/tm/m.xml", "");
    EXPECT_EQ(find("m.xml", "pkg/b.xml"), "");
    EXPECT_EQ(find("/no/m.xml", ""), "/no/m.xml");
    setenv("VEMOSDKROOT", "none", 1);
    EXPECT_EQ(find("m.xml", "pkg/b.xml"), "");
    setenv("VEMOSDKROOT", "kit/", 1);
    EXPECT_EQ(find("m.xml", "b.xml"), "kit/share/models/tm/m.xml");
    dir.write("pkg/m.xml", "");
    EXPECT_EQ(find("m.xml", "pkg/b.xml"), "pkg/m.xml");
    dir.write("m.xml", "");
    EXPECT_EQ(find("m.xml", "pkg/b.xml"), "m.xml");
}

TEST_F(ModelFileSearch, TellsWhereItLooked) {
    const std::tuple<std::string, std::string, vemo::TriedPaths> cases[] = {
        {"m.xml", "pkg/b.xml", {"m.xml", "pkg/m.xml", "kit/share/models/tm/m.xml"}},
        {"m.xml", "b.xml", {"m.xml", "kit/share/models/tm/m.xml"}},
        {"here.xml", "pkg/b.xml", {"here.xml", "pkg/here.xml"}},
        {"/m.xml", "pkg/b.xml", {"/m.xml"}},
    };
    setenv("VEMOSDKROOT", "kit", 1);
    dir.write("pkg/here.xml", "");
    for (const auto& [name, from, expected] : cases) {
        vemo::TriedPaths tried;
        find(name, from, &tried);
        EXPECT_EQ(tried, expected) << name << " " << from;
    }
}

TEST_F(ModelFileSearch, TracesTheStepsReached) {
    const std::string start = "Resolving target model file path:\n  input path: ";
    for (const std::string& path : {std::string("/m"), std::string("/\0m", 3)}) {
        EXPECT_EQ(trace_of_find(path, ""), start + path + "\n  input path is absolute\n");
    }
    std::string steps = start
                        + "m\n  relative to cwd: m does not exist\n"
                          "  Device Model file path: pkg/d.xml\n  Device Model dir: pkg\n"
                          "  relative to DM dir: pkg/m does not exist\n";
    EXPECT_EQ(trace_of_find("m", "pkg/d.xml"), steps);
    setenv("VEMOSDKROOT", "kit/", 1);
    steps += "  VEMOSDKROOT: kit/\n  relative to VEMO TM dir: kit/share/models/tm/m";
    EXPECT_EQ(trace_of_find("m", "pkg/d.xml"), steps + " does not exist\n");
    dir.write("kit/share/models/tm/m", "");
    EXPECT_EQ(trace_of_find("m", "pkg/d.xml"), steps + " exists\n");
    dir.write("m", "");
    EXPECT_EQ(trace_of_find("m", ""), start + "m\n  relative to cwd: m exists\n");
    unsetenv("VEMOSDKROOT");
}

TEST(ModelFileSearchDeathTest, NeedsTheReferringFile) {
    expect_aborts({
        {"!board_spec_path.empty()",
         [] { DeviceModelXmlLoader(false).resolve_device_model_file("m", ""); }},
        {"!dm_file_path.empty()",
         [] { TargetModelXmlLoader(false).resolve_target_model_file("m", ""); }},
    });
}
