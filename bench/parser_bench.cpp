// The terminal's road in process: text through the parser into the screen, and a look at
// the picture after each piece, as a showing on the display would. Figures are bytes of
// the stream in a second. run: QT_QPA_PLATFORM=offscreen parser_bench
#include <benchmark/benchmark.h>

#include <QString>
#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

#include "base/Numbers.h"
#include "bench/Corpora.h"
#include "terminal/screen/Capture.h"
#include "terminal/screen/MonitorViews.h"
#include "terminal/screen/TerminalPainters.h"
#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/VtFinals.h"
#include "terminal/screen/VtParser.h"
#include "tests/screen/ScreenRig.h"
#include "ui/InterfaceLayer.h"
#include "ui/drawing/Drawing.h"

namespace {

constexpr size_t kCorpusSize = 4'000'000;
constexpr int kFloodSize = 16384;

enum Corpus { kAscii, kColour, kCursor };

std::string CorpusOf(int64_t which) {
    if (which == kAscii) return AsciiCorpus(kCorpusSize);
    return which == kColour ? ColourCorpus(kCorpusSize) : CursorCorpus(kCorpusSize);
}

std::vector<QByteArray> PiecesOf(const std::string& text, size_t size) {
    std::vector<QByteArray> pieces;
    for (size_t at = 0; at < text.size(); at += size) {
        pieces.push_back(QByteArray::fromStdString(text.substr(at, size)));
    }
    return pieces;
}

// Arguments: corpus, bytes in a piece, whether each piece is looked at. The conversion from
// bytes to text is measured with it.
void BM_Feed(benchmark::State& state) {
    const std::string corpus = CorpusOf(state.range(0));
    const std::vector<QByteArray> pieces = PiecesOf(corpus, static_cast<size_t>(state.range(1)));
    Feed("\x1b[0m");
    ClearTerminal(kTerminalCanvas);
    for (auto _ : state) {
        for (const QByteArray& piece : pieces) {
            TerminalFeed(QString::fromUtf8(piece));
            if (state.range(2)) benchmark::DoNotOptimize(TerminalPicture().constBits());
        }
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * corpus.size()));
}
BENCHMARK(BM_Feed)
    ->ArgNames({"corpus", "piece", "look"})
    ->ArgsProduct({{kAscii, kColour, kCursor}, {1024, 4608, 16384, 65536}, {0, 1}})
    ->Unit(benchmark::kMillisecond);

// What the bytes cost before they reach the parser.
void BM_Decode(benchmark::State& state) {
    const QByteArray piece = QByteArray::fromStdString(CorpusOf(state.range(0)).substr(0, 16384));
    for (auto _ : state) benchmark::DoNotOptimize(QString::fromUtf8(piece));
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * piece.size());
}
BENCHMARK(BM_Decode)->ArgName("corpus")->Arg(kAscii);

// One read of a hostile stream: a sequence repeated over 16,384 bytes, on a full screen.
constexpr const char* kUsual = "\x1b[0m\x1b[8;50;101t";
constexpr const char* kLargest = "\x1b[0m\x1b[8;256;256t";

struct Flood {
    const char* name;
    std::string unit;
    const char* size = kUsual;
};

const Flood kFloods[] = {
    {"ESC M", "\x1bM"},
    {"ESC D", "\x1b\x44"},
    {"CSI t", "\x1b[t"},
    {"CSI 8;50;101t, 8;49;100t", "\x1b[8;50;101t\x1b[8;49;100t"},
    {"CSI 8;9t, text", "\x1b[8;250;256tx\x1b[8;249;255ty"},
    {"CSI 2J", "\x1b[2J"},
    {"TAB", "\t"},
    {"a TAB", "a\t"},
    {"CSI 6n", "\x1b[6n"},
    {"LF", "\n"},
    {"ESC M, text", "\x1bMx"},
    {"ESC D, ESC M", "\x1b\x44\x1bM"},
    {"CSI 38 m, one character", "\x1b[38;2;1;2;3mx"},
    {"BS", "\b"},
    {"ESC M, largest screen", "\x1bM", kLargest},
    {"ESC D, largest screen", "\x1b\x44", kLargest},
    {"CSI 2J, largest screen", "\x1b[2J", kLargest},
    {"CSI t, largest screen", "\x1b[t", kLargest},
};

