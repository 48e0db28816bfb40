// A recorded run, or the standard input.
#pragma once

#include <QSocketNotifier>
#include <functional>
#include <memory>

class DataFile {
  public:
    using BytesHook = std::function<void(const QByteArray& bytes)>;

    explicit DataFile(BytesHook hook) : onBytes(std::move(hook)) {}
    ~DataFile() { Close(); }
    DataFile(const DataFile&) = delete;
    DataFile& operator=(const DataFile&) = delete;

    // Reads a file, or the standard input when the name is "-", piece by piece from the event
    // loop; the end is told by an empty piece.
    void Open(const QString& name);
    void Close();
    // A file, not a pipe or a terminal: all of it is there at once.
    bool IsWhole() const { return isWhole; }
    // How it stands, for the user.
    QString Sentence() const;

  private:
    void TakeBytes();
    void Fail();

    BytesHook onBytes;
    QString name;
    QString trouble;
    int fd = -1;
    bool isWhole = false;
    std::unique_ptr<QSocketNotifier> notifier;  // while there is more
};
