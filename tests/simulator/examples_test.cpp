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
    const std::pair<const char*, const char*> rows[] = {
        {"hello.bas", "on the board's clock. Bye.\r\n"},
        {"colours.bas", "288 moves of the cursor.\r\n"},
        {"sieve.bas", "Found 62 primes in"}};
    for (const auto& [name, last] : rows) {
        const std::string program = ReadExample(name);
        EXPECT_EQ(program.rfind("'target s\\picomite\n", 0), 0u);
        for (const char* family : {"picomite", "micromite"}) {
            BoardBench bench(family);
            bench.Say("AUTOSAVE\r");
            EXPECT_TRUE(Has(bench.Say(program + "\x1a"), "Saved "));
            const std::string out = bench.Say("RUN\r", 8000);
            EXPECT_TRUE(Has(out.substr(std::min(out.find(last), out.size())), "> ")) << name << out;
            EXPECT_FALSE(Has(out, "Error"));
        }
    }
}

TEST(Examples, TheirPicturesAreWhatTheyPromise) {
    BoardBench bench;
    const std::string primes = bench.RunText(ReadExample("sieve.bas"));
    EXPECT_TRUE(
        Has(primes, "\r\n     2     3     5     7    11    13    17    19    23    29\r\n"));
    EXPECT_TRUE(Has(primes, "   283   293\r\n------"));
    const std::string colours = bench.RunText(ReadExample("colours.bas"));
    EXPECT_EQ(CountOf(colours, "\x1b[48;2;"), 960u);
    EXPECT_EQ(CountOf(colours, ";99H"), 3u);  // the last column of each wave
    const std::string hello = bench.RunText(ReadExample("hello.bas"));
    EXPECT_TRUE(Has(hello, "Hello from PicoMite!\r\n"));
    EXPECT_TRUE(Has(hello, "          Kewlink Console greets you for time 5\r\n"));
}
