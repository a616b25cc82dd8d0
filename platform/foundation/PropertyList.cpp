#include "platform/foundation/PropertyList.h"

#include "platform/foundation/PropertyListBinaryReader.h"
#include "platform/foundation/PropertyListBinaryWriter.h"
#include "platform/foundation/PropertyListCheck.h"
#include "platform/foundation/PropertyListText.h"
#include "platform/foundation/PropertyListXmlReader.h"
#include "platform/foundation/PropertyListXmlWriter.h"

namespace zephyl {

using detail::PropertyListForm;

std::string PropertyListError::message(std::string_view fileName) const {
  const std::string place =
      line > 0 ? "line " + std::to_string(line) : "byte " + std::to_string(offset);
  return std::string(fileName) + ": " + place + ": " + reason;
}

PropertyListResult readPropertyList(std::string_view bytes) {
  if (bytes.empty()) {
    return PropertyListError{"the file is empty", 0, 0};
  }
  if (bytes.starts_with("bplist")) {
    return detail::readBinaryPropertyList(bytes);
  }
  const detail::DecodedText decoded(bytes);
  if (decoded.error()) {
    return *decoded.error();
  }
  const std::size_t start = decoded.text().find_first_not_of(" \t\r\n");
  if (start != std::string_view::npos && decoded.text()[start] != '<') {
    return PropertyListError{"neither an XML nor a binary property list", start,
                             detail::lineAt(decoded.text(), start)};
  }
  return detail::readXmlPropertyList(decoded.text());
}

PropertyListResult readPropertyList(const Data& bytes) {
  return readPropertyList(
      std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
}

std::string writeXmlPropertyList(const Value& value) {
  return whyNotXmlPropertyList(value) ? std::string() : detail::writeXml(value);
}

Data writeBinaryPropertyList(const Value& value) {
  return whyNotBinaryPropertyList(value) ? Data() : detail::writeBinary(value);
}

std::optional<std::string> whyNotXmlPropertyList(const Value& value) {
  return whyNotPropertyList(value, PropertyListForm::kXml);
}

std::optional<std::string> whyNotBinaryPropertyList(const Value& value) {
  return whyNotPropertyList(value, PropertyListForm::kBinary);
}

}  // namespace zephyl
