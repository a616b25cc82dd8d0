#include "hosts/linux/messages/ReadingNotes.h"

namespace zephyl::linux_host {

void ReadingNotes::add(std::string_view table, std::int64_t row, std::string_view fault) {
  std::string key(table);
  key.append(": ").append(fault);
  const auto [found, isNew] = indexes_.try_emplace(std::move(key), kinds_.size());
  if (isNew) {
    kinds_.push_back({std::string(table), std::string(fault), {}, 0});
  }
  KindOfFault& kind = kinds_[found->second];
  ++kind.count;
  if (kind.rows.size() < kMostOfAKind) {
    kind.rows.push_back(row);
  }
}

std::vector<std::string> ReadingNotes::lines() const {
  std::vector<std::string> lines;
  for (const KindOfFault& kind : kinds_) {
    for (const std::int64_t row : kind.rows) {
      lines.push_back(kind.table + " row " + std::to_string(row) + ": " + kind.fault);
    }
    if (kind.count > kind.rows.size()) {
      lines.push_back(kind.table + ": " + kind.fault + ", in " +
                      std::to_string(kind.count - kind.rows.size()) + " more rows");
    }
  }
  return lines;
}

}  // namespace zephyl::linux_host
