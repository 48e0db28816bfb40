#include "filemanager/DeviceRow.h"

#include <QRegularExpression>

#include "base/TextRules.h"

namespace {

const QString kFolderMark = "<DIR>";

}  // namespace

bool IsFolderRow(const QString& row) {
    return row.contains(kFolderMark, Qt::CaseInsensitive);
}

QString FolderNameInRow(const QString& row) {
    const int mark = row.indexOf(kFolderMark, 0, Qt::CaseInsensitive);
    if (mark < 0) return TrimBlanks(row);
    return TrimBlanks(QString(row).remove(mark, kFolderMark.size()));
}

QString FileNameInRow(const QString& row, int fnstart) {
    if (fnstart == 0) return TrimBlanks(FieldOf(row, 1, ' '));
    return TrimBlanks(row.mid(qMax(0, fnstart - 1)));
}

int SlotNamedInRow(const QString& row) {
    static const QRegularExpression name("^\\W*Slot (\\d{1,4})\\b");
    return name.match(row).captured(1).toInt();
}
