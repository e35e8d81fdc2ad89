#include "app/host/host_requests.h"

#include <KurvGraph/automation.h>

#include <algorithm>
#include <string>
#include <vector>

#include "app/host/host_fault.h"

namespace kurv::app {

namespace {

QLatin1String key_text(std::string_view key) {
  return {key.data(), static_cast<qsizetype>(key.size())};
}

bool has_companion(const RequestKeys& row, const QString& key) {
  return std::any_of(row.companions.begin(), row.companions.end(), [&](std::string_view companion) {
    return !companion.empty() && key == key_text(companion);
  });
}

std::vector<std::string_view> words_of(std::span<const RequestKeys> rows) {
  std::vector<std::string_view> words;
  for (const RequestKeys& row : rows) words.push_back(row.word);
  return words;
}

QStringList keys_without_id(const QJsonObject& object) {
  QStringList keys = object.keys();
  keys.removeAll("id");
  return keys;
}

// A misspelt word is looked for first, because the other keys may be right.
std::string no_request(const QJsonObject& object, std::span<const RequestKeys> rows) {
  const std::vector<std::string_view> words = words_of(rows);
  const QStringList keys = keys_without_id(object);
  std::string companion;
  for (const QString& key : keys) {
    const auto owner = std::find_if(
        rows.begin(), rows.end(), [&](const RequestKeys& row) { return has_companion(row, key); });
    if (owner != rows.end()) {
      companion = quote(key) + " is no request; it belongs to " + quote(owner->word);
    } else if (const std::string meant = suggestion(key, words); !meant.empty()) {
      return quote(key) + " is no request" + meant;
    }
  }
  if (!companion.empty()) return companion;
  const std::string first = keys.isEmpty() ? std::string("the object holds no request")
                                           : quote(keys.first()) + " is no request";
  return first + "; requests are " + listed(words);
}

bool names_argument(const QJsonObject& object, const QString& key) {
  const std::string name = object["call"].toString().toStdString();
  const Member* const method = find_member(std::string_view(name));
  return method != nullptr &&
         std::any_of(method->parameters.begin(), method->parameters.end(),
                     [&](const Parameter& row) { return key == key_text(row.name); });
}

std::string foreign_key(const QJsonObject& object, const RequestKeys& row, const QString& key,
                        std::span<const RequestKeys> rows) {
  for (const RequestKeys& other : rows) {
    if (key != key_text(other.word)) continue;
    return quote(row.word) + " and " + quote(key) +
           " are two requests; send each on a line of its own";
  }
  const std::string foreign = quote(key) + " does not belong to " + quote(row.word);
  if (row.word == "call" && names_argument(object, key)) {
    return foreign + "; arguments go into 'args', an array, in their order";
  }
  return foreign + suggestion(key, row.companions);
}

}  // namespace

std::size_t request_in(const QJsonObject& object, std::span<const RequestKeys> rows) {
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const RequestKeys& row = rows[i];
    if (!object.contains(key_text(row.word))) continue;
    for (const QString& key : keys_without_id(object)) {
      if (key != key_text(row.word) && !has_companion(row, key)) {
        refuse(foreign_key(object, row, key, rows));
      }
    }
    return i;
  }
  refuse(no_request(object, rows));
}

}  // namespace kurv::app
