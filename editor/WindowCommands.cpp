#include "editor/WindowCommands.h"

#include <QApplication>

#include "companion/CommandRows.h"
#include "editor/CommentLines.h"
#include "editor/Completion.h"
#include "editor/EditorWindow.h"

namespace {

using Window = EditorWindow;

struct CommandRow {
    const char* menu;
    const char* caption;  // empty: a separator
    const char* keys;
    const char* button;           // of the tool bar; null for none
    void (*act)(Window& window);  // null: a menu of the files that were open before
};

// clang-format off
const CommandRow kCommands[] = {
    {"&File", "&New",                 "Ctrl+N",       "New",   [](Window& w) { w.Hooks().newWindow(); }},
    {"&File", "&Open...",             "Ctrl+O",       "Open",  [](Window& w) { w.AskOpen(); }},
    {"&File", "Open &recent",         "",             nullptr, nullptr},
    {"&File", "&Save",                "Ctrl+S",       "Save",  [](Window& w) { w.Save(); }},
    {"&File", "Save &as...",          "Ctrl+Shift+S", nullptr, [](Window& w) { w.SaveAs(); }},
    {"&File", "&Print...",            "Ctrl+P",       nullptr, [](Window& w) { w.Print(); }},
    {"&File", "",                     "",             nullptr, nullptr},
    {"&File", "&Close",               "Ctrl+W",       nullptr, [](Window& w) { w.close(); }},
    {"&File", "&Quit",                "Ctrl+Q",       nullptr, [](Window&) { QApplication::closeAllWindows(); }},
    {"&Edit", "&Undo",                "Ctrl+Z",       nullptr, [](Window& w) { w.Text()->undo(); }},
    {"&Edit", "&Redo",                "Ctrl+Y",       nullptr, [](Window& w) { w.Text()->redo(); }},
    {"&Edit", "",                     "",             nullptr, nullptr},
    {"&Edit", "Cu&t",                 "Ctrl+X",       nullptr, [](Window& w) { w.Text()->cut(); }},
    {"&Edit", "&Copy",                "Ctrl+C",       nullptr, [](Window& w) { w.Text()->copy(); }},
    {"&Edit", "&Paste",               "Ctrl+V",       nullptr, [](Window& w) { w.Text()->paste(); }},
    {"&Edit", "Select &all",          "Ctrl+A",       nullptr, [](Window& w) { w.Text()->selectAll(); }},
    {"&Edit", "",                     "",             nullptr, nullptr},
    {"&Edit", "Co&mment in or out",   "Ctrl+3",       nullptr, [](Window& w) { ToggleComments(*w.Text()); }},
    {"&Edit", "C&omplete the word",   "Ctrl+Space",   nullptr, [](Window& w) { OfferWords(*w.Text(), true); }},
    {"&Find", "&Find...",             "Ctrl+F",       "Find",  [](Window& w) { w.Finder()->Ask(false); }},
    {"&Find", "&Replace...",          "Ctrl+H",       nullptr, [](Window& w) { w.Finder()->Ask(true); }},
    {"&Find", "Find &next",           "F3",           nullptr, [](Window& w) { w.Finder()->Find(false); }},
    {"&Find", "Find &previous",       "Shift+F3",     nullptr, [](Window& w) { w.Finder()->Find(true); }},
    {"&Find", "",                     "",             nullptr, nullptr},
    {"&Find", "Go to &line...",       "Ctrl+G",       nullptr, [](Window& w) { w.GoToLine(); }},
    {"&Find", "Go to a &SUB...",      "Ctrl+J",       nullptr, [](Window& w) { w.Procedures()->showPopup(); }},
    {"&Find", "Go to the &error",     "Ctrl+E",       nullptr, [](Window& w) { w.GoToReportedLine(); }},
    {"&Board", "Load and &run",       "F5",           "Load and run", [](Window& w) { w.LoadToDevice("/load "); }},
    {"&Board", "&Load",               "Ctrl+F5",      nullptr, [](Window& w) { w.LoadToDevice("/store "); }},
    {"&Board", "&Stop the program",   "Ctrl+F2",      "Stop",  [](Window& w) { w.StopProgram(); }},
    {"&View", "&Larger",              "Ctrl++",       nullptr, [](Window& w) { w.Text()->zoomIn(); }},
    {"&View", "&Smaller",             "Ctrl+-",       nullptr, [](Window& w) { w.Text()->zoomOut(); }},
    {"&View", "&Normal size",         "Ctrl+0",       nullptr, [](Window& w) { w.Text()->zoomTo(0); }},
    {"&View", "&Font...",             "",             nullptr, [](Window& w) { w.ChooseFont(); }},
    {"&Help", "&Help on the word",    "F1",           nullptr, [](Window& w) { w.ShowHelp(); }},
};
// clang-format on

QMenu* RecentMenu(Window& window, Habits& habits) {
    auto* recent = new QMenu(&window);
    QObject::connect(recent, &QMenu::aboutToShow, recent, [recent, &window, &habits] {
        recent->clear();
        for (const QString& path : habits.RecentFiles()) {
            QAction* action = recent->addAction(QString(path).replace('&', "&&"));
            QObject::connect(action, &QAction::triggered, &window,
                             [path, &window] { window.Hooks().openFile(path); });
        }
    });
    return recent;
}

}  // namespace

void AddCommands(EditorWindow& window, Habits& habits) {
    QToolBar* bar = AddCommandRows(window, kCommands, [&](const CommandRow& row, QAction* action) {
        if (!row.act) return action->setMenu(RecentMenu(window, habits));
        QObject::connect(action, &QAction::triggered, &window,
                         [&row, &window] { row.act(window); });
    });
    bar->addSeparator();
    bar->addWidget(window.Procedures());
}
