#include <cstdlib>
#include <filesystem>

#include "DeviceModelXmlLoader.h"
#include "TargetModelXmlLoader.h"
#include "Testing.h"

/// What the two searches find for `name` in a file `from`; what they print.
static std::string find(const std::string& name, const std::string& from, bool debug = false) {
    ::testing::internal::CaptureStdout();
    const vemo::dmodel::DeviceModelXmlLoader dm_loader(debug);
    const vemo::tmodel::TargetModelXmlLoader tm_loader(debug);
    const std::string found = fields(dm_loader.resolve_device_model_file(name, from),
                                     tm_loader.resolve_target_model_file(name, from));
    return found + ::testing::internal::GetCapturedStdout();
}

TEST(ModelFileSearch, GoesFromNearToFar) {
    const TempDir dir;
    std::filesystem::current_path(dir.path);
    unsetenv("VEMOSDKROOT");
    dir.write("kit/share/models/dm/m.xml", "");
    dir.write("kit/share/models/tm/m.xml", "");
    EXPECT_EQ(find("m.xml", "pkg/b.xml"), "||");
    EXPECT_EQ(find("/no/m.xml", ""), "/no/m.xml|/no/m.xml|");
    setenv("VEMOSDKROOT", "none", 1);
    EXPECT_EQ(find("m.xml", "pkg/b.xml"), "||");
    setenv("VEMOSDKROOT", "kit/", 1);
    EXPECT_EQ(find("m.xml", "b.xml"), "kit/share/models/dm/m.xml|kit/share/models/tm/m.xml|");
    const std::string start = "Resolving target model file path:\n  input path: ";
    EXPECT_EQ(find("/m", "", true), "/m|/m|" + start + "/m\n  input path is absolute\n");
    const std::string nul(1, '\0');
    EXPECT_EQ(find("/" + nul, "", true),
              "/" + nul + "|/" + nul + "|" + start + "/" + nul + "\n  input path is absolute\n");
    EXPECT_EQ(find("m", "pkg/d.xml", true), "||" + start + "m\n  relative to cwd: m does not exist\n"
              "  Device Model file path: pkg/d.xml\n  Device Model dir: pkg\n  relative to DM dir: pkg/m does not exist\n"
              "  VEMOSDKROOT: kit/\n  relative to VEMO TM dir: kit/share/models/tm/m does not exist\n");
    dir.write("pkg/m.xml", "");
    EXPECT_EQ(find("m.xml", "pkg/b.xml"), "pkg/m.xml|pkg/m.xml|");
    dir.write("m.xml", "");
    EXPECT_EQ(find("m.xml", "pkg/b.xml"), "m.xml|m.xml|");
    EXPECT_EQ(find("m.xml", "", true),
              "m.xml|m.xml|" + start + "m.xml\n  relative to cwd: m.xml exists\n");
    std::filesystem::current_path("/");
    unsetenv("VEMOSDKROOT");
}

TEST(ModelFileSearchDeathTest, NeedsTheReferringFile) {
    expect_aborts({
        {"!board_spec_path.empty()",
         [] { vemo::dmodel::DeviceModelXmlLoader(false).resolve_device_model_file("m", ""); }},
        {"!dm_file_path.empty()",
         [] { vemo::tmodel::TargetModelXmlLoader(false).resolve_target_model_file("m", ""); }},
    });
}
