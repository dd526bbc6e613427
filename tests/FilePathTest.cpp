#include "FilePath.h"

#include <sys/stat.h>

#include "Testing.h"

using vemo::FilePath;

TEST(FilePath, FindsLastSeparator) {
    constexpr auto NONE = std::string::npos;
    EXPECT_EQ(fields(FilePath::rfind_sep("a/b/c", 4), FilePath::rfind_sep("a/b/c", 3),
                     FilePath::rfind_sep("a/b/c", 2), FilePath::rfind_sep("a/b", 3)),
              "3|3|1|3|");
    EXPECT_EQ(FilePath::rfind_sep("a/b", 0), NONE);
    EXPECT_EQ(FilePath::rfind_sep("a/b", NONE), NONE);
    EXPECT_TRUE(FilePath::is_separator('/'));
    EXPECT_FALSE(FilePath::is_separator('\\'));
}

TEST(FilePath, CutsLastName) {
    const std::pair<const char*, const char*> cases[] = {
        {"a/b/c.xml", "a/b"}, {"a/b/", "a"}, {"c.xml", ""}, {"/c.xml", "/"}, {"/", ""},  {"", ""},
        {"a//b", "a/"},       {"a//", "a"},  {"/a/", "/"},  {"a/", ""},      {"//", "/"}};
    for (const auto& [path, parent] : cases) {
        EXPECT_EQ(FilePath::parent_path(path), parent) << path;
    }
}

TEST(FilePath, Appends) {
    EXPECT_EQ(FilePath::append("", "x.xml"), "x.xml");
    EXPECT_EQ(FilePath::append("dir", "x.xml"), "dir/x.xml");
    EXPECT_EQ(FilePath::append("dir/", "x.xml"), "dir/x.xml");
    EXPECT_EQ(FilePath::append("dir", "/abs.xml"), "dir//abs.xml");
}

TEST(FilePath, TellsAbsoluteFromRelative) {
    EXPECT_TRUE(FilePath::is_absolute("/a"));
    for (const char* path : {"/", "", "a/b", "ab"}) {
        EXPECT_FALSE(FilePath::is_absolute(path)) << path;
    }
}

TEST(FilePath, ExistsWhatCanBeOpened) {
    const TempDir dir;
    ASSERT_EQ(mkfifo((dir / "pipe").c_str(), 0600), 0);
    EXPECT_TRUE(FilePath::exists(dir / "pipe"));  // without waiting for a writer
    EXPECT_TRUE(FilePath::exists(dir.path));
    EXPECT_FALSE(FilePath::exists(dir / "none"));
}
