// Menus and a tool bar out of a table of commands.
#pragma once

#include <QMainWindow>
#include <QMenuBar>
#include <QToolBar>

// Each row has a `menu`, a `caption` (empty: a separator), `keys`, and a `button` of the tool bar
// (null for none); those of a menu stand together. `wire` gets each row but the separators, and its
// action. The tool bar.
template <typename Row, size_t kCount, typename Wire>
QToolBar* AddCommandRows(QMainWindow& window, const Row (&rows)[kCount], Wire wire) {
    QToolBar* bar = window.addToolBar("Commands");
    bar->setObjectName("Commands");
    bar->setMovable(false);
    QMenu* menu = nullptr;
    for (const Row& row : rows) {
        if (!menu || menu->title() != row.menu) menu = window.menuBar()->addMenu(row.menu);
        QAction* action = *row.caption ? menu->addAction(row.caption) : menu->addSeparator();
        action->setShortcut(QKeySequence(row.keys));
        if (row.button) {
            action->setIconText(row.button);
            action->setToolTip(QString("%1 (%2)").arg(row.button, row.keys));
            bar->addAction(action);
        }
        if (*row.caption) wire(row, action);
    }
    return bar;
}