void BM_Flood(benchmark::State& state) {
    const Flood& flood = kFloods[state.range(0)];
    std::string text;
    while (text.size() < kFloodSize) text += flood.unit;
    const std::string screen = flood.size + ColourCorpus(80000);
    for (auto _ : state) {
        state.PauseTiming();
        Feed(screen);
        TerminalPicture();
        state.ResumeTiming();
        Feed(text);
        benchmark::DoNotOptimize(TerminalPicture().constBits());
    }
    TakeReplyText();
    state.SetLabel(flood.name);
}
BENCHMARK(BM_Flood)->DenseRange(0, std::size(kFloods) - 1)->Unit(benchmark::kMillisecond);

// The monitors: blocks as a poll brings them, each looked at.
void BM_Monitor(benchmark::State& state) {
    const auto show = state.range(0) ? TerminalHexDump : TerminalPrintRaw;
    const auto size = static_cast<size_t>(state.range(1));
    std::string block = CorpusOf(state.range(0) ? kColour : kAscii).substr(0, size);
    Feed(kUsual);
    for (auto _ : state) {
        Feed("\x1b[0m");
        show(block.data(), static_cast<int64_t>(size));
        benchmark::DoNotOptimize(TerminalPicture().constBits());
    }
    state.SetBytesProcessed(state.iterations() * state.range(1));
}
BENCHMARK(BM_Monitor)
    ->ArgNames({"hex", "block"})
    ->ArgsProduct({{0, 1}, {64, 5000, 16384}})
    ->Unit(benchmark::kMicrosecond);

// One chunk into a capture that holds so many million characters already. `worst` is the
// dearest chunk on the way there and in the loop, in milliseconds.
void BM_Capture(benchmark::State& state) {
    const QString chunk(4096, 'c');
    double worst = 0;
    const auto add = [&] {
        const auto start = std::chrono::steady_clock::now();
        CaptureText(chunk);
        const std::chrono::duration<double, std::milli> took =
            std::chrono::steady_clock::now() - start;
        worst = std::max(worst, took.count());
    };
    StartCapture();
    while (capture.buffer.size() < state.range(0) * 1'000'000) add();
    for (auto _ : state) add();
    state.counters["worst"] = worst;
    state.counters["held"] = capture.buffer.size();
    StartCapture();
    StopCapture();
}
BENCHMARK(BM_Capture)->ArgName("held")->Arg(0)->Arg(200)->Iterations(4000);

void BM_Repaint(benchmark::State& state) {
    Feed(kUsual + AsciiCorpus(20000));
    for (auto _ : state) {
        TerminalRepaint();
        benchmark::DoNotOptimize(TerminalPicture().constBits());
    }
}
BENCHMARK(BM_Repaint)->Unit(benchmark::kMicrosecond);

void BM_ScrollOneLine(benchmark::State& state) {
    Feed(kUsual + AsciiCorpus(20000));
    for (auto _ : state) {
        TerminalScrollUp(1);
        benchmark::DoNotOptimize(TerminalPicture().constBits());
    }
}
BENCHMARK(BM_ScrollOneLine)->Unit(benchmark::kMicrosecond);

void BM_Blink(benchmark::State& state) {
    for (auto _ : state) {
        NotifyCursorBlink();
        benchmark::DoNotOptimize(TerminalPicture().constBits());
    }
}
BENCHMARK(BM_Blink)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    StartInterfaceLayer(argv);
    OpenScreenRig();
    benchmark::RunSpecifiedBenchmarks();
    EndInterfaceLayer();
    return 0;
}
