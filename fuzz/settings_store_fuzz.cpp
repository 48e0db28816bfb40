// What was read of any bytes and written must read as the same entries again.
#include <algorithm>

#include "shell/PreferencesText.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    std::vector<PreferenceEntry> first, second;
    const bool all = ParsePreferences(DecodePreferences(bytes), &first);
    if (!all && first.size() != kMostPreferenceEntries) abort();
    const QByteArray written = FormatPreferences(first, kPreferenceGroupSpace);
    ParsePreferences(DecodePreferences(written), &second);
    const auto same = [](const PreferenceEntry& a, const PreferenceEntry& b) {
        return a.kind == b.kind && a.name == b.name && a.value == b.value;
    };
    if (!std::equal(first.begin(), first.end(), second.begin(), second.end(), same)) abort();
    return 0;
}
