// Generated cards of version 3.0 are read by another parser as well, and both must see the same.

#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <sys/wait.h>

#include "hosts/linux/contacts/ContactSamples.h"

namespace zephyl::linux_host {
namespace {

constexpr char kEndOfField = '\x1f';
constexpr char kEndOfCard = '\x1e';

// Prints the fields of each card with a separator behind each.
constexpr const char* kOracle = R"(
import sys, vobject
def out(text): sys.stdout.buffer.write(text.encode('utf-8') + b'\x1f')
def flat(part): return ' '.join(part) if isinstance(part, list) else part
for card in vobject.readComponents(open(sys.argv[1], encoding='utf-8', newline='').read()):
    name = card.n.value
    for part in (name.family, name.given, name.additional, name.prefix, name.suffix): out(flat(part))
    for kind in ('tel', 'email'):
        for item in card.contents.get(kind, []): out(kind + '=' + item.value)
    for item in card.contents.get('adr', []):
        a = item.value
        for part in (a.street, a.city, a.region, a.code, a.country): out('adr=' + flat(part))
    out('org=' + card.org.value[0])
    out('uid=' + card.uid.value)
    sys.stdout.buffer.write(b'\x1e')
)";

// Writes cards that use folding, escapes, groups, parameters and all kinds of letters.
class CardWriter {
 public:
  std::string write() {
    std::string text = "BEGIN:VCARD" + lineEnd() + "VERSION:3.0" + lineEnd();
    text += line("N:" + field() + ";" + field() + ";" + field() + ";" + field() + ";" + field());
    text += line("FN:" + field());
    for (int count = below(3); count > 0; --count) {
      text += line(std::string(below(2) == 0 ? "TEL;TYPE=CELL:" : "item1.TEL;type=HOME,FAX:") +
                   "x" + field());
      text += line("EMAIL;TYPE=INTERNET:x" + field());
      text += line("ADR;TYPE=WORK:;;" + field() + ";" + field() + ";" + field() + ";" + field() +
                   ";y" + field());
    }
    text += line("ORG:" + field() + "o;" + field());
    text += line("UID:u" + field());
    return text + "END:VCARD" + lineEnd();
  }

 private:
  int below(int limit) { return std::uniform_int_distribution(0, limit - 1)(random_); }
  std::string lineEnd() { return below(2) == 0 ? "\r\n" : "\n"; }

  std::string field() {
    static const std::vector<std::string> kPieces = {"a",
                                                     "B",
                                                     "z",
                                                     "0",
                                                     "9",
                                                     "+",
                                                     "-",
                                                     "(",
                                                     ")",
                                                     ".",
                                                     "@",
                                                     " x",
                                                     "\\,",
                                                     "\\;",
                                                     "\\\\",
                                                     "\\n",
                                                     "\xC3\xBC",
                                                     "\xE5\xB1\xB1",
                                                     "\xF0\x9F\x98\x80",
                                                     "=",
                                                     "\"",
                                                     "/",
                                                     ":",
                                                     "'",
                                                     "_$!<",
                                                     ">!$_"};
    std::string text = below(8) == 0 ? "" : "k";
    for (int count = text.empty() ? 0 : below(12); count > 0; --count) {
      text += kPieces[static_cast<std::size_t>(below(static_cast<int>(kPieces.size())))];
    }
    return text.empty() ? text : text + "e";
  }

  // Folded now and then, never inside a character.
  std::string line(const std::string& text) {
    std::string folded;
    std::size_t length = 0;
    for (const char c : text) {
      const bool startsCharacter = (static_cast<unsigned char>(c) & 0xC0) != 0x80;
      if (startsCharacter && length > 8 && below(20) == 0) {
        folded += lineEnd() + " ";
        length = 0;
      }
      folded += c;
      ++length;
    }
    return folded + lineEnd();
  }

  std::mt19937 random_{20240229};
};

std::string fieldsOf(const ABPerson& person) {
  std::vector<std::string> fields = {person.lastName, person.firstName, person.middleName,
                                     person.prefix, person.suffix};
  for (const ABLabeledText& phone : person.phones) {
    fields.push_back("tel=" + phone.value);
  }
  for (const ABLabeledText& email : person.emails) {
    fields.push_back("email=" + email.value);
  }
  for (const ABAddress& address : person.addresses) {
    for (const std::string* part :
         {&address.street, &address.city, &address.state, &address.zip, &address.country}) {
      fields.push_back("adr=" + *part);
    }
  }
  fields.push_back("org=" + person.organization);
  fields.push_back("uid=" + person.guid);
  std::string text;
  for (const std::string& field : fields) {
    text += field + kEndOfField;
  }
  return text + kEndOfCard;
}

TEST(VCardOracleTest, AnotherParserSeesTheSame) {
  constexpr int kCards = 500;
  const VCardTexts texts;
  CardWriter writer;
  std::string cards;
  for (int i = 0; i < kCards; ++i) {
    cards += writer.write();
  }
  const VCardReading reading = texts.read(cards);
  EXPECT_TRUE(reading.notes.empty());
  ASSERT_EQ(reading.entries.size(), static_cast<std::size_t>(kCards));
  std::string ours;
  for (const VCardEntry& entry : reading.entries) {
    ours += fieldsOf(entry.person);
  }
  const std::string script = texts.folder().file("oracle.py");
  const std::string result = texts.folder().file("oracle.txt");
  writeFile(script, kOracle);
  const std::string command =
      "/usr/bin/python3 '" + script + "' '" + texts.file() + "' > '" + result + "'";
  const int status = std::system(command.c_str());
  ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  const std::string theirs = readFile(result);
  std::size_t start = 0;
  for (std::size_t end = 0; (end = ours.find(kEndOfCard, start)) != std::string::npos;
       start = end + 1) {
    ASSERT_EQ(ours.substr(start, end - start), theirs.substr(start, end - start));
  }
  EXPECT_EQ(ours.size(), theirs.size());
}

}  // namespace
}  // namespace zephyl::linux_host
