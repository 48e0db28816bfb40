// The sample programs run on the simulated board, and look as they should.
#include <fstream>
#include <sstream>

#include "tests/simulator/board_bench.h"

namespace {

std::string ReadExample(const char* name) {
    std::ifstream file(std::string(KWCC_SOURCE_DIR "/examples/") + name);
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}

size_t CountOf(const std::string& text, const std::string& part) {
    size_t count = 0;
    for (size_t at = 0; (at = text.find(part, at)) != std::string::npos; ++at) ++count;
    return count;
}

}  // namespace

TEST(Examples, AllThreeRunToTheirEndInAFewSeconds) {
    struct {
        const char* name;
        const char* last;
    } const rows[] = {{"hello.bas", "on the board's clock. Bye.\r\n"},
                      {"colours.bas", "288 moves of the cursor.\r\n"},
                      {"sieve.bas", "Found 62 primes in"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const std::string program = ReadExample(row.name);
        EXPECT_EQ(program.rfind("'target s\\picomite\n", 0), 0u);
        for (const char* family : {"picomite", "micromite"}) {
            BoardBench bench(family);
            bench.Say("AUTOSAVE\r");
            EXPECT_NE(bench.Say(program + "\x1a").find("Saved "), std::string::npos);
            const std::string out = bench.Say("RUN\r", 8000);
            EXPECT_NE(out.find(row.last), std::string::npos) << out.substr(0, 2000);
            EXPECT_EQ(out.find("Error"), std::string::npos);
            // Back at the prompt within the time, with the cursor shown.
            EXPECT_EQ(out.substr(out.rfind("> "), 2), "> ");
        }
    }
}

TEST(Examples, TheirPicturesAreWhatTheyPromise) {
    BoardBench bench;
    const std::string primes = bench.RunText(ReadExample("sieve.bas"));
    EXPECT_NE(primes.find("\r\n     2     3     5     7    11    13    17    19    23    29\r\n"),
              std::string::npos);
    EXPECT_NE(primes.find("   283   293\r\n------"), std::string::npos);
    const std::string colours = bench.RunText(ReadExample("colours.bas"));
    EXPECT_EQ(CountOf(colours, "\x1b[48;2;"), 960u);
    EXPECT_EQ(CountOf(colours, ";99H"), 3u);  // the last column of each wave
    const std::string hello = bench.RunText(ReadExample("hello.bas"));
    EXPECT_NE(hello.find("Hello from PicoMite!\r\n"), std::string::npos);
    EXPECT_NE(hello.find("          Kewlink Console greets you for time 5\r\n"), std::string::npos);
}
