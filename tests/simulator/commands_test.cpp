// Listings and their pages, files and flash slots.
#include <algorithm>

#include "tests/simulator/board_bench.h"

namespace {

constexpr int64_t kStamp = 1750500450;  // 21-06-2025 10:07:30

TEST(Listing, EachFamilysLayout) {
    const std::pair<const char*, const char*> rows[] = {
        {"picomite",
         "CHDIR \"dir\" | x=5 | files -> A:/dir#   <DIR>  sub#"
         "00:00 00-00-1980          3  Another, one.txt#10:07 21-06-2025       1234  prog.bas#"
         "1 directory, 2 files, 13619200 bytes free\n"
         "PRINT x ->  0\n"  // FILES at the prompt clears the variables
         "FILES \"p*.B?s\" -> A:/dir#10:07 21-06-2025       1234  prog.bas#"
         "0 directories, 1 file, 13619200 bytes free\n"
         "FILES \"no/*\" -> Error : Could not find the path\n"},
        {"cmm2", "ls -> A:/#   <DIR>  dir#10:07 21-06-2025          7  b#1 directory, 1 file\n"},
        {"armmite", "FILES \"*\" -> A:/#   <DIR>  dir#         7  b#1 directory, 1 file\n"},
        {"maximite",
         "files -> dir             <DIR>#b                        7#1 directory, 1 file\n"}};
    for (const auto& [family, script] : rows) {
        BoardBench bench(family);
        bench.board.AddFile("dir/sub/deep.bas", "", 0);
        bench.board.AddFile("dir/prog.bas", std::string(1234, 'x'), kStamp);
        bench.board.AddFile("dir/Another, one.txt", "abc", 0);
        bench.board.AddFile("b", std::string(7, 'x'), kStamp);
        bench.ExpectDialogue(script);
    }
}

TEST(Listing, PagesStopForOneRawByte) {
    const std::string anyKey = "PRESS ANY KEY ...", erase = "\r" + std::string(17, ' ') + "\r";
    BoardBench bench;
    const auto lines = [&bench](const std::string& said) {
        const std::string page = bench.Say(said);
        return std::count(page.begin(), page.end(), '\n');
    };
    for (int i = 101; i <= 119; ++i) bench.board.AddFile("f" + std::to_string(i), "x", kStamp);
    EXPECT_TRUE(Has(bench.Say("FILES\r"), "f119\r\n" + anyKey));  // right before the summary
    EXPECT_EQ(bench.Say("x").substr(0, 44), erase + "0 directories, 19 files, ");
    for (int i = 120; i <= 160; ++i) bench.board.AddFile("f" + std::to_string(i), "x", kStamp);
    EXPECT_EQ(lines("FILES\r"), 1 + 20);  // the command and 20 lines
    EXPECT_EQ(lines(" "), 21);
    // CR LF: the CR goes on to the end, the LF is left for the prompt.
    const std::string page = bench.Say("\r\n");
    EXPECT_EQ(page.substr(page.size() - 18), "\r\n" + kQuiet + "\r\n" + kQuiet);
    bench.Say("FILES\r");  // Ctrl-C stops with no summary
    EXPECT_EQ(bench.Say("\x03"), kLead603 + "\r\n" + kQuiet);
    bench.Say("AUTOSAVE\r" + std::string(48, '\r') + "'\x1a");
    EXPECT_EQ(lines("LIST\r"), 1 + 20);
    EXPECT_EQ(lines("xx"), 20 + 9);
    EXPECT_EQ(lines("LIST ALL\r"), 1 + 49);
}

// What the file manager does with slots is in its tests.
TEST(Commands, FilesAndSlots) {
    BoardSetup setup;
    setup.sdCard = true;
    BoardBench bench("picomite", setup);
    bench.Say("AUTOSAVE\rPRINT 1\r\x1a");
    bench.Follow({{"flash save 1\r", 1499, "flash save 1\r\n"}, {"", 1, kQuiet}});
    bench.ExpectDialogue(R"(FLASH SAVE 1 -> Error : Already programmed
FLASH LOAD 3 -> Error : Flash slot empty
FLASH ERASE 4 -> Error : 4 is invalid (valid is 1 to 3)
MKDIR "games" | MKDIR "GAMES" -> Error : Entry already exists
CHDIR "games" | SAVE "one" | CHDIR ".." | CHDIR ".." -> Error : Could not find the path
NEW | SAVE "x" -> Error : Nothing to save
FLASH RUN 1 ->  1
NEW | LOAD "games\one" | RUN ->  1
LOAD "games/one",R -> Error : Only a name is taken in the simulated board
RUN "one" -> Error : Could not find the file
RMDIR "games" -> Error : Dir is not empty
DRIVE "b:" | MKDIR "x" | MKDIR "x" -> Error : Access denied due to prohibited access
CHDIR "A:/games" -> Error : Only valid on current drive
KILL "a:/games/one.bas" | FILES "A:/games" -> A:/games#0 directories, 0 files, 13631488 bytes free
)");
    EXPECT_TRUE(bench.board.AddFile("A:/big1", std::string(13 * 1024 * 1024 - 8192, 'x'), 0));
    EXPECT_FALSE(bench.board.AddFile("A:/big2", std::string(8193, 'x'), 0));
}

}  // namespace
