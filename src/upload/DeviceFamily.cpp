#include "upload/DeviceFamily.h"

#include <QStringList>

#include "base/TextRules.h"

namespace {

constexpr int kDefaultSlots = 11;

// Rows as the settings file would hold them; slots behind the last row are empty. The
// family combo also offers "vgamite", which has no row here; that is meant.
const char* const defaultFamilyRows[kDefaultSlots] = {
    "maximite  |auto     |\\003|0|2|2|files|0|0|0",
    "micromite |autosave|\\026|0|0|1|     |0|1|0|0",
    "micromite+|autosave|\\026|0|1|3|files|0|1|0",
    "pi-cromite|autosave|\\003|0|1|1|files|0|1|0",
    "cmm2      |autosave|\\027[12~|1|1|3|ls|0|1|0|30",
    "picomite  |autosave|\\026|0|1|1|files|0|1|1|30",
    "command   |         |    |0|1|0|files|0|1|0|0",
};

std::vector<DeviceFamily> families;

}  // namespace

const std::vector<DeviceFamily>& deviceFamilies = families;

DeviceFamily ParseFamilyRow(const QString& row) {
    const auto text = [&row](int column) { return TrimBlanks(FieldOf(row, column, '|')); };
    const auto number = [&row](int column) { return TextToInteger32(FieldOf(row, column, '|')); };
    DeviceFamily family;
    family.Fname = text(1);
    family.autostart = text(2);
    family.autoend = text(3);
    family.autoName = number(4);
    family.drives = number(5);
    family.xmName = number(6);
    family.filesCMD = text(7);
    family.filesAll = number(8);
    family.ninth = number(9);
    family.flash = number(10);
    family.fnstart = number(11);
    return family;
}

QString FormatFamilyRow(const DeviceFamily& family) {
    const auto number = [](int value) { return QString::number(value); };
    return QStringList{family.Fname,          family.autostart,
                       family.autoend,        number(family.autoName),
                       number(family.drives), number(family.xmName),
                       family.filesCMD,       number(family.filesAll),
                       number(family.ninth),  number(family.flash),
                       number(family.fnstart)}
        .join('|');
}

void ClearFamilies() {
    families.clear();
}

void AddFamily(const DeviceFamily& family) {
    families.push_back(family);
}

void AddDefaultFamilies() {
    for (const char* row : defaultFamilyRows) {
        if (row) AddFamily(ParseFamilyRow(row));
    }
}

const DeviceFamily* FindFamily(const QString& name) {
    const QString wanted = name.toLower();
    for (const DeviceFamily& family : families) {
        if (family.Fname.toLower() == wanted) return &family;
    }
    return nullptr;
}
