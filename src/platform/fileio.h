// Reading and writing whole files, and reading a file in binary pieces, by
// Windows-form paths (see localfs.h). Nothing here throws.
#pragma once

#include <QByteArray>
#include <QString>
#include <cstdint>
#include <memory>

// The whole content of a regular file; false when it can't be read (missing,
// a folder, no permission). Opened without blocking, so a pipe can't hang it.
bool ReadWholeFile(const QString& windowsPath, QByteArray& content);

// Replaces the content of a file, making it when it is missing: written
// beside it and renamed over it (in place when the folder takes no new
// file), so a failed write leaves the old content whole. A read-only file,
// or a folder in its place, is refused.
bool ReplaceWholeFile(const QString& windowsPath, const QByteArray& content);

// A file opened for binary reading, as Open ... For Binary does. Only
// regular files open (a pipe or a device would block or never end);
// anything else reads as an empty file.
class BinaryFile {
public:
    explicit BinaryFile(const QString& windowsPath);
    ~BinaryFile();
    BinaryFile(const BinaryFile&) = delete;
    BinaryFile& operator=(const BinaryFile&) = delete;

    bool IsOpen() const { return fd_ >= 0; }
    // LOF: the length as a signed 32-bit number, negative from 2 GiB on.
    int32_t LOF() const { return static_cast<int32_t>(size_); }
    // Get: fills `out` as far as the file goes; the rest keeps what it held.
    void Get(char* out, int count);
    void Close();

private:
    bool Fill();
    int fd_ = -1;
    int64_t size_ = 0;
    std::unique_ptr<char[]> buffer_;
    int64_t pos_ = 0;
    int64_t len_ = 0;
};
