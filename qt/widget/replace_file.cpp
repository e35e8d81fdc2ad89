#include <KurvGraph/replace_file.h>

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <algorithm>

namespace kurv {

namespace {

using ReplaceStep = ReplaceFailure::Step;
using Outcome = std::optional<ReplaceFailure>;

// Unbuffered, so that each write reports its own errors.
constexpr QIODevice::OpenMode kWhole = QIODevice::WriteOnly | QIODevice::Unbuffered;
// Never creates a file, which some folders refuse for another user's file.
constexpr QIODevice::OpenMode kInPlace =
    QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered;

bool write_all(QFileDevice& file, const QByteArray& bytes) {
  qsizetype written = 0;
  while (written < bytes.size()) {
    const qint64 count = file.write(bytes.constData() + written, bytes.size() - written);
    if (count <= 0) return false;
    written += count;
  }
  return file.flush();
}

// A full disk still takes the older bytes, because the file is cut only after the last write.
Outcome overwrite(QFile& file, const QByteArray& bytes) {
  const qint64 older_size = file.size();
  const qint64 overlap = std::min<qint64>(older_size, bytes.size());
  const QByteArray older = file.read(overlap);
  if (older.size() != overlap) return ReplaceFailure{ReplaceStep::kOpen, file.errorString()};
  if (file.seek(0) && write_all(file, bytes) && file.resize(bytes.size())) return std::nullopt;
  ReplaceFailure failure{ReplaceStep::kWrite, file.errorString()};
  if (file.seek(0) && write_all(file, older)) file.resize(older_size);
  return failure;
}

// What replacing the file has failed with, unless it can be overwritten instead.
Outcome overwrite_after(const ReplaceFailure& failure, const QString& path,
                        const QByteArray& bytes) {
  QFile file(path);
  if (!file.open(kInPlace)) return failure;
  return overwrite(file, bytes);
}

}  // namespace

Outcome replace_file(const QString& path, const QByteArray& bytes) {
  // A device would be replaced by a file.
  const QFileInfo target(path);
  if (target.exists() && !target.isFile()) {
    return ReplaceFailure{ReplaceStep::kTarget, QStringLiteral("it is not a regular file")};
  }
  QSaveFile file(path);
  if (!file.open(kWhole)) {
    return overwrite_after({ReplaceStep::kOpen, file.errorString()}, path, bytes);
  }
  // commit() would replace the file even if some of the bytes did not fit.
  if (!write_all(file, bytes)) {
    ReplaceFailure failure{ReplaceStep::kWrite, file.errorString()};
    file.cancelWriting();
    return failure;
  }
  if (!file.commit()) {
    return overwrite_after({ReplaceStep::kCommit, file.errorString()}, path, bytes);
  }
  return std::nullopt;
}

}  // namespace kurv
