#include "help/About.h"

#include <cstdint>

#include "base/AppPaths.h"
#include "base/TextRules.h"
#include "ui/windows/Dialogs.h"

namespace {

// A stamp of its own, apart from the one in the terminal's first lines.
constexpr int64_t kAboutStamp = 1660283257;

const char kContact[] =
    "Mail: kewlink-console@example.org\n"
    "Web: https://kewlink-console.example.org/";

}  // namespace

QString AboutText() {
    return "Version: 5\nBuild date: " + FormatDate("%yyyy/%mm/%dd", kAboutStamp) +
           FormatDate(" %hh:%ii:%ss", kAboutStamp) + "\rProgram folder: " + appPaths.programFolder +
           "\rData folder: " + appPaths.dataFolder + "\r" + kContact;
}

void ShowAbout() {
    AskMessage("KewLink Console", AboutText(), MessageButtons::kOk);
}
