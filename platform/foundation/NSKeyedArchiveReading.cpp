#include <string>
#include <utility>

#include "platform/foundation/Dictionary.h"
#include "platform/foundation/NSKeyedArchive.h"
#include "platform/foundation/NSKeyedArchiveNames.h"
#include "platform/foundation/PropertyListGraph.h"
#include "platform/foundation/PropertyListLimits.h"

namespace zephyl {

namespace {

using detail::StoredObject;
using Outcome = std::variant<StoredObject, std::string>;

StoredObject scalar(Value value) {
  return {StoredObject::Kind::kScalar, std::move(value), 0, {}};
}

class ArchivedObjects : public detail::ObjectSource {
 public:
  // `objects` must outlive this.
  explicit ArchivedObjects(const Array& objects) : objects_(objects) {}

  [[nodiscard]] std::size_t count() const override { return objects_.size(); }
  [[nodiscard]] Outcome objectAt(std::size_t number) override;
  // There are no places but the objects' numbers.
  [[nodiscard]] std::size_t offsetOf(std::size_t number) const override { return number; }
  [[nodiscard]] Value dictionary(Dictionary entries) const override {
    return Value(std::move(entries));
  }

 private:
  [[nodiscard]] Outcome ofClass(const std::string& name, const Dictionary& object) const;
  [[nodiscard]] Outcome container(const Dictionary& object, bool isDictionary) const;
  [[nodiscard]] Outcome image(const Dictionary& object) const;
  [[nodiscard]] const std::string* classNameOf(const Dictionary& object) const;
  [[nodiscard]] const Value* named(const Value* reference) const;
  [[nodiscard]] static bool appendReferences(const Value& list, std::vector<std::size_t>& out);

  const Array& objects_;
};

Outcome ArchivedObjects::objectAt(std::size_t number) {
  const Value& object = objects_[number];
  if (number == 0) {
    return object == Value(detail::kNull) ? Outcome(scalar(Value()))
                                          : Outcome("the first object is not the null");
  }
  if (const Dictionary* entries = object.ifDictionary()) {
    const std::string* name = classNameOf(*entries);
    return name != nullptr ? ofClass(*name, *entries) : Outcome("an object without a class");
  }
  if (object.ifArray() != nullptr || object.ifUid() != nullptr) {
    return "an object of a type that archives do not hold";
  }
  return scalar(object);
}

// The object that a reference names; null when it is no reference or names nothing.
const Value* ArchivedObjects::named(const Value* reference) const {
  const Uid* uid = reference != nullptr ? reference->ifUid() : nullptr;
  return uid != nullptr && uid->index < objects_.size() ? &objects_[uid->index] : nullptr;
}

const std::string* ArchivedObjects::classNameOf(const Dictionary& object) const {
  const Value* description = named(object.find(detail::kClassKey));
  if (description == nullptr || description->ifDictionary() == nullptr) {
    return nullptr;
  }
  const Value* name = description->ifDictionary()->find(detail::kClassNameKey);
  return name != nullptr ? name->ifString() : nullptr;
}

Outcome ArchivedObjects::ofClass(const std::string& name, const Dictionary& object) const {
  if (name == "NSDictionary" || name == "NSMutableDictionary") {
    return container(object, /*isDictionary=*/true);
  }
  if (name == "NSArray" || name == "NSMutableArray") {
    return container(object, /*isDictionary=*/false);
  }
  if (name == detail::kImageClass) {
    return image(object);
  }
  if (name == "NSDate") {
    const Value seconds = object[detail::kTimeKey];
    if (seconds.ifReal() == nullptr || !detail::isDateInRange(*seconds.ifReal())) {
      return "a date without a time from the years 0 to 9999";
    }
    return scalar(Value(Date{*seconds.ifReal()}));
  }
  const Value text = object[detail::kStringKey];
  if ((name == "NSString" || name == "NSMutableString") && text.ifString() != nullptr) {
    return scalar(text);
  }
  const Value bytes = object[detail::kDataKey];
  if ((name == "NSData" || name == "NSMutableData") && bytes.ifData() != nullptr) {
    return scalar(bytes);
  }
  return "an object of the class " + name + " that cannot be read";
}

bool ArchivedObjects::appendReferences(const Value& list, std::vector<std::size_t>& out) {
  if (list.ifArray() == nullptr) {
    return false;
  }
  for (const Value& reference : *list.ifArray()) {
    if (reference.ifUid() == nullptr) {
      return false;
    }
    out.push_back(reference.ifUid()->index);
  }
  return true;
}

Outcome ArchivedObjects::container(const Dictionary& object, bool isDictionary) const {
  StoredObject result;
  result.kind = isDictionary ? StoredObject::Kind::kDictionary : StoredObject::Kind::kArray;
  const bool keysAreGood =
      !isDictionary || appendReferences(object[detail::kKeysKey], result.references);
  const std::size_t keys = result.references.size();
  if (!keysAreGood || !appendReferences(object[detail::kElementsKey], result.references)) {
    return "an array or dictionary without references to what is in it";
  }
  if (isDictionary && result.references.size() != 2 * keys) {
    return "a dictionary with more keys than values, or fewer";
  }
  return result;
}

// The bytes may be in the object or be one of their own.
Outcome ArchivedObjects::image(const Dictionary& object) const {
  const Value* bytes = object.find(detail::kImageDataKey);
  if (const Value* elsewhere = named(bytes)) {
    bytes = elsewhere;
  }
  if (bytes == nullptr || bytes->ifData() == nullptr) {
    return "an image without its bytes";
  }
  StoredObject result =
      scalar(Dictionary{{detail::kClassKey, detail::kImageClass}, {detail::kImageDataKey, *bytes}});
  result.extraWeight = bytes->ifData()->size();
  return result;
}

PropertyListError wrong(std::string reason) {
  return {std::move(reason), 0, 0};
}

}  // namespace

PropertyListResult unarchivedValue(const Data& archive) {
  PropertyListResult read = readPropertyList(archive);
  if (!read.ok()) {
    return read;
  }
  const Dictionary* file = read.value().ifDictionary();
  if (file == nullptr || (*file)[detail::kArchiverKey] != Value(detail::kArchiverName)) {
    return wrong("no keyed archive");
  }
  const Value top = (*file)[detail::kTopKey];
  const Value root =
      top.ifDictionary() != nullptr ? (*top.ifDictionary())[detail::kRootKey] : Value();
  const Value objects = (*file)[detail::kObjectsKey];
  if (root.ifUid() == nullptr || objects.ifArray() == nullptr ||
      root.ifUid()->index >= objects.ifArray()->size()) {
    return wrong("a keyed archive without a root or without objects");
  }
  ArchivedObjects source(*objects.ifArray());
  PropertyListResult result =
      detail::buildValue(source, root.ifUid()->index, detail::maximumWeight(archive.size()));
  if (!result.ok()) {
    return wrong("object " + std::to_string(result.error().offset) +
                 " of the archive: " + result.error().reason);
  }
  return result;
}

UIImageRef unarchivedImage(const Data& archive) {
  const PropertyListResult result = unarchivedValue(archive);
  return result.ok() ? imageOfValue(result.value()) : nullptr;
}

}  // namespace zephyl
