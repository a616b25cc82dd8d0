#include "platform/foundation/PropertyListXmlWriter.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/foundation/Dictionary.h"
#include "platform/foundation/PropertyListUid.h"
#include "platform/foundation/PropertyListWriting.h"
#include "platform/foundation/PropertyListXmlScalars.h"

namespace zephyl::detail {

namespace {

constexpr const char* kHeader =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
    "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
    "<plist version=\"1.0\">\n";

// Lines stop moving right here, so that a file's size follows what is in it at any depth.
constexpr std::size_t kDeepestIndent = 16;

// Null when the character may stand as it is.
const char* replacementOf(char c) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '\r':
      return "&#13;";
    default:
      return nullptr;
  }
}

class XmlWriter {
 public:
  [[nodiscard]] std::string write(const Value& root);

 private:
  void element(const Value& value);
  void next();
  void open(const WritingStep& step);
  void close();
  void text(std::string_view name, std::string_view text);
  void scalar(const Value& value);
  void integer(auto number);
  void uid(Uid uid);
  void data(const Data& bytes);
  void escaped(std::string_view text);
  [[nodiscard]] std::size_t tabs() const { return std::min(steps_.size(), kDeepestIndent); }
  void indent() { out_.append(tabs(), '\t'); }

  std::string out_;
  std::vector<WritingStep> steps_;
};

std::string XmlWriter::write(const Value& root) {
  out_ = kHeader;
  element(root);
  while (!steps_.empty()) {
    next();
  }
  out_ += "</plist>\n";
  return std::move(out_);
}

// The next element of the innermost container, or its end.
void XmlWriter::next() {
  WritingStep& step = steps_.back();
  if (step.begun == step.size()) {
    close();
    return;
  }
  const std::size_t i = step.begun++;
  if (step.dictionary != nullptr) {
    indent();
    text("key", step.entryAt(i).first);
  }
  element(step.valueAt(i));
}

void XmlWriter::element(const Value& value) {
  indent();
  if (const std::string* string = value.ifString()) {
    text("string", *string);
  } else if (const auto step = stepInto(value)) {
    open(*step);
  } else {
    scalar(value);
  }
}

void XmlWriter::scalar(const Value& value) {
  if (const bool* boolean = value.ifBoolean()) {
    out_ += *boolean ? "<true/>" : "<false/>";
  } else if (const std::int64_t* number = value.ifInteger()) {
    integer(*number);
  } else if (const std::uint64_t* large = value.ifUnsigned()) {
    integer(*large);
  } else if (const double* real = value.ifReal()) {
    out_ += "<real>";
    appendXmlReal(out_, *real);
    out_ += "</real>";
  } else if (const Date* date = value.ifDate()) {
    appendXmlDate(out_, *date);
  } else if (const Data* bytes = value.ifData()) {
    data(*bytes);
  } else if (const Uid* reference = value.ifUid()) {
    uid(*reference);
  }
  out_ += '\n';
}

void XmlWriter::integer(auto number) {
  std::array<char, 24> digits{};
  out_ += "<integer>";
  out_.append(digits.data(),
              std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr);
  out_ += "</integer>";
}

void XmlWriter::uid(Uid uid) {
  out_ += "<dict>\n";
  indent();
  out_.append("\t<key>").append(kUidKey).append("</key>\n");
  indent();
  out_ += '\t';
  integer(uid.index);
  out_ += '\n';
  indent();
  out_ += "</dict>";
}

void XmlWriter::open(const WritingStep& step) {
  const std::string_view name = step.array != nullptr ? "array" : "dict";
  out_.append("<").append(name).append(step.size() == 0 ? "/>\n" : ">\n");
  if (step.size() != 0) {
    steps_.push_back(step);
  }
}

void XmlWriter::close() {
  const bool isArray = steps_.back().array != nullptr;
  steps_.pop_back();
  indent();
  out_ += isArray ? "</array>\n" : "</dict>\n";
}

void XmlWriter::text(std::string_view name, std::string_view text) {
  out_.append("<").append(name).append(">");
  escaped(text);
  out_.append("</").append(name).append(">\n");
}

void XmlWriter::escaped(std::string_view text) {
  std::size_t from = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char* replacement = replacementOf(text[at]);
    if (replacement != nullptr) {
      out_.append(text.substr(from, at - from)).append(replacement);
      from = at + 1;
    }
  }
  out_ += text.substr(from);
}

void XmlWriter::data(const Data& bytes) {
  constexpr std::size_t kWidth = 76;
  constexpr std::size_t kNarrowest = 16;
  constexpr std::size_t kTab = 8;
  out_ += "<data>\n";
  appendBase64(out_, bytes, std::string(tabs(), '\t'),
               kWidth - std::min(tabs() * kTab, kWidth - kNarrowest));
  indent();
  out_ += "</data>";
}

}  // namespace

std::string writeXml(const Value& root) {
  return XmlWriter().write(root);
}

}  // namespace zephyl::detail
