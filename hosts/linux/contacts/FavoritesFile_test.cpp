// The phone's file of favourite contacts.

#include "hosts/linux/contacts/FavoritesFile.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/foundation/Dictionary.h"
#include "platform/foundation/PropertyList.h"

namespace zephyl::linux_host {
namespace {

using Strings = std::vector<std::string>;

TEST(FavoritesFileTest, FavouritesAreReadInTheirOrder) {
  const Value root(Array{
      Dictionary{{"ABUid", Value(7)}, {"ABDatabaseUUID", Value("A-B")}, {"Name", Value("Doe")}},
      Dictionary{{"ABUid", Value(3)}},
      Dictionary{{"ABDatabaseUUID", Value("C-D")}},
  });
  const Data bytes = writeBinaryPropertyList(root);
  const FavoritesReading reading =
      readFavoritesFile({reinterpret_cast<const char*>(bytes.data()), bytes.size()}, "f");
  ASSERT_EQ(reading.entries.size(), 3U);
  EXPECT_EQ(reading.entries[0].abUid, 7);
  EXPECT_EQ(reading.entries[0].abDatabaseUUID, "A-B");
  EXPECT_EQ(reading.entries[0].contactIdentifier, std::nullopt);
  EXPECT_EQ(reading.entries[1].abUid, 3);
  EXPECT_EQ(reading.entries[1].abDatabaseUUID, std::nullopt);
  EXPECT_EQ(reading.entries[2].abUid, std::nullopt);
  EXPECT_EQ(reading.warnings, Strings());
  EXPECT_EQ(reading.errors, Strings());
}

TEST(FavoritesFileTest, ValuesOfAWrongTypeAreLeftOutAndTold) {
  const Value root(Array{
      Value("text"),
      Dictionary{{"ABUid", Value("7")}, {"ABDatabaseUUID", Value("A-B")}},
      Dictionary{{"ABUid", Value(7)}, {"ABDatabaseUUID", Value(8)}},
      Dictionary{{"Name", Value("Doe")}},
  });
  const FavoritesReading reading = readFavorites(root, "f");
  ASSERT_EQ(reading.entries.size(), 2U);
  EXPECT_EQ(reading.entries[0].abDatabaseUUID, "A-B");
  EXPECT_EQ(reading.entries[1].abUid, 7);
  EXPECT_EQ(reading.warnings, (Strings{"f: favourite 1 is no dictionary and is left out",
                                       "f: favourite 2: ABUid is no integer and is left out",
                                       "f: favourite 3: ABDatabaseUUID is no text and is left out",
                                       "f: favourite 4 names nobody and is left out"}));
}

TEST(FavoritesFileTest, WhatIsNoListOfFavouritesIsAnError) {
  EXPECT_EQ(readFavorites(Value(Dictionary{}), "f").errors,
            Strings{"f: this is no list of favourites: its root is no array"});
  const FavoritesReading reading = readFavoritesFile("bplist00", "f");
  ASSERT_EQ(reading.errors.size(), 1U);
  EXPECT_EQ(reading.errors[0].find("f: byte "), 0U) << reading.errors[0];
}

}  // namespace
}  // namespace zephyl::linux_host
