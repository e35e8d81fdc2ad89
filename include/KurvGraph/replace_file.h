/// @file
/// Writing a file as a whole.
#pragma once

#include <KurvGraph/export.h>

#include <QByteArray>
#include <QString>
#include <optional>

namespace kurv {

/// Why a file could not be made or replaced.
struct ReplaceFailure {
  /// What was being done.
  enum class Step {
    kTarget,  ///< there is something that is no regular file
    kOpen,    ///< the folder or the file does not allow it
    kWrite,   ///< not all the bytes fit
    kCommit,  ///< the new file could not be given its name
  };
  Step step;       ///< that failed
  QString reason;  ///< the platform's text
};

/// Makes the file, or replaces it if it is a regular one. A file that may be written in a folder
/// that may not is overwritten in place, if it can be read. Where a failure is returned, an older
/// file has its old content: also in place, because the bytes that were overwritten are put back
/// and those after them were never touched.
[[nodiscard]] KURV_EXPORT std::optional<ReplaceFailure> replace_file(const QString& path,
                                                                     const QByteArray& bytes);

}  // namespace kurv
