// A one-line text entry. Raises event 3 with type 256 and 512 on gaining and losing the
// focus, and 768 when the user changes the text.
#pragma once

#include <QString>

enum class EntryRule {
    kAnyText,
    kDigits,  // takes the digits 0 to 9 alone
};

void TextEntryGadget(int gadget, int x, int y, int width, int height, const QString& text,
                     EntryRule rule = EntryRule::kAnyText);
