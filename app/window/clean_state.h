// Whether a graph is saved, judged by what its file would say: a change that is taken back leaves
// nothing to save, and moving or resizing the window is none.
#pragma once

#include <QByteArray>
#include <functional>
#include <string_view>

namespace kurv::app {

// Hands over a text piece by piece.
using TextSource = std::function<void(const std::function<void(std::string_view)>&)>;

// What stands for a text, so that a large one need not be kept. A text that cannot be had has none.
QByteArray fingerprint(const TextSource& text);

class SavedState {
 public:
  // The text is the one that nothing would be lost of.
  void mark(const QByteArray& fingerprint) { m_marked = fingerprint; }
  // True also before the first mark, when there is nothing to lose. A text that cannot be had is
  // never saved.
  bool is_saved(const QByteArray& fingerprint) const {
    return m_marked.isNull() || (!fingerprint.isEmpty() && fingerprint == m_marked);
  }

 private:
  QByteArray m_marked;
};

}  // namespace kurv::app
