#include <cstdlib>
#include <filesystem>

#include "DeviceModelXmlLoader.h"
#include "TargetModelXmlLoader.h"
#include "Testing.h"

namespace {

/// Runs a test in a directory of its own, and without VEMOSDKROOT.
struct ModelFileSearch : ::testing::Test {
    ModelFileSearch() {
        unsetenv("VEMOSDKROOT");
        std::filesystem::current_path(dir.path);
    }
    ~ModelFileSearch() override {
        unsetenv("VEMOSDKROOT");
        std::filesystem::current_path("/");
    }

    /// What both searches find for `name`, named by a file `from`.
    static std::string find(const std::string& name, const std::string& from) {
        return fields(
            vemo::dmodel::DeviceModelXmlLoader(false).resolve_device_model_file(name, from),
            vemo::tmodel::TargetModelXmlLoader(false).resolve_target_model_file(name, from));
    }

    TempDir dir;
};

}  // namespace

TEST_F(ModelFileSearch, GoesFromNearToFar) {
    EXPECT_EQ(find("m.xml", "pkg/b.xml"), "||");
    EXPECT_EQ(find("/no/m.xml", ""), "/no/m.xml|/no/m.xml|");
    dir.write("kit/share/models/dm/m.xml", "");
    dir.write("kit/share/models/tm/m.xml", "");
    EXPECT_EQ(find("m.xml", "pkg/b.xml"), "||");
    setenv("VEMOSDKROOT", "none", 1);
    EXPECT_EQ(find("m.xml", "pkg/b.xml"), "||");
    setenv("VEMOSDKROOT", "kit/", 1);
    EXPECT_EQ(find("m.xml", "b.xml"), "kit/share/models/dm/m.xml|kit/share/models/tm/m.xml|");
    dir.write("pkg/m.xml", "");
    EXPECT_EQ(find("m.xml", "pkg/b.xml"), "pkg/m.xml|pkg/m.xml|");
    EXPECT_EQ(find("../pkg/m.xml", "kit/b.xml"), "kit/../pkg/m.xml|kit/../pkg/m.xml|");
    dir.write("m.xml", "");
    EXPECT_EQ(find("m.xml", "pkg/b.xml"), "m.xml|m.xml|");
}

TEST_F(ModelFileSearch, TracesTargetModel) {
    const auto trace = [](const char* name) {
        ::testing::internal::CaptureStdout();
        vemo::tmodel::TargetModelXmlLoader(true).resolve_target_model_file(name, "pkg/d.xml");
        return ::testing::internal::GetCapturedStdout();
    };
    const std::string start = "Resolving target model file path:\n  input path: ";
    EXPECT_EQ(trace("/m"), start + "/m\n  input path is absolute\n");
    setenv("VEMOSDKROOT", "kit", 1);
    EXPECT_EQ(trace("m"), start + "m\n  relative to cwd: m does not exist\n"
              "  Device Model file path: pkg/d.xml\n  Device Model dir: pkg\n"
              "  relative to DM dir: pkg/m does not exist\n  VEMOSDKROOT: kit\n"
              "  relative to VEMO TM dir: kit/share/models/tm/m does not exist\n");
    dir.write("m", "");
    EXPECT_EQ(trace("m"), start + "m\n  relative to cwd: m exists\n");
}

TEST(ModelFileSearchDeathTest, NeedsTheReferringFile) {
    expect_aborts({
        {"!board_spec_path.empty()",
         [] { vemo::dmodel::DeviceModelXmlLoader(false).resolve_device_model_file("m", ""); }},
        {"!dm_file_path.empty()",
         [] { vemo::tmodel::TargetModelXmlLoader(false).resolve_target_model_file("m", ""); }},
    });
}
