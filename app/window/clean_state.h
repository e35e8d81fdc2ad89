// Whether a graph is saved, decided by the content that its file would have: a change that is
// undone leaves nothing to save, and moving or resizing the window is no change.
#pragma once

#include <QByteArray>
#include <functional>
#include <string_view>

namespace kurv::app {

// Passes a text to its argument piece by piece.
using TextSource = std::function<void(const std::function<void(std::string_view)>&)>;

// A hash of the text, so that a large one need not be kept; empty where the source throws Fault.
QByteArray fingerprint(const TextSource& text);

class CleanState {
 public:
  // The content with this fingerprint has nothing to save.
  void set_clean(const QByteArray& fingerprint) { m_clean = fingerprint; }
  // Also true before the first set_clean(). False for an empty fingerprint, because a content that
  // cannot be compared may have changes.
  bool is_clean(const QByteArray& fingerprint) const {
    return m_clean.isNull() || (!fingerprint.isEmpty() && fingerprint == m_clean);
  }

 private:
  QByteArray m_clean;
};

}  // namespace kurv::app
