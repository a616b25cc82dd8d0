// Contacts for the tests: cards written line by line, and a small address book of a phone.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/addressbook/ABPerson.h"

#include "hosts/linux/contacts/VCardReader.h"
#include "hosts/linux/messages/TestDatabase.h"

namespace zephyl::linux_host {

// "BEGIN:VCARD", the version, the lines and "END:VCARD", each ended by CR LF.
[[nodiscard]] std::string card(std::string_view version, const std::vector<std::string>& lines);

// Bytes that are fit for a picture, and their base64 text without line breaks.
inline const std::string kPictureBytes = "\x89PNG\r\n\x1a\n0123456789";
inline const std::string kPictureBase64 = "iVBORw0KGgowMTIzNDU2Nzg5";

// Reads texts as if they were files of that name. Pictures can be loaded while it lives.
class VCardTexts {
 public:
  [[nodiscard]] VCardReading read(std::string_view text,
                                  std::size_t mostBytesOfLine = vcard::Lines::kMostBytes) const;

  // The only person of a text that gives one and no notes.
  [[nodiscard]] ABPerson person(std::string_view text) const;

  [[nodiscard]] std::string file() const { return folder_.file("people.vcf"); }
  [[nodiscard]] const TemporaryFolder& folder() const { return folder_; }

 private:
  TemporaryFolder folder_;
};

// Warnings or errors without the file's name: "3: REASON".
[[nodiscard]] std::vector<std::string> withoutFile(const std::vector<std::string>& notes,
                                                   const std::string& file);

// The picture as text; empty without one.
[[nodiscard]] std::string picture(const ABImageLoader& loader);

// The tables of an address book of iOS 15 and of its pictures, as far as a reader looks at them.
extern const std::string_view kAddressBookTables;
extern const std::string_view kAddressBookImagesTables;

}  // namespace zephyl::linux_host
