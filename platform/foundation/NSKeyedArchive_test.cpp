#include "platform/foundation/NSKeyedArchive.h"

#include <limits>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/foundation/Dictionary.h"
#include "platform/foundation/PropertyListSamples.h"

namespace zephyl {
namespace {

// An archive of the objects behind the null, the first of which is the root.
Data archiveOf(Array objects, const Value& root = Uid{1}) {
  objects.insert(objects.begin(), "$null");
  return writeBinaryPropertyList(Dictionary{{"$version", 100000},
                                            {"$archiver", "NSKeyedArchiver"},
                                            {"$top", Dictionary{{"root", root}}},
                                            {"$objects", std::move(objects)}});
}

Value classNamed(const std::string& name) {
  return Dictionary{{"$classname", name}, {"$classes", Array{name, "NSObject"}}};
}

std::string reasonFor(const Data& archive) {
  const PropertyListResult result = unarchivedValue(archive);
  EXPECT_EQ(unarchivedImage(archive), nullptr);
  return result.ok() ? "no error" : result.error().reason;
}

TEST(NSKeyedArchiveTest, WritesThePhonesLayout) {
  const Value file = readPropertyList(archivedData(Dictionary{{"path", "/a"}})).value();
  EXPECT_EQ(file, Value(Dictionary{{"$version", 100000},
                                   {"$archiver", "NSKeyedArchiver"},
                                   {"$top", Dictionary{{"root", Uid{1}}}},
                                   {"$objects", Array{"$null",
                                                      Dictionary{{"NS.keys", Array{Uid{2}}},
                                                                 {"NS.objects", Array{Uid{3}}},
                                                                 {"$class", Uid{4}}},
                                                      "path", "/a", classNamed("NSDictionary")}}}));
}

TEST(NSKeyedArchiveTest, WhatIsArchivedComesBack) {
  for (const Value& value : std::vector<Value>{
           "text",
           "",
           true,
           -5,
           Value::ofUnsigned(~std::uint64_t{0}),
           0.5,
           Date{1.25},
           Data{1, 2},
           Value(),
           Array{},
           Dictionary{},
           Array{1, Value(), Array{"a", "a"}, Date{-1}, Dictionary{{"k", Array{}}}},
           Dictionary{{"$class", "NSString"}, {"CF$UID", 3}},
           Dictionary{{"CF$UID", 3}},
           "$null",
       }) {
    const PropertyListResult result = unarchivedValue(archivedData(value));
    ASSERT_TRUE(result.ok()) << result.error().reason;
    EXPECT_EQ(result.value(), value);
  }
}

TEST(NSKeyedArchiveTest, GeneratedValuesComeBack) {
  samples::Mix mix;
  mix.uids = false;
  const bool holds = rc::check([&mix] {
    const Value value = *samples::values(mix);
    const PropertyListResult result = unarchivedValue(archivedData(value));
    RC_ASSERT(result.ok());
    RC_ASSERT(samples::same(result.value(), value));
  });
  EXPECT_TRUE(holds);
}

TEST(NSKeyedArchiveTest, AnImageComesBackWithTheBytesOfItsFile) {
  const UIImage image(Data{0x89, 'P', 'N', 'G'});
  const UIImageRef again = unarchivedImage(archivedImage(image));
  ASSERT_NE(again, nullptr);
  EXPECT_EQ(again->file(), image.file());
}

TEST(NSKeyedArchiveTest, AnImageMayStandInsideADictionary) {
  const UIImage image(Data{1, 2, 3});
  const Data archive = archivedData(Dictionary{{"image", archivableImage(image)}, {"path", "/p"}});
  const PropertyListResult result = unarchivedValue(archive);
  ASSERT_TRUE(result.ok()) << result.error().reason;
  const Dictionary& dictionary = *result.value().ifDictionary();
  ASSERT_NE(imageOfValue(dictionary["image"]), nullptr);
  EXPECT_EQ(imageOfValue(dictionary["image"])->file(), image.file());
  EXPECT_EQ(dictionary["path"], Value("/p"));
  EXPECT_EQ(unarchivedImage(archive), nullptr);
}

TEST(NSKeyedArchiveTest, NothingButAnImageIsOne) {
  for (const Value& value : std::vector<Value>{
           "UIImage", Data{1}, Value(), Array{}, Dictionary{{"UIImageData", Data{1}}},
           Dictionary{{"$class", "UIImage"}, {"UIImageData", "text"}},
           Dictionary{{"$class", "NSImage"}, {"UIImageData", Data{1}}},
           Dictionary{{"$class", "UIImage"}, {"UIImageData", Data{1}}, {"more", 1}}}) {
    EXPECT_EQ(imageOfValue(value), nullptr);
    EXPECT_EQ(unarchivedImage(archivedData(value)), nullptr);
  }
}

TEST(NSKeyedArchiveTest, TheBytesOfAnImageMayBeAnObjectOfTheirOwn) {
  const Data archive = archiveOf(
      {Dictionary{{"$class", Uid{2}}, {"UIImageData", Uid{3}}}, classNamed("UIImage"), Data{7, 8}});
  ASSERT_NE(unarchivedImage(archive), nullptr);
  EXPECT_EQ(unarchivedImage(archive)->file(), (Data{7, 8}));
}

TEST(NSKeyedArchiveTest, ReadsMutableClasses) {
  const Data archive = archiveOf(
      {Dictionary{{"$class", Uid{2}}, {"NS.objects", Array{Uid{3}, Uid{5}, Uid{0}, Uid{7}}}},
       classNamed("NSMutableArray"), Dictionary{{"$class", Uid{4}}, {"NS.string", "text"}},
       classNamed("NSMutableString"), Dictionary{{"$class", Uid{6}}, {"NS.data", Data{1}}},
       classNamed("NSMutableData"),
       Dictionary{{"$class", Uid{8}}, {"NS.keys", Array{Uid{3}}}, {"NS.objects", Array{Uid{3}}}},
       classNamed("NSMutableDictionary")});
  EXPECT_EQ(unarchivedValue(archive).value(),
            Value(Array{"text", Data{1}, Value(), Dictionary{{"text", "text"}}}));
}

TEST(NSKeyedArchiveTest, DoesNotArchiveWhatAnArchiveCannotHold) {
  EXPECT_TRUE(archivedData(Uid{1}).empty());
  EXPECT_TRUE(archivedData(Array{1, Uid{1}}).empty());
  EXPECT_TRUE(archivedData("\xFF").empty());
  EXPECT_TRUE(archivedData(Date{std::numeric_limits<double>::infinity()}).empty());
  EXPECT_FALSE(archivedData(samples::nestedArrays(512)).empty());
  EXPECT_TRUE(archivedData(samples::nestedArrays(513)).empty());
}

TEST(NSKeyedArchiveTest, WritesWhatIsSharedManyTimesInLittleSpace) {
  Value value = "leaf";
  for (int i = 0; i < 100; ++i) {
    value = Array{value, value};
  }
  const Data archive = archivedData(value);
  EXPECT_LT(archive.size(), 5000u);
  EXPECT_THAT(reasonFor(archive), testing::EndsWith("that they would fill the memory"));
}

TEST(NSKeyedArchiveTest, SaysWhyAnArchiveCannotBeRead) {
  const Value array = classNamed("NSArray");
  const Value dictionary = classNamed("NSDictionary");
  const std::string noReferences = "an array or dictionary without references to what is in it";
  struct Case {
    Array objects;
    std::string reason;  // of the root
  };
  for (const auto& [objects, reason] : std::vector<Case>{
           {{Dictionary{{"a", 1}}}, "an object without a class"},
           {{Dictionary{{"$class", Uid{9}}}}, "an object without a class"},
           {{Dictionary{{"$class", "NSArray"}}}, "an object without a class"},
           {{Dictionary{{"$class", Uid{2}}}, "NSArray"}, "an object without a class"},
           {{Dictionary{{"$class", Uid{2}}}, Dictionary{{"$classname", 1}}},
            "an object without a class"},
           {{Dictionary{{"$class", Uid{2}}}, classNamed("NSUUID")},
            "an object of the class NSUUID that cannot be read"},
           {{Dictionary{{"$class", Uid{2}}, {"NS.string", 1}}, classNamed("NSString")},
            "an object of the class NSString that cannot be read"},
           {{Array{1}}, "an object of a type that archives do not hold"},
           {{Uid{1}}, "an object of a type that archives do not hold"},
           {{Dictionary{{"$class", Uid{2}}}, array}, noReferences},
           {{Dictionary{{"$class", Uid{2}}, {"NS.objects", Array{1}}}, array}, noReferences},
           {{Dictionary{{"$class", Uid{2}}, {"NS.objects", Array{}}}, dictionary}, noReferences},
           {{Dictionary{{"$class", Uid{2}}, {"NS.keys", Array{}}, {"NS.objects", Array{Uid{0}}}},
             dictionary},
            "a dictionary with more keys than values, or fewer"},
           {{Dictionary{
                 {"$class", Uid{2}}, {"NS.keys", Array{Uid{0}}}, {"NS.objects", Array{Uid{0}}}},
             dictionary},
            "a dictionary key that is no string"},
           {{Dictionary{{"$class", Uid{2}}, {"NS.objects", Array{Uid{99}}}}, array},
            "a reference to no object"},
           {{Dictionary{{"$class", Uid{2}}, {"NS.objects", Array{Uid{1}}}}, array},
            "an array or dictionary that contains itself"},
           {{Dictionary{{"$class", Uid{2}}}, classNamed("UIImage")}, "an image without its bytes"},
           {{Dictionary{{"$class", Uid{2}}, {"UIImageData", Uid{1}}}, classNamed("UIImage")},
            "an image without its bytes"},
           {{Dictionary{{"$class", Uid{2}}, {"NS.time", 1}}, classNamed("NSDate")},
            "a date without a time from the years 0 to 9999"},
       }) {
    EXPECT_EQ(reasonFor(archiveOf(objects)), "object 1 of the archive: " + reason);
  }
}

TEST(NSKeyedArchiveTest, RefusesFilesThatAreNoArchives) {
  EXPECT_EQ(reasonFor(Data{}), "the file is empty");
  EXPECT_EQ(reasonFor(Data{'x'}), "neither an XML nor a binary property list");
  EXPECT_EQ(reasonFor(writeBinaryPropertyList(Array{})), "no keyed archive");
  EXPECT_EQ(reasonFor(writeBinaryPropertyList(Dictionary{{"$archiver", "Other"}})),
            "no keyed archive");
  EXPECT_EQ(reasonFor(writeBinaryPropertyList(Dictionary{{"$archiver", "NSKeyedArchiver"}})),
            "a keyed archive without a root or without objects");
  EXPECT_EQ(reasonFor(archiveOf({1}, Uid{2})), "a keyed archive without a root or without objects");
  EXPECT_EQ(reasonFor(archiveOf({1}, 1)), "a keyed archive without a root or without objects");
}

TEST(NSKeyedArchiveTest, RefusesAnArchiveThatIsCutOffAnywhere) {
  const Data whole = archivedImage(UIImage(Data{1, 2, 3}));
  for (std::size_t size = 0; size < whole.size(); ++size) {
    EXPECT_NE(reasonFor(Data(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size))),
              "no error");
  }
}

}  // namespace
}  // namespace zephyl
