#include "plotter/PlotCommands.h"

#include "companion/CommandRows.h"
#include "plotter/PlotWindow.h"

namespace {

using Window = PlotWindow;
using Mode = PlotView::Mode;

struct CommandRow {
    const char* menu;
    const char* caption;  // empty: a separator
    const char* keys;     // those without Ctrl are the plot's own: other widgets use them, too
    const char* button;   // of the tool bar; null for none
    void (*act)(Window& window);
    bool (*ticked)(const Window& window);  // null: it is never ticked
};

constexpr double kIn = 0.8, kOut = 1.25;  // of what is on show
constexpr double kStep = 0.1;

// clang-format off
const CommandRow kCommands[] = {
    {"&File", "&Open a recorded run...", "Ctrl+O", nullptr,    [](Window& w) { w.AskOpenRun(); }, nullptr},
    {"&File", "&Save as CSV...",       "Ctrl+S",   "Save",     [](Window& w) { w.SaveCsv(); }, nullptr},
    {"&File", "Save the &picture...",  "Ctrl+P",   "Picture",  [](Window& w) { w.SavePicture(); }, nullptr},
    {"&File", "&Log to a file...",     "Ctrl+L",   "Log",      [](Window& w) { w.ToggleLog(); }, [](const Window& w) { return w.IsLogging(); }},
    {"&File", "",                      "",         nullptr,    nullptr, nullptr},
    {"&File", "&Connect again",        "F5",       nullptr,    [](Window& w) { w.ConnectAgain(); }, nullptr},
    {"&File", "&Forget what came",     "Ctrl+Del", nullptr,    [](Window& w) { w.Forget(); }, nullptr},
    {"&File", "",                      "",         nullptr,    nullptr, nullptr},
    {"&File", "&Quit",                 "Ctrl+Q",   nullptr,    [](Window& w) { w.close(); }, nullptr},
    {"&View", "&Pause",                "Space",    "Pause",    [](Window& w) { w.View()->SetPaused(!w.View()->IsPaused()); }, [](const Window& w) { return w.View()->IsPaused(); }},
    {"&View", "&Follow the newest",    "End",      "Follow",   [](Window& w) { w.View()->SetMode(Mode::kFollow); }, [](const Window& w) { return w.View()->ShownMode() == Mode::kFollow; }},
    {"&View", "Fit &all",              "Home",     "Fit all",  [](Window& w) { w.View()->SetMode(Mode::kWhole); }, [](const Window& w) { return w.View()->ShownMode() == Mode::kWhole; }},
    {"&View", "",                      "",         nullptr,    nullptr, nullptr},
    {"&View", "&Count along x",        "Ctrl+T",   nullptr,    [](Window& w) { w.SetByCount(!w.View()->IsByCount()); }, [](const Window& w) { return w.View()->IsByCount(); }},
    {"&View", "One &scale a series",   "Ctrl+Y",   nullptr,    [](Window& w) { w.SetOneScaleEach(!w.View()->HasOneScaleEach()); }, [](const Window& w) { return w.View()->HasOneScaleEach(); }},
    {"&View", "Show or hide s&eries",  "Ctrl+E",   nullptr,    [](Window& w) { w.Legend()->setFocus(); }, nullptr},
    {"&View", "",                      "",         nullptr,    nullptr, nullptr},
    {"&View", "Zoom &in",              "+",        nullptr,    [](Window& w) { w.View()->ZoomX(kIn); }, nullptr},
    {"&View", "Zoom &out",             "-",        nullptr,    [](Window& w) { w.View()->ZoomX(kOut); }, nullptr},
    {"&View", "&Higher",               "Ctrl++",   nullptr,    [](Window& w) { w.View()->ZoomY(kIn); }, nullptr},
    {"&View", "Lo&wer",                "Ctrl+-",   nullptr,    [](Window& w) { w.View()->ZoomY(kOut); }, nullptr},
    {"&View", "&Left",                 "Left",     nullptr,    [](Window& w) { w.View()->MoveX(-kStep); }, nullptr},
    {"&View", "&Right",                "Right",    nullptr,    [](Window& w) { w.View()->MoveX(kStep); }, nullptr},
    {"&View", "&Up",                   "Up",       nullptr,    [](Window& w) { w.View()->MoveY(kStep); }, nullptr},
    {"&View", "&Down",                 "Down",     nullptr,    [](Window& w) { w.View()->MoveY(-kStep); }, nullptr},
    {"&Help", "&Guide",                "F1",       nullptr,    [](Window& w) { w.ShowGuide(); }, nullptr},
};
// clang-format on

bool IsPlotsOwn(const QString& keys) {
    return !keys.startsWith("Ctrl") && !keys.startsWith('F');
}

void Wire(const CommandRow& row, QAction* action, Window& window) {
    action->setCheckable(row.ticked);
    if (IsPlotsOwn(row.keys)) {
        action->setShortcutContext(Qt::WidgetShortcut);
        window.View()->addAction(action);
    }
    QObject::connect(action, &QAction::triggered, &window, [&row, &window] {
        row.act(window);
        ShowTicks(window);
    });
    action->setData(static_cast<int>(&row - kCommands));
    window.addAction(action);
}

}  // namespace

void AddCommands(PlotWindow& window) {
    AddCommandRows(window, kCommands, [&window](const CommandRow& row, QAction* action) {
        Wire(row, action, window);
    });
}

void ShowTicks(PlotWindow& window) {
    for (QAction* action : window.actions()) {
        const CommandRow& row = kCommands[action->data().toInt()];
        if (row.ticked) action->setChecked(row.ticked(window));
    }
}
