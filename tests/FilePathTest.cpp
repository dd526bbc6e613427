#include "Base/FilePath.h"

#include <sys/stat.h>

#include "Testing.h"

using vemo::FilePath;

TEST(FilePath, LooksAtTextOnly) {
    const std::size_t none = std::string::npos;
    EXPECT_EQ(fields(FilePath::rfind_sep("a/b/c", 4), FilePath::rfind_sep("a/b/c", 3),
                     FilePath::rfind_sep("a/b/c", 2), FilePath::rfind_sep("a/b", 3)),
              "3|3|1|3|");
    EXPECT_TRUE(FilePath::rfind_sep("a/b", 0) == none && FilePath::rfind_sep("a/b", none) == none);
    EXPECT_TRUE(FilePath::is_separator('/') && !FilePath::is_separator('\\'));
    EXPECT_EQ(fields(FilePath::append("", "x"), FilePath::append("dir", "x"),
                     FilePath::append("dir/", "x"), FilePath::append("dir", "/abs")),
              "x|dir/x|dir/x|dir//abs|");
    EXPECT_EQ(fields(FilePath::is_absolute("/a"), FilePath::is_absolute("/"),
                     FilePath::is_absolute(""), FilePath::is_absolute("a/")),
              "1|0|0|0|");
    const std::pair<const char*, const char*> parents[] = {
        {"a/b/c.xml", "a/b"}, {"a/b/", "a"}, {"c.xml", ""}, {"/c.xml", "/"}, {"/", ""},  {"", ""},
        {"a//b", "a/"},       {"a//", "a"},  {"/a/", "/"},  {"a/", ""},      {"//", "/"}};
    for (const auto& [path, parent] : parents) {
        EXPECT_EQ(FilePath::parent_path(path), parent) << path;
    }
}

TEST(FilePath, ExistsWhatCanBeOpened) {
    const TempDir dir;
    ASSERT_EQ(mkfifo((dir / "pipe").c_str(), 0600), 0);
    EXPECT_TRUE(FilePath::exists(dir / "pipe"));  // without waiting for a writer
    EXPECT_TRUE(FilePath::exists(dir.path) && !FilePath::exists(dir / "none"));
}
