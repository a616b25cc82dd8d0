#include "hosts/linux/contacts/VCardReader.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "hosts/linux/contacts/AsciiText.h"
#include "hosts/linux/contacts/TextFile.h"
#include "hosts/linux/contacts/VCardEncoding.h"
#include "hosts/linux/contacts/VCardLines.h"
#include "hosts/linux/contacts/VCardPerson.h"
#include "hosts/linux/contacts/VCardPhoto.h"
#include "hosts/linux/contacts/VCardProperty.h"

namespace zephyl::linux_host {

namespace {

using vcard::Binary;
using vcard::Card;
using vcard::Property;

bool isBorder(const Property& property, std::string_view name) {
  return property.name == name && ascii::equal(ascii::trimmed(property.value), "VCARD");
}

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

// Base64 data that is cut short may look whole; only padding or an empty line ends it for certain.
bool isCutShort(const Property& property) {
  return !property.emptyLineAfter &&
         (property.binary == Binary::kUnpadded || property.binary == Binary::kBroken);
}

// Judges data that is not needed as text, and keeps no more of it than the judgement.
void lighten(Property& property) {
  if (vcard::PersonBuilder::readsText(property.name)) {
    return;
  }
  if (const auto data = vcard::base64Data(property)) {
    const bool isWhole = !property.isCut && vcard::isBase64(*data);
    property.binary = !isWhole               ? Binary::kBroken
                      : data->ends_with('=') ? Binary::kPadded
                                             : Binary::kUnpadded;
  }
  if (property.binary != Binary::kNone || property.name != "PHOTO") {
    property.value = std::string();
  }
}

// FNV-1a.
class TextHash {
 public:
  void add(std::string_view text) {
    for (const char c : text) {
      add(static_cast<unsigned char>(c));
    }
    add('\n');
  }

  [[nodiscard]] std::uint64_t value() const { return value_; }

 private:
  void add(unsigned char byte) { value_ = (value_ ^ byte) * 0x100000001B3U; }

  std::uint64_t value_ = 0xCBF29CE484222325U;
};

// Gathers the properties of one card after the other.
class CardCollector {
 public:
  CardCollector(const std::string& file, const TextFile& text, VCardReading& result)
      : file_(file), text_(text), result_(result) {}

  void take(vcard::Line line) {
    const std::size_t number = line.number;
    noteDamage(line);
    const std::string head = line.text.substr(0, line.colon);
    std::optional<Property> property = Property::parse(std::move(line));
    if (nested_ != 0) {
      skipNested(property);
    } else if (property && isBorder(*property, "BEGIN")) {
      begin(number);
    } else if (!card_) {
      takeOutside(number);
    } else if (!property) {
      warn(number, "the line is not a property and is left out");
    } else if (isBorder(*property, "END")) {
      finish(/*ended=*/true);
    } else {
      hash_.add(head);
      hash_.add(property->transfer == vcard::Transfer::kBase64 ? "" : property->value);
      lighten(*property);
      card_->properties.push_back(std::move(*property));
    }
  }

  void finish(bool ended) {
    if (!card_) {
      return;
    }
    if (!ended) {
      noteMissingEnd();
    }
    vcard::PersonBuilder builder(*card_, file_, text_.state(), result_.notes);
    if (auto person = builder.build()) {
      result_.entries.push_back({std::move(*person), hash_.value()});
    }
    card_.reset();
    sawCard_ = true;
  }

  [[nodiscard]] bool sawCard() const { return sawCard_; }

 private:
  void begin(std::size_t line) {
    if (card_ && !card_->properties.empty()) {
      const Property& last = card_->properties.back();
      // Old cards hold the card of a person's agent as a value.
      if (last.name == "AGENT" && ascii::trimmed(last.value).empty()) {
        warn(line, "the card of an agent inside a card is left out");
        nested_ = 1;
        return;
      }
    }
    finish(/*ended=*/false);
    card_.emplace();
    hash_ = TextHash();
    card_->line = line;
    outside_ = false;
  }

  void skipNested(const std::optional<Property>& property) {
    if (property && isBorder(*property, "BEGIN")) {
      ++nested_;
    } else if (property && isBorder(*property, "END")) {
      --nested_;
    }
  }

  void takeOutside(std::size_t line) {
    if (!std::exchange(outside_, true)) {
      warn(line, "text outside of a card is left out");
    }
  }

  void noteMissingEnd() {
    std::vector<Property>& properties = card_->properties;
    if (properties.empty() || !isCutShort(properties.back())) {
      warn(card_->line, "the card that starts here has no END:VCARD");
      return;
    }
    const Property& last = properties.back();
    warn(last.line, "the card that starts at line " + std::to_string(card_->line) +
                        " is cut short in the middle of " + last.name +
                        "; the fields before it are kept");
    properties.pop_back();
  }

  void noteDamage(const vcard::Line& line) {
    if (line.isCut) {
      warn(line.number, "the line is too long; its end is left out");
    }
    if (text_.isUtf16() && line.text.find(kReplacement) != std::string::npos) {
      warn(line.number, "the line has broken characters; they are replaced");
    }
  }

  void warn(std::size_t line, std::string_view reason) {
    result_.notes.warning(file_, line, reason);
  }

  const std::string& file_;
  const TextFile& text_;
  VCardReading& result_;
  std::optional<Card> card_;
  TextHash hash_;
  std::size_t nested_ = 0;
  bool outside_ = false;
  bool sawCard_ = false;
};

}  // namespace

VCardReading readVCards(const std::filesystem::path& file, std::size_t mostBytesOfLine) {
  VCardReading result;
  const std::string name = file.string();
  auto opened = TextFile::open(file);
  if (const auto* reason = std::get_if<std::string>(&opened)) {
    result.notes.error(name, 0, *reason);
    return result;
  }
  auto& text = std::get<TextFile>(opened);
  CardCollector collector(name, text, result);
  vcard::Lines lines(text, mostBytesOfLine);
  bool isEmpty = true;
  while (auto line = lines.next()) {
    isEmpty = false;
    collector.take(std::move(*line));
  }
  collector.finish(/*ended=*/false);
  if (text.error()) {
    result.notes.error(name, 0, *text.error());
  } else if (isEmpty) {
    result.notes.warning(name, 0, "the file is empty");
  } else if (!collector.sawCard()) {
    result.notes.error(name, 0, "there is no vCard in the file");
  }
  return result;
}

}  // namespace zephyl::linux_host
