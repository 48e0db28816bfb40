#include "plotter/RunningLog.h"

#include "plotter/CsvText.h"

bool RunningLog::Begin(const QString& path) {
    file.close();
    file.setFileName(path);
    if (!file.open(QIODevice::ReadWrite | QIODevice::Append)) return false;
    // A run that was broken off in the middle of a line keeps what it has of it.
    const bool broken = file.size() > 0 && file.seek(file.size() - 1) && file.read(1) != "\n";
    if (broken) Put("\n");
    named = 0;
    return Flush();
}

void RunningLog::AddRow(const Recording& recording) {
    if (!file.isOpen()) return;
    if (recording.All().size() != named) Put(CsvHeader(recording));
    named = recording.All().size();
    Put(CsvNewestRow(recording));
}

bool RunningLog::Flush() {
    const bool good = file.flush() && file.error() == QFileDevice::NoError;
    if (!good) file.close();
    return good;
}

void RunningLog::Put(const std::string& text) {
    file.write(text.data(), static_cast<qint64>(text.size()));
}
