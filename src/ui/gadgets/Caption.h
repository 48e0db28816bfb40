// Captions of buttons and menus. The toolkit reads "&" in them as the mark of a mnemonic
// key; the program's texts, some of them the user's own, mean the character. Pure.
#pragma once

#include <QString>

inline QString ToCaption(QString text) {
    return text.replace("&", "&&");
}
inline QString FromCaption(QString caption) {
    return caption.replace("&&", "&");
}
