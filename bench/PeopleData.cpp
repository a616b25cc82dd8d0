#include "bench/PeopleData.h"

#include <array>
#include <cstdint>
#include <memory>
#include <random>

#include "platform/addressbook/ABPerson.h"

namespace zephyl::bench {

namespace {

using Syllables = std::vector<std::string>;

const std::array<Syllables, 13>& scripts() {
  static const std::array<Syllables, 13> all = {{
      {"An", "na", "bert", "Lon", "mar", "is", "el", "Rob", "son", "ley", "Ka", "ti"},
      {"Mü", "ller", "Jür", "gen", "Grö", "ning", "Bä", "cker", "ß", "haus"},
      {"É", "mi", "lie", "Fran", "çois", "Bé", "ran", "ger", "Hé", "lè", "ne"},
      {"Ang", "ström", "Å", "sa", "Ö", "berg", "Lind", "qvist"},
      {"Ив", "ан", "Ми", "хай", "лов", "Ан", "на", "Пет", "ро", "ва"},
      {"Γε", "ώρ", "γι", "ος", "Πα", "πα", "δό", "που", "λος"},
      {"מש", "ה", "לו", "י", "כה", "ן", "שר"},
      {"مح", "مد", "أح", "علي", "حس", "ين", "فا", "طمة"},
      {"東", "京", "田", "中", "山", "本", "佐", "藤"},
      {"さ", "くら", "たな", "か", "ユ", "キ", "ハル"},
      {"김", "민", "준", "서", "연", "박", "지", "훈"},
      {"王", "李", "伟", "芳", "张", "敏", "刘", "洋"},
      {"สม", "ชาย", "วร", "รณ", "ศรี", "พร"},
  }};
  return all;
}

class Inventor {
 public:
  ABPersonRef person(std::int32_t number) {
    auto made = std::make_shared<ABPerson>();
    const std::size_t script = random_() % 3 == 0 ? random_() % scripts().size() : random_() % 4;
    const Syllables& syllables = scripts().at(script);
    made->recordID = number;
    made->firstName = name(syllables, 1 + random_() % 3);
    made->lastName = random_() % 10 == 0 ? std::string() : name(syllables, 2 + random_() % 3);
    made->compositeName =
        made->lastName.empty() ? made->firstName : made->firstName + " " + made->lastName;
    const auto phone = random_() % 50 == 0 ? random_() % 1000 : static_cast<unsigned>(number);
    made->phones.push_back({"", "+1555" + std::to_string(1'000'000 + phone)});
    if (random_() % 4 != 0) {
      made->emails.push_back({"", "user" + std::to_string(number) + "@" +
                                      (random_() % 2 == 0 ? "gmail.com" : "example.org")});
      made->addresses.push_back(
          {std::to_string(random_() % 200) + " " + name(scripts()[0], 2) + " Street",
           name(scripts()[0], 2), "", std::to_string(90'000 + random_() % 999), "United States",
           "us"});
    }
    return made;
  }

 private:
  std::string name(const Syllables& syllables, std::size_t count) {
    std::string made;
    for (; count > 0; --count) {
      made += syllables[random_() % syllables.size()];
    }
    return made;
  }

  std::mt19937 random_{11};
};

}  // namespace

APContactArray inventedContacts(std::size_t count) {
  Inventor inventor;
  APContactArray contacts;
  contacts.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    contacts.push_back(APContact::initWithRecordRef(
        inventor.person(static_cast<std::int32_t>(i + 1)), APContactFieldAll));
  }
  return contacts;
}

std::vector<std::string> inventedSearches() {
  return {"a",         "an",  "an lon", "anna",      "anna b", "müller", "ивАН",
          "90210",     "903", "kim",    "rob gmail", "東",     "ÅNG",    "zzzz",
          "street 17", "son", "user99", "gmail",     "김민",   "xq lon"};
}

}  // namespace zephyl::bench
