#include "app/window/clean_state.h"

#include <KurvGraph/fault.h>

#include <QCryptographicHash>

namespace kurv::app {

QByteArray fingerprint(const TextSource& text) {
  QCryptographicHash hash(QCryptographicHash::Blake2b_256);
  try {
    text([&hash](std::string_view piece) {
      hash.addData(QByteArrayView(piece.data(), static_cast<qsizetype>(piece.size())));
    });
  } catch (const Fault&) {
    return QByteArray("");
  }
  return hash.result();
}

}  // namespace kurv::app
