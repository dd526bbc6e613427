#include "Base/FilePath.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "Base/OpenForReading.h"
#include "Testing.h"

using vemo::FilePath;

TEST(FilePath, LooksAtTextOnly) {
    const std::size_t none = std::string::npos;
    const std::tuple<const char*, std::size_t, std::size_t> separators[] = {
        {"a/b/c", 4, 3}, {"a/b/c", 3, 3},  {"a/b/c", 2, 1}, {"a/b", 3, 3},
        {"a/b", 9, 9},   {"a/b", 0, none}, {"/b", 0, 0},    {"a/b", none, none}};
    for (const auto& [path, start, found] : separators) {
        EXPECT_EQ(FilePath::rfind_sep(path, start), found) << path << " from " << start;
    }
    EXPECT_TRUE(FilePath::is_separator('/') && !FilePath::is_separator('\\'));
    EXPECT_EQ(FilePath::append("", "x"), "x");
    EXPECT_EQ(FilePath::append("dir", "x"), "dir/x");
    EXPECT_EQ(FilePath::append("dir/", "x"), "dir/x");
    EXPECT_EQ(FilePath::append("dir", "/abs"), "dir//abs");
    EXPECT_TRUE(FilePath::is_absolute("/a"));
    for (const char* path : {"/", "", "a/"}) {
        EXPECT_FALSE(FilePath::is_absolute(path)) << path;
    }
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
    EXPECT_TRUE(FilePath::exists(dir.path));
    dir.write("file", "");
    ASSERT_EQ(symlink("loop", (dir / "loop").c_str()), 0);
    for (const char* absent : {"none", "file/below", "loop"}) {
        EXPECT_FALSE(FilePath::exists(dir / absent)) << absent;
    }
    EXPECT_FALSE(FilePath::exists(dir / std::string(300, 'x')));
}

TEST(FilePath, ExistsWhenTheSystemCannotTell) {
    const TempDir dir;
    rlimit usual = {};
    getrlimit(RLIMIT_NOFILE, &usual);
    const rlimit none = {0, usual.rlim_max};
    setrlimit(RLIMIT_NOFILE, &none);
    const bool exists = FilePath::exists(dir / "none");
    setrlimit(RLIMIT_NOFILE, &usual);
    EXPECT_TRUE(exists);
}

TEST(FilePath, WaitsForALease) {
    const TempDir dir;
    dir.write("file", "");
    int leased[2];
    ASSERT_EQ(pipe(leased), 0);
    const pid_t holder = fork();
    if (holder == 0) {  // the signal that asks for the lease ends this process, and so the lease
        std::signal(SIGIO, SIG_DFL);
        const int fd = open((dir / "file").c_str(), O_RDONLY);
        const char has_lease = fcntl(fd, F_SETLEASE, F_WRLCK) == 0 ? 1 : 0;
        _exit(write(leased[1], &has_lease, 1) == 1 && has_lease == 1 ? pause() : 0);
    }
    char has_lease = 0;
    EXPECT_EQ(read(leased[0], &has_lease, 1), 1);
    close(leased[0]);
    close(leased[1]);
    const int fd = vemo::open_for_reading((dir / "file").c_str());
    EXPECT_NE(fd, -1);
    close(fd);
    int status = 0;
    EXPECT_EQ(waitpid(holder, &status, 0), holder);
    if (has_lease == 0) {
        GTEST_SKIP() << "no leases on this file system";
    }
    EXPECT_TRUE(WIFSIGNALED(status));
}
