#include "app/base/fault_words.h"

#include <optional>

namespace kurv::app {

namespace {

struct FaultWords {
  std::string reason;
  std::string advice;
};

constexpr const char* kCheckFile = "\"kurv info --check\" lists what is wrong with it";
constexpr const char* kFreeMemory = "close other programs, or choose less data";

std::optional<FaultWords> words_of_loading(FaultKind kind) {
  switch (kind) {
    case FaultKind::kFileNotFound:
      return FaultWords{"there is no such file", "check the name"};
    case FaultKind::kPathNotFound:
      return FaultWords{"there is no such folder", "check the name"};
    case FaultKind::kPermissionDenied:
      return FaultWords{"it may not be read", "check its permissions"};
    case FaultKind::kPathFileAccessError:
      return FaultWords{"it is not a file that can be read", "name a graph file instead"};
    case FaultKind::kDeviceIoError:
      return FaultWords{"reading it has failed", "check the disk that it is on"};
    case FaultKind::kInputPastEnd:
      return FaultWords{"the file ends too early", kCheckFile};
    case FaultKind::kTypeMismatch:
      return FaultWords{"it has a text where a number belongs", kCheckFile};
    case FaultKind::kOverflow:
      return FaultWords{"a number in it is too large", kCheckFile};
    case FaultKind::kSubscriptOutOfRange:
      return FaultWords{"it has more or fewer values than it says", kCheckFile};
    case FaultKind::kDivisionByZero:
      return FaultWords{"an axis in it has equal limits or no ticks", kCheckFile};
    case FaultKind::kInvalidProcedureCall:
      return FaultWords{"a value in it is not possible there", kCheckFile};
    default:
      return std::nullopt;
  }
}

std::optional<FaultWords> words_of_writing(FaultKind kind) {
  switch (kind) {
    case FaultKind::kFileNotFound:
    case FaultKind::kPathNotFound:
      return FaultWords{"there is no such folder", "choose another folder"};
    case FaultKind::kPermissionDenied:
      return FaultWords{"writing there is not permitted", "choose another folder"};
    case FaultKind::kPathFileAccessError:
      return FaultWords{"this is not the name of a file", "choose another name"};
    case FaultKind::kDeviceIoError:
      return FaultWords{"writing has failed", "choose another folder"};
    case FaultKind::kDiskFull:
      return FaultWords{"the disk is full", "make room on the disk or choose another one"};
    case FaultKind::kOverflow:
      return FaultWords{"a number is too large for the file",
                        "move the titles and the legend into the plot, and check the limits"};
    case FaultKind::kSubscriptOutOfRange:
      return FaultWords{"the graph has more functions than the file can hold",
                        "remove some of them"};
    default:
      return std::nullopt;
  }
}

std::optional<FaultWords> words_of_printing(FaultKind kind) {
  switch (kind) {
    case FaultKind::kDeviceIoError:
      return FaultWords{"the printer has not taken it", "check the printer, or print to a file"};
    case FaultKind::kCannotCreateObject:
      return FaultWords{"there is no printer", "set one up, or export a picture"};
    default:
      return words_of_writing(kind);
  }
}

std::optional<FaultWords> words_of_drawing(FaultKind kind) {
  switch (kind) {
    case FaultKind::kDivisionByZero:
      return FaultWords{"an axis has equal limits or no ticks",
                        "choose different limits and at least one tick"};
    case FaultKind::kOverflow:
      return FaultWords{"a number is too large", "check the limits, the margins and the sizes"};
    case FaultKind::kSubscriptOutOfRange:
      return FaultWords{"it has no room for so many curves or points", "choose fewer"};
    case FaultKind::kTypeMismatch:
      return FaultWords{"there is a text where a number belongs", "check what was typed last"};
    case FaultKind::kInvalidProcedureCall:
      return FaultWords{"a value is not possible there", "check the limits of the axes"};
    default:
      return std::nullopt;
  }
}

FaultWords words_of(Attempt attempt, FaultKind kind) {
  std::optional<FaultWords> words;
  if (attempt == Attempt::kLoad) words = words_of_loading(kind);
  if (attempt == Attempt::kWrite) words = words_of_writing(kind);
  if (attempt == Attempt::kPrint) words = words_of_printing(kind);
  // A command may fail at any of them, as a bitmap that is drawn once more before it is saved.
  if (!words) words = words_of_drawing(kind);
  if (!words) words = words_of_printing(kind);
  if (!words) words = words_of_loading(kind);
  if (words) return *words;
  if (kind == FaultKind::kOutOfMemory) return {"there is not enough memory", kFreeMemory};
  // A program without a mistake never comes here.
  return {"kurv has made a mistake, number " + std::to_string(static_cast<int>(kind)),
          "save the graph under another name and start kurv again"};
}

const char* verb_of(Attempt attempt) {
  switch (attempt) {
    case Attempt::kLoad:
      return "loaded";
    case Attempt::kWrite:
      return "written";
    case Attempt::kPrint:
      return "printed";
    case Attempt::kDraw:
      break;
  }
  return "drawn";
}

}  // namespace

std::string fault_reason(Attempt attempt, FaultKind kind) {
  return words_of(attempt, kind).reason;
}

std::string fault_advice(Attempt attempt, FaultKind kind) {
  return words_of(attempt, kind).advice;
}

std::string fault_clause(Attempt attempt, FaultKind kind) {
  const FaultWords words = words_of(attempt, kind);
  return std::string(" cannot be ") + verb_of(attempt) + ": " + words.reason + "; " + words.advice +
         '.';
}

Attempt attempt_at(FaultKind kind, bool names_file) {
  const bool is_printing =
      kind == FaultKind::kDeviceIoError || kind == FaultKind::kCannotCreateObject;
  if (!names_file) return is_printing ? Attempt::kPrint : Attempt::kDraw;
  const bool is_loading = kind == FaultKind::kFileNotFound || kind == FaultKind::kInputPastEnd ||
                          kind == FaultKind::kTypeMismatch;
  return is_loading ? Attempt::kLoad : Attempt::kWrite;
}

}  // namespace kurv::app
