#include "app/host/host_command.h"

#include <iostream>
#include <string>

#include "app/graph/headless_application.h"
#include "app/host/host_session.h"

namespace kurv::app {

int run_host() {
  const auto application = headless_application();
  HostSession session;
  for (std::string line; std::getline(std::cin, line);) {
    const QByteArray answer =
        session.answer(QByteArray::fromRawData(line.data(), static_cast<qsizetype>(line.size())));
    std::cout.write(answer.constData(), answer.size()).put('\n').flush();
  }
  session.finish();
  return 0;
}

}  // namespace kurv::app
