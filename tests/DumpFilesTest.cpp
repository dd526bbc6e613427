#include "BoardDump/Depfile.h"
#include "Xml.h"

namespace {

struct DumpFiles : ShellTest {
    DumpFiles() : ShellTest("dump", "VEMO_DUMP", VEMO_DUMP) {}
};

}  // namespace

TEST_F(DumpFiles, AreWrittenCompletelyOrNotAtAll) {
    const char* cases[] = {
        "(umask 027; $dump --output=new) && cmp text new && [ $(stat -c %a new) = 640 ]",
        "touch -d @9 new && $dump --output=none --output=new && [ $(stat -c %Y new) = 9 ]",
        "mkdir d && echo >d/old && chmod 604 d/old && ln -s d/old link && ln -s link links",
        "$dump --output=links && [ -L links ] && cmp text d/old && [ $(stat -c %a d/old) = 604 ]",
        "ln -s d/new dangling && $dump --output=dangling && cmp text d/new",
        "head -c 999 text >d/old && $dump --output=d/old && cmp text d/old",
        "! (ulimit -f 600; ./dump --output=d/old long.xml) && cmp text d/old",
        "[ $(ls -A d | wc -l) = 2 ]",
        "mkfifo pipe && { cat pipe >got & $dump --output=pipe; } && wait && cmp text got",
        "echo first >log && $dump --output=/dev/stdout >>log && (echo first; cat text) | cmp - log",
        "! $dump --output=/dev/full && grep \"Cannot write '/dev/full': No space left\" err",
        "! $dump --output=d && ! $dump --output=no/x && ! $dump --output=text/x",
        "! $dump --depfile=no/x --output=x && ! [ -e x ]",
        "! $dump --depfile=x && ! $dump --depfile-target=x && ! [ -e x ]",
        "[ \"$($dump --candidates)\" = \"$(printf 'dev.xml\\ntm.xml')\" ]",
    };
    dir.write("long.xml", edit(BOARD, "\"acme\"", "\"" + std::string(400000, 'x') + "\""));
    for (const char* commands : cases) {
        EXPECT_EQ(run(std::string("dump='./dump board_spec.xml'; $dump >text && ") + commands), 0)
            << commands << dir.read("err");
    }
}

TEST(Depfile, EscapesNames) {
    using vemo::dump::depfile_text;
    EXPECT_EQ(depfile_text("o %", {"a #", "/$b:c|\\d", "e\\ \\"}),
              "o\\ \\%: a\\ \\# /$$b\\:c\\|\\d e\\\\\\ \\\\\n"
              "a\\ \\#:\n/$$b\\:c|\\d:\ne\\\\\\ \\\\:\n");
    EXPECT_EQ(depfile_text("o", {"a=b", "100%"}), "o: /dev/null a=b 100%\n");
    for (const char* name : {"a\nb", "a;b"}) {
        EXPECT_THROW(depfile_text("o", {name}), std::runtime_error);
    }
}
