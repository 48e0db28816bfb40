#include "ui/windows/FilePatternsInternal.h"

namespace {

// The toolkit reads the masks in the last brackets of a text; those that the name brings
// along are put back behind it.
QString NameAlone(const QString& name) {
    const int bracket = name.lastIndexOf('(');
    return bracket >= 0 && name.endsWith(')') ? name.left(bracket).trimmed() : name;
}

// Blanks between masks, as the toolkit reads them.
QString Masks(const QString& field) {
    QStringList masks = field.split(';', Qt::SkipEmptyParts);
    for (QString& mask : masks) {
        mask = mask.trimmed();
        if (mask == "*.*") mask = "*";
    }
    return masks.join(' ');
}

}  // namespace

QStringList ToolkitPatterns(const QString& patterns) {
    const QStringList fields = patterns.split('|');
    QStringList filters;
    for (int i = 0; i + 1 < fields.size(); i += 2) {
        filters += NameAlone(fields[i]) + " (" + Masks(fields[i + 1]) + ")";
    }
    return filters;
}
