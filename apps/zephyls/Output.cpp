#include "apps/zephyls/Output.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <ostream>

#include <nlohmann/json.hpp>
#include <sys/ioctl.h>
#include <unistd.h>

#include "apps/zephyls/TextWidth.h"

namespace zephyl::app {

namespace {

constexpr std::size_t kColumnGap = 2;

const char* code(Style style) {
  switch (style) {
    case Style::kBold:
      return "\033[1m";
    case Style::kDim:
      return "\033[2m";
    case Style::kUnread:
      return "\033[1;34m";
    case Style::kGood:
      return "\033[32m";
    case Style::kWarning:
      return "\033[33m";
    case Style::kBad:
      return "\033[1;31m";
    case Style::kPlain:
      break;
  }
  return "";
}

bool isTerminal() {
  const char* terminal = std::getenv("TERM");
  return isatty(STDOUT_FILENO) == 1 && terminal != nullptr && std::strcmp(terminal, "dumb") != 0;
}

std::size_t terminalWidth() {
  winsize size{};
  return ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

}  // namespace

Output::Output(std::ostream& out, std::ostream& errors, bool json)
    : out_(out), errors_(errors), json_(json) {
  if (!json && isTerminal()) {
    const char* noColour = std::getenv("NO_COLOR");
    colours_ = noColour == nullptr || *noColour == '\0';
    lineWidth_ = terminalWidth();
  }
}

void Output::object(const Json& object) {
  // Texts are valid UTF-8 already; replacing is the last guard against a broken line.
  out_ << object.dump(-1, ' ', false, Json::error_handler_t::replace) << '\n';
}

void Output::document(const Json& document) {
  out_ << document.dump(1, ' ', false, Json::error_handler_t::replace) << '\n';
}

std::string Output::styled(const std::string& text, Style style) const {
  return !colours_ || style == Style::kPlain || text.empty() ? text
                                                             : code(style) + text + "\033[0m";
}

void Output::line(const Row& cells) {
  for (const Cell& cell : cells) {
    out_ << styled(safeForTerminal(cell.text), cell.style);
  }
  out_ << '\n';
}

void Output::table(const std::vector<Row>& rows, std::size_t lineWidth) {
  std::vector<Row> safe = rows;
  std::vector<std::size_t> widths;
  for (Row& row : safe) {
    // Empty cells at the end need no padding before them.
    while (!row.empty() && row.back().text.empty()) {
      row.pop_back();
    }
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t column = 0; column < row.size(); ++column) {
      row[column].text = safeForTerminal(row[column].text);
      widths[column] = std::max(widths[column], textWidth(row[column].text));
    }
  }
  for (const Row& row : safe) {
    printRow(row, widths, lineWidth);
  }
}

void Output::printRow(const Row& row, const std::vector<std::size_t>& widths,
                      std::size_t lineWidth) {
  std::size_t used = 0;
  for (std::size_t column = 0; column < row.size(); ++column) {
    const Cell& cell = row[column];
    if (column + 1 == row.size()) {
      const bool cut = lineWidth > used;
      out_ << styled(cut ? cutToWidth(cell.text, lineWidth - used) : cell.text, cell.style);
      break;
    }
    out_ << styled(cell.text, cell.style)
         << std::string(widths[column] - textWidth(cell.text) + kColumnGap, ' ');
    used += widths[column] + kColumnGap;
  }
  out_ << '\n';
}

void Output::complain(const std::string& message) {
  // In one piece, since background work complains too.
  errors_ << "zephyls: " + safeForTerminal(message) + "\n";
}

void Output::prompt(const std::string& question) {
  out_.flush();
  errors_ << safeForTerminal(question) << std::flush;
}

bool Output::finish() {
  out_.flush();
  return out_.good();
}

}  // namespace zephyl::app
