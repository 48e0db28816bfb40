// The program boardsim, started as a user starts it: ports, pseudo-terminals, its end.
#include <arpa/inet.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "tests/simulator/board_bench.h"

namespace {

namespace fs = std::filesystem;

// Reads until `part` has come; gives all, or what there is after ten seconds or at the end.
std::string ReadUntil(int fd, const std::string& part) {
    std::string all;
    pollfd watched = {fd, POLLIN, 0};
    char block[4096];
    while (all.find(part) == std::string::npos && poll(&watched, 1, 10000) > 0) {
        const ssize_t count = read(fd, block, sizeof block);
        if (count <= 0) break;
        all.append(block, static_cast<size_t>(count));
    }
    return all;
}

class Program {
  public:
    explicit Program(const std::string& arguments) {
        int pipeEnds[2];
        EXPECT_EQ(pipe(pipeEnds), 0);
        pid = fork();
        if (pid == 0) {
            dup2(pipeEnds[1], 1);
            close(pipeEnds[0]);
            const std::string line = "exec " KWCC_BINARY_DIR "/bin/boardsim " + arguments + " 2>&1";
            _exit(execl("/bin/sh", "sh", "-c", line.c_str(), nullptr));
        }
        close(pipeEnds[1]);
        output = pipeEnds[0];
    }
    ~Program() {
        if (pid > 0) End(SIGKILL);
        close(output);
    }
    std::string Words(const std::string& part) { return ReadUntil(output, part); }

    // Its exit code, or -1 after a signal. With `signal` 0 it must end by itself.
    int End(int signal) {
        if (signal != 0) kill(pid, signal);
        int status = 0;
        EXPECT_EQ(waitpid(pid, &status, 0), pid);
        pid = -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    // How often it has slept so far.
    int64_t Wakes() const {
        std::ifstream status("/proc/" + std::to_string(pid) + "/status");
        const std::string all{std::istreambuf_iterator<char>(status), {}};
        return std::stoll(all.substr(all.find("voluntary_ctxt_switches:") + 24));
    }

    int output = -1;

  private:
    pid_t pid;
};

// To the port that its words name.
int Connect(const std::string& words) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<uint16_t>(stoi(words.substr(words.find(" port ") + 6))));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const int fd = socket(AF_INET, SOCK_STREAM, 0);
    EXPECT_EQ(connect(fd, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    return fd;
}

std::string Talk(int fd, const std::string& line, const std::string& until) {
    EXPECT_EQ(write(fd, line.data(), line.size()), static_cast<ssize_t>(line.size()));
    return ReadUntil(fd, until);
}

TEST(Boardsim, ServesOneHostAfterAnotherOverTcp) {
    const fs::path folder = fs::path(testing::TempDir()) / "boardsim-drive";
    fs::create_directories(folder / "sub");
    std::ofstream(folder / "sub" / "one.bas") << "PRINT \"from the PC\"\n";
    Program program("--port 0 --folder=" + folder.string());
    const std::string words = program.Words("USB console\n"), start = "127.0.0.1 port ";
    EXPECT_TRUE(Has(words, start));
    int fd = Connect(words);
    EXPECT_EQ(ReadUntil(fd, "\x1b[?7h").rfind("\rPicoMite MMBasic", 0), 0u);
    EXPECT_TRUE(Has(Talk(fd, "RUN \"sub/one\"\r", "PC\r\n"), "\r\nfrom the PC\r\n"));
    // A second program can't have the port, and says so.
    Program second("--port " + words.substr(words.find(start) + start.size(), 5));
    EXPECT_TRUE(Has(second.Words("\n"), "is taken"));
    EXPECT_EQ(second.End(0), 1);
    // A restart takes the port away; who comes meanwhile waits.
    EXPECT_EQ(Talk(fd, "CPU RESTART\r", "never"), "CPU RESTART\r\n");
    for (const char* square : {" 36", " 49"}) {
        close(fd);
        fd = Connect(words);
        EXPECT_TRUE(Has(Talk(fd, "PRINT 6*6;7*7\r", square), square));
    }
    EXPECT_EQ(program.End(SIGTERM), 0);
    close(fd);
    fs::remove_all(folder);
}

TEST(Boardsim, APseudoTerminalWithALinkThatGoesAtTheEnd) {
    const std::string link = testing::TempDir() + "/boardsim-link";
    fs::remove(link);
    Program program("--board cmm2 --pty --link " + link);
    const std::string words = program.Words("linked as");
    EXPECT_EQ(words.rfind("boardsim: /dev/pts/", 0), 0u);
    const int fd = open(link.c_str(), O_RDWR | O_NOCTTY);
    ASSERT_GE(fd, 0);
    EXPECT_TRUE(Has(Talk(fd, "nosuch\r", "command"), "Unknown command"));
    close(fd);
    EXPECT_EQ(program.End(SIGINT), 0);
    EXPECT_FALSE(fs::exists(fs::symlink_status(link)));
    // What is no link of its own is left alone.
    std::ofstream(link) << "mine";
    Program refused("--pty --link " + link);
    EXPECT_TRUE(Has(refused.Words("\n"), "can't make the link"));
    EXPECT_EQ(refused.End(0), 1);
    EXPECT_EQ(fs::file_size(link), 4u);
    fs::remove(link);
}

TEST(Boardsim, TelnetOnceAndWrongOptions) {
    Program program("--port 0 --once --board webmite");
    const int fd = Connect(program.Words("\n"));
    const std::string start = ReadUntil(fd, "\x1b[?7h");
    const std::string greeting = "\xff\xfb\x03\xff\xfd\x03\xff\xfb\x01\xff\xfd\x22\xff\xfe\x22";
    EXPECT_EQ(start.substr(0, 18), greeting + std::string("\0\r\0", 3));
    const std::string line("\r\0\n 1\r\0\n", 8);
    EXPECT_TRUE(Has(Talk(fd, "PRINT 1" + line.substr(0, 2), "> "), line));
    close(fd);
    EXPECT_EQ(program.End(0), 0);
    for (const char* wrong : {"--nosuch", "--port=70000", "--board=nosuch", "--pin", "--link=x"}) {
        Program refused(wrong);
        EXPECT_TRUE(Has(refused.Words("--help"), "--help tells all options"));
        EXPECT_EQ(refused.End(0), 2) << wrong;
    }
    Program list("--list-boards");
    EXPECT_TRUE(Has(list.Words("pi-cromite"), "picomite "));
    EXPECT_EQ(list.End(0), 0);
}

TEST(Boardsim, AnIdleBoardSleeps) {
    Program program("--port 0");
    const int fd = Connect(program.Words("\n"));
    ReadUntil(fd, "\x1b[?7h");
    const int64_t before = program.Wakes();
    pollfd quiet = {fd, POLLIN, 0};
    EXPECT_EQ(poll(&quiet, 1, 300), 0);      // the prompt stands
    EXPECT_LE(program.Wakes() - before, 3);  // a polling loop has hundreds
    close(fd);
    EXPECT_EQ(program.End(SIGTERM), 0);
}

}  // namespace
