#include "platform/foundation/NSKeyedArchive.h"

#include <cstdint>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/foundation/Dictionary.h"
#include "platform/foundation/NSKeyedArchiveNames.h"
#include "platform/foundation/PropertyListLimits.h"
#include "platform/foundation/PropertyListWriting.h"

namespace zephyl {

namespace {

using detail::WritingStep;

class Archiver {
 public:
  // Empty when the value cannot be archived.
  [[nodiscard]] Data archive(const Value& root);

 private:
  struct OpenContainer {
    WritingStep step;
    std::size_t number = 0;
    Array keys;
    Array elements;
  };

  void addNext();
  void close();
  [[nodiscard]] Uid add(const Value& value);
  [[nodiscard]] Uid addContainer(const WritingStep& step);
  [[nodiscard]] Uid addObject(Value object);
  [[nodiscard]] Uid classNamed(const std::string& name);
  [[nodiscard]] static Uid uid(std::size_t number) { return Uid{number}; }

  Array objects_ = {Value(detail::kNull)};
  std::unordered_map<std::string, std::size_t> classes_;
  std::unordered_map<const void*, std::size_t>
      containers_;  // by identity, so that shared ones stay
  std::vector<OpenContainer> open_;
  bool possible_ = true;
};

Data Archiver::archive(const Value& root) {
  const Uid rootNumber = add(root);
  while (possible_ && !open_.empty()) {
    addNext();
  }
  if (!possible_) {
    return {};
  }
  return writeBinaryPropertyList(
      Dictionary{{detail::kVersionKey, detail::kArchiveVersion},
                 {detail::kArchiverKey, detail::kArchiverName},
                 {detail::kTopKey, Dictionary{{detail::kRootKey, rootNumber}}},
                 {detail::kObjectsKey, std::move(objects_)}});
}

// The next element of the innermost container, or its end.
void Archiver::addNext() {
  WritingStep& step = open_.back().step;
  if (step.begun == step.size()) {
    close();
    return;
  }
  const std::size_t container = open_.size() - 1;
  const std::size_t i = step.begun++;
  const Value& value = step.valueAt(i);
  if (step.dictionary != nullptr) {
    open_[container].keys.emplace_back(addObject(Value(step.entryAt(i).first)));
  }
  const Uid number = add(value);
  open_[container].elements.emplace_back(number);
}

void Archiver::close() {
  OpenContainer container = std::move(open_.back());
  open_.pop_back();
  Dictionary object;
  const bool isDictionary = container.step.dictionary != nullptr;
  if (isDictionary) {
    object.set(detail::kKeysKey, std::move(container.keys));
  }
  object.set(detail::kElementsKey, std::move(container.elements));
  object.set(detail::kClassKey, classNamed(isDictionary ? "NSDictionary" : "NSArray"));
  objects_[container.number] = std::move(object);
}

Uid Archiver::add(const Value& value) {
  if (const UIImageRef image = imageOfValue(value)) {
    return addObject(
        Dictionary{{detail::kImageDataKey, (*value.ifDictionary())[detail::kImageDataKey]},
                   {detail::kClassKey, classNamed(detail::kImageClass)}});
  }
  if (const auto step = detail::stepInto(value)) {
    return addContainer(*step);
  }
  if (value.isNull()) {
    return uid(0);
  }
  if (const Date* date = value.ifDate()) {
    possible_ = possible_ && detail::isDateInRange(date->secondsSinceReferenceDate);
    return addObject(Dictionary{{detail::kTimeKey, date->secondsSinceReferenceDate},
                                {detail::kClassKey, classNamed("NSDate")}});
  }
  possible_ = possible_ && value.ifUid() == nullptr;
  return addObject(value);
}

Uid Archiver::addContainer(const WritingStep& step) {
  const void* identity = step.array;
  if (step.dictionary != nullptr) {
    identity = step.dictionary;
  }
  const auto [known, isNew] = containers_.try_emplace(identity, objects_.size());
  const Uid number = uid(known->second);
  if (isNew) {
    possible_ = possible_ && open_.size() < detail::kMaximumDepth;
    open_.push_back({step, known->second, {}, {}});
    objects_.emplace_back();
  }
  return number;
}

Uid Archiver::addObject(Value object) {
  objects_.push_back(std::move(object));
  return uid(objects_.size() - 1);
}

Uid Archiver::classNamed(const std::string& name) {
  const auto [known, isNew] = classes_.try_emplace(name, objects_.size());
  if (isNew) {
    objects_.emplace_back(
        Dictionary{{detail::kClassNameKey, name}, {detail::kClassesKey, Array{name, "NSObject"}}});
  }
  return uid(known->second);
}

}  // namespace

Value archivableImage(const UIImage& image) {
  return Dictionary{{detail::kClassKey, detail::kImageClass},
                    {detail::kImageDataKey, image.file()}};
}

UIImageRef imageOfValue(const Value& value) {
  const Dictionary* object = value.ifDictionary();
  if (object == nullptr || object->size() != 2) {
    return nullptr;
  }
  const Value* name = object->find(detail::kClassKey);
  const Value* file = object->find(detail::kImageDataKey);
  if (name == nullptr || *name != Value(detail::kImageClass) || file == nullptr ||
      file->ifData() == nullptr) {
    return nullptr;
  }
  return std::make_shared<UIImage>(*file->ifData());
}

Data archivedData(const Value& root) {
  return Archiver().archive(root);
}

Data archivedImage(const UIImage& image) {
  return archivedData(archivableImage(image));
}

}  // namespace zephyl
