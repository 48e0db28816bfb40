#include "ui/gadgets/ExplorerListGadget.h"

#include <QDateTime>
#include <QDir>
#include <QHeaderView>
#include <QLocale>
#include <QTreeWidget>

#include "base/Numbers.h"
#include "ui/gadgets/GadgetTableInternal.h"
#include "ui/gadgets/PBGadgetFunctionsInternal.h"

namespace {

enum Column { kName, kSize, kDate, kColumns };

// In the data of a row's name.
constexpr int kIsFileRole = Qt::UserRole;

// Sizes stand with the digit grouping of the user's language, dates so that they sort.
QTreeWidgetItem* NewRow(const QFileInfo& entry) {
    auto* row = new QTreeWidgetItem;
    row->setText(kName, entry.fileName());
    row->setData(kName, kIsFileRole, !entry.isDir());
    if (!entry.isDir()) row->setText(kSize, QLocale().toString(entry.size()));
    row->setText(kDate, entry.lastModified().toString("yyyy-MM-dd hh:mm"));
    row->setTextAlignment(kSize, Qt::AlignRight | Qt::AlignVCenter);
    return row;
}

// Folders first, then files, each by name without regard to case. Hidden ones are left out.
QList<QTreeWidgetItem*> RowsOf(const QDir& folder) {
    QList<QTreeWidgetItem*> rows;
    if (!folder.isRoot()) {
        rows += new QTreeWidgetItem({".."});
        rows.back()->setData(kName, kIsFileRole, false);
    }
    const auto entries = folder.entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot,
                                              QDir::DirsFirst | QDir::Name | QDir::IgnoreCase);
    for (const QFileInfo& entry : entries) rows += NewRow(entry);
    return rows;
}

// The folder is read anew at each setting and at no other time, so that rows keep their
// numbers while the program walks them.
class ExplorerListFunctions : public PBGadgetFunctions {
  public:
    ExplorerListFunctions(int gadget, QTreeWidget* shown)
        : PBGadgetFunctions(gadget, shown), list(shown) {
        list->setHeaderLabels({"Name", "Size", "Date"});
        list->setRootIsDecorated(false);
        list->setUniformRowHeights(true);
        list->setSelectionMode(QAbstractItemView::ExtendedSelection);
        list->header()->setStretchLastSection(false);
        connect(list, &QTreeWidget::itemDoubleClicked, this, &ExplorerListFunctions::Enter);
    }

    void SetText(const QString& text) override {
        // What the user has typed so far may name no folder; rows and folder stay a pair.
        const QDir wanted(QDir::cleanPath(text));
        if (text.isEmpty() || !wanted.isReadable()) return;
        folder = wanted.absolutePath();
        if (!folder.endsWith('/')) folder += '/';
        list->clear();
        list->addTopLevelItems(RowsOf(wanted));
        list->scrollToTop();
    }
    QString Text() const override { return folder; }

    // The state is the first of the selected rows.
    void SetState(int state) override {
        list->clearSelection();
        list->setCurrentItem(list->topLevelItem(state));
    }
    int State() const override {
        for (int row = 0; row < ItemCount(); ++row) {
            if (list->topLevelItem(row)->isSelected()) return row;
        }
        return -1;
    }
    int ItemCount() const override { return list->topLevelItemCount(); }
    QString ItemText(int item) const override {
        const QTreeWidgetItem* row = list->topLevelItem(item);
        return row ? row->text(kName) : QString();
    }
    bool ItemSelected(int item) const override {
        const QTreeWidgetItem* row = list->topLevelItem(item);
        return row && row->isSelected();
    }
    void SetItemSelected(int item, bool selected) override {
        if (QTreeWidgetItem* row = list->topLevelItem(item)) row->setSelected(selected);
    }
    bool ItemIsFile(int item) const override {
        const QTreeWidgetItem* row = list->topLevelItem(item);
        return row && row->data(kName, kIsFileRole).toBool();
    }
    int ColumnWidth(int column) const override {
        return column >= 0 && column < kColumns ? list->columnWidth(column) : 0;
    }
    void SetColumnWidth(int column, int width) override {
        if (column >= 0 && column < kColumns) list->setColumnWidth(column, qMax(0, width));
    }

  private:
    // The rows are replaced meanwhile, so the name is taken first.
    void Enter(const QTreeWidgetItem* row) {
        if (row->data(kName, kIsFileRole).toBool()) return;
        const QString before = folder;
        SetText(folder + row->text(kName));
        if (folder != before) RaiseGadgetEvent(Gadget(), kTypeValueChanged);
    }

    QTreeWidget* const list;
    QString folder;  // ends in "/"; empty before the first that could be listed
};

}  // namespace

void ExplorerListGadget(int gadget, int x, int y, int width, int height, const QString& folder) {
    QWidget* const parent = BeginGadget(gadget);
    if (!parent) return;
    auto* functions = new ExplorerListFunctions(gadget, new QTreeWidget(parent));
    functions->SetText(folder);
    EnterGadget(functions, QRect(x, y, width, height));
}
