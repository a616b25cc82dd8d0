// Cuts an XML property list into tags and the text between them. Knows the syntax of XML, as far as
// property lists use it, and nothing of their meaning. Never recurses.
//
// The text given must be valid UTF-8 without forbidden characters (`findForbiddenXml`). The first
// failure is kept and told by `failure()`; after it nothing more may be asked.

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/foundation/PropertyList.h"

namespace zephyl::detail {

class XmlScanner {
 public:
  struct Tag {
    enum class Kind { kOpen, kEmpty, kClose };
    Kind kind = Kind::kOpen;
    std::string_view name;
    std::string_view attributes;  // from behind the name to before the end of the tag
    std::size_t offset = 0;       // of the '<'
  };

  // `text` must outlive the scanner and what it hands out.
  explicit XmlScanner(std::string_view text) : text_(text) {}

  // Everything before the first element; false on a failure.
  [[nodiscard]] bool skipProlog();

  // The next tag, behind white space and comments; null on a failure, any other text being one.
  [[nodiscard]] std::optional<Tag> nextTag();

  // The text up to the closing tag of `name`, which is read too; null on a failure. Lives until
  // the next call.
  [[nodiscard]] std::optional<std::string_view> textOf(std::string_view name);

  // Whether only white space and comments are left; a failure otherwise.
  [[nodiscard]] bool atEnd();

  // The value of the attribute, without its quotes; null when there is none.
  [[nodiscard]] static std::optional<std::string_view> attribute(std::string_view attributes,
                                                                 std::string_view name);

  // Keeps the first call's failure. Gives false, to be handed on.
  bool fail(std::string reason, std::size_t offset);
  [[nodiscard]] PropertyListError failure() const;

 private:
  [[nodiscard]] bool startsHere(std::string_view literal) const {
    return text_.substr(at_, literal.size()) == literal;
  }
  void skipWhiteSpace();
  [[nodiscard]] bool skipPast(std::string_view start, std::string_view end, const char* what);
  [[nodiscard]] bool skipWhiteSpaceAndComments();
  [[nodiscard]] bool skipDeclaration();
  [[nodiscard]] bool skipDocumentType();
  [[nodiscard]] std::string_view nameHere();
  [[nodiscard]] bool skipAttributes(std::size_t tagOffset);
  [[nodiscard]] std::size_t textEnd(std::size_t from) const;
  [[nodiscard]] std::optional<std::string_view> composedTextOf(std::string_view name);
  [[nodiscard]] bool appendReference();
  [[nodiscard]] bool appendSection();

  std::string_view text_;
  std::size_t at_ = 0;
  std::string composed_;  // text that does not stand in the file as one piece
  std::optional<PropertyListError> failure_;
};

}  // namespace zephyl::detail
