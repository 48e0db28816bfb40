#include "upload/SpecRebuild.h"

#include <QStringList>

#include "base/Numbers.h"
#include "base/TextRules.h"
#include "ui/gadgets/Gadgets.h"
#include "upload/DeviceSpec.h"
#include "upload/SpecText.h"

namespace {

const QString kEmptyFieldSpec = "'target port\\ s\\";

// The word that stands for what the port gadgets show; none for a port name with a blank,
// such as "not set": a word would end there.
QString LinkWord() {
    const QString port = GadgetText(kPortCombo);
    if (port == "TCPIP") return "ip\\" + GadgetText(kAddressEntry);
    return port.contains(' ') ? QString() : "port\\" + port + ":" + GadgetText(kSpeedCombo);
}

// A word of the field, or what the gadgets say in its place. Capitals count here, unlike
// in the parse: "S\" is kept as typed.
QString RebuiltWord(const QString& word) {
    const QString key = FieldOf(word, 1, '\\');
    if (key == "s" || key == "syn") return "s\\" + GadgetText(kFamilyCombo);
    if (key == "port" || key == "ip") return LinkWord();
    return word;
}

}  // namespace

// A word that the field lacks is not added, so a field without "port\" does not carry the
// choice of the combo boxes.
void BuildDeviceSpec() {
    QString field = GadgetText(kSpecEntry);
    if (field.isEmpty()) field = kEmptyFieldSpec;
    for (int pass = 0; pass < 3; ++pass) field = MergeBlankPairs(field);
    QStringList words = field.split(' ');
    for (QString& word : words) word = RebuiltWord(word);
    ApplyDeviceSpec(TrimBlanks(words.join(' ')));
}
