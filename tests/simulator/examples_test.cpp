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

}  // namespace

TEST(Examples, AllThreeRunToTheirEndAndLookAsTheyPromise) {
    const std::pair<const char*, std::vector<std::string>> rows[] = {
        {"hello.bas",
         {"Hello from ", "          Kewlink Console greets you for time 5\r\n",
          "on the board's clock. Bye.\r\n"}},
        {"colours.bas", {"\x1b[48;2;", ";99H", "288 moves of the cursor.\r\n"}},
        {"sieve.bas",
         {"\r\n     2     3     5     7    11    13    17    19    23    29\r\n",
          "   283   293\r\n------", "Found 62 primes in"}}};
    for (const auto& [name, parts] : rows) {
        const std::string program = ReadExample(name);
        EXPECT_EQ(program.rfind("'target s\\picomite\n", 0), 0u);
        for (const char* family : {"picomite", "micromite"}) {
            BoardBench bench(family);
            bench.Say("AUTOSAVE\r");
            EXPECT_TRUE(Has(bench.Say(program + "\x1a"), "Saved "));
            std::string out = bench.Say("RUN\r", 8000);  // a few seconds
            EXPECT_FALSE(Has(out, "Error"));
            for (const std::string& part : parts) {
                EXPECT_TRUE(Has(out, part)) << name << ' ' << part;
                out.erase(0, out.find(part));
            }
            EXPECT_TRUE(Has(out, "> "));
        }
    }
}
