#include "platform/foundation/PropertyListGraph.h"

#include <algorithm>
#include <cassert>
#include <optional>
#include <utility>

#include "platform/foundation/Dictionary.h"
#include "platform/foundation/PropertyListLimits.h"

namespace zephyl::detail {

namespace {

class GraphBuilder {
 public:
  GraphBuilder(ObjectSource& source, std::uint64_t maximumWeight)
      : source_(source), maximumWeight_(maximumWeight), slots_(source.count()) {}

  [[nodiscard]] PropertyListResult build(std::size_t root);

 private:
  enum class State : std::uint8_t { kUnread, kOpen, kDone };

  struct Slot {
    Value value;
    std::uint64_t weight = 0;
    std::uint16_t height = 0;  // containers inside one another, this one included; 0 of a scalar
    State state = State::kUnread;
  };

  struct OpenContainer {
    std::size_t number = 0;
    bool isDictionary = false;
    std::vector<std::size_t> references;
    std::size_t next = 0;
  };

  [[nodiscard]] bool visit(std::size_t number);
  [[nodiscard]] bool finish(const OpenContainer& container);
  [[nodiscard]] bool makeDictionary(const OpenContainer& container);
  bool fail(std::string reason, std::size_t number);
  [[nodiscard]] static std::uint64_t weightOf(const Value& scalar);

  ObjectSource& source_;
  std::uint64_t maximumWeight_;
  std::uint64_t copiedKeyBytes_ = 0;
  std::vector<Slot> slots_;
  std::vector<OpenContainer> open_;
  std::optional<PropertyListError> error_;
};

bool GraphBuilder::fail(std::string reason, std::size_t number) {
  error_ = PropertyListError{std::move(reason), source_.offsetOf(number), 0};
  return false;
}

PropertyListResult GraphBuilder::build(std::size_t root) {
  assert(root < slots_.size());
  bool good = visit(root);
  while (good && !open_.empty()) {
    OpenContainer& container = open_.back();
    if (container.next < container.references.size()) {
      const std::size_t number = container.references[container.next++];
      good = number < slots_.size() ? visit(number)
                                    : fail("a reference to no object", container.number);
      continue;
    }
    good = finish(container);
    open_.pop_back();
  }
  if (!good) {
    return *error_;
  }
  return slots_[root].value;
}

// Reads the object if it is new: a scalar at once, a container is left open.
bool GraphBuilder::visit(std::size_t number) {
  Slot& slot = slots_[number];
  if (slot.state == State::kOpen) {
    return fail("an array or dictionary that contains itself", number);
  }
  if (slot.state == State::kDone) {
    return open_.size() + slot.height <= kMaximumDepth || fail(kTooDeep, number);
  }
  auto read = source_.objectAt(number);
  if (auto* reason = std::get_if<std::string>(&read)) {
    return fail(std::move(*reason), number);
  }
  StoredObject& object = std::get<StoredObject>(read);
  if (object.kind == StoredObject::Kind::kScalar) {
    slot.weight = saturatingSum(weightOf(object.scalar), object.extraWeight);
    slot.value = std::move(object.scalar);
    slot.state = State::kDone;
    return true;
  }
  if (open_.size() == kMaximumDepth) {
    return fail(kTooDeep, number);
  }
  slot.state = State::kOpen;
  open_.push_back(
      {number, object.kind == StoredObject::Kind::kDictionary, std::move(object.references), 0});
  return true;
}

std::uint64_t GraphBuilder::weightOf(const Value& scalar) {
  if (const Data* bytes = scalar.ifData()) {
    return 1 + bytes->size();
  }
  const std::string* text = scalar.ifString();
  return 1 + (text != nullptr ? text->size() : 0);
}

bool GraphBuilder::finish(const OpenContainer& container) {
  Slot& slot = slots_[container.number];
  std::uint64_t weight = 1;
  std::uint16_t height = 0;
  for (const std::size_t number : container.references) {
    weight = saturatingSum(weight, slots_[number].weight);
    height = std::max(height, slots_[number].height);
  }
  if (weight > maximumWeight_) {
    return fail("objects that name one another so often that they would fill the memory",
                container.number);
  }
  if (container.isDictionary) {
    if (!makeDictionary(container)) {
      return false;
    }
  } else {
    Array elements;
    elements.reserve(container.references.size());
    for (const std::size_t number : container.references) {
      elements.push_back(slots_[number].value);
    }
    slot.value = std::move(elements);
  }
  slot.weight = weight;
  slot.height = static_cast<std::uint16_t>(height + 1);
  slot.state = State::kDone;
  return true;
}

bool GraphBuilder::makeDictionary(const OpenContainer& container) {
  const std::vector<std::size_t>& references = container.references;
  const std::size_t size = references.size() / 2;
  Dictionary entries;
  for (std::size_t i = 0; i < size; ++i) {
    const std::string* key = slots_[references[i]].value.ifString();
    if (key == nullptr) {
      return fail("a dictionary key that is no string", container.number);
    }
    // Dictionaries keep keys of their own, which the weight of the whole value bounds too, but only
    // once all of it is there.
    copiedKeyBytes_ += key->size();
    if (copiedKeyBytes_ > maximumWeight_) {
      return fail("keys that are named so often that they would fill the memory", container.number);
    }
    entries.set(*key, slots_[references[size + i]].value);
  }
  slots_[container.number].value = source_.dictionary(std::move(entries));
  return true;
}

}  // namespace

PropertyListResult buildValue(ObjectSource& source, std::size_t root, std::uint64_t maximumWeight) {
  return GraphBuilder(source, maximumWeight).build(root);
}

}  // namespace zephyl::detail
