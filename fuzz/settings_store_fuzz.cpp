// What was read of any bytes and written must read as the same entries again, and as the
// same bytes when it is written again.
#include <cstdlib>

#include "shell/PreferencesText.h"

namespace {

bool SameEntries(const std::vector<PreferenceEntry>& a, const std::vector<PreferenceEntry>& b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i) {
        const bool same = a[i].kind == b[i].kind && a[i].name == b[i].name;
        if (!same || a[i].value != b[i].value) return false;
    }
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    std::vector<PreferenceEntry> first, second;
    const bool all = ParsePreferences(DecodePreferences(bytes), &first);
    if (!all && first.size() != kMostPreferenceEntries) abort();
    const QByteArray written = FormatPreferences(first, kPreferenceGroupSpace);
    ParsePreferences(DecodePreferences(written), &second);
    if (!SameEntries(first, second)) abort();
    if (FormatPreferences(second, kPreferenceGroupSpace) != written) abort();
    return 0;
}
