#include "contacts/APContact.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/Host.h"
#include "platform/addressbook/ABLabels.h"
#include "platform/uikit/UIGraphics.h"
#include "platform/uikit/UIKitHost.h"

namespace zephyl {

namespace {

std::vector<std::string> arrayProperty(const std::vector<ABLabeledText>& values) {
  std::vector<std::string> texts;
  texts.reserve(values.size());
  for (const ABLabeledText& value : values) {
    texts.push_back(value.value);
  }
  return texts;
}

std::string digitsOf(const std::string& phone) {
  std::string digits;
  std::copy_if(phone.begin(), phone.end(), std::back_inserter(digits),
               [](char each) { return each >= '0' && each <= '9'; });
  return digits;
}

std::optional<Date> dateOf(const std::optional<double>& secondsSince1970) {
  return secondsSince1970 ? std::optional(Date::since1970(*secondsSince1970)) : std::nullopt;
}

// By its head alone; a device without a screen takes it for one.
bool isPicture(const std::vector<std::uint8_t>& file) {
  UIKitHost* const screen = host().uikit();
  return screen == nullptr ? !file.empty() : screen->graphics().pixelSize(file) != CGSize();
}

}  // namespace

void APContact::Picture::read(const ABImageLoader& loader) {
  const ABImageData data = loader ? loader() : nullptr;
  if (data != nullptr && isPicture(*data)) {
    loader_ = loader;
  }
}

UIImageRef APContact::Picture::image() const {
  std::call_once(once_, [this] {
    const ABImageData data = loader_ ? loader_() : nullptr;
    if (data != nullptr && isPicture(*data)) {
      image_ = UIImage::imageWithData(*data);
    }
  });
  return image_;
}

APContactRef APContact::initWithRecordRef(const ABPersonRef& record, APContactField fieldMask) {
  return APContactRef(new APContact(record, fieldMask));
}

APContact::APContact(const ABPersonRef& record, APContactField fieldMask) : fieldMask_(fieldMask) {
  if (record != nullptr) {
    readNames(*record);
    readLists(*record);
    readNumbers(*record);
  }
}

void APContact::readNames(const ABPerson& person) {
  const auto read = [this](APContactField field, std::string& name, const std::string& value) {
    if (reads(field)) {
      name = value;
    }
  };
  read(APContactFieldFirstName, firstName_, person.firstName);
  read(APContactFieldMiddleName, middleName_, person.middleName);
  read(APContactFieldLastName, lastName_, person.lastName);
  read(APContactFieldCompany, company_, person.organization);
  read(APContactFieldCompositeName, compositeName_, person.compositeName.value_or(std::string()));
}

void APContact::readLists(const ABPerson& person) {
  if (reads(APContactFieldPhones)) {
    phones_ = arrayProperty(person.phones);
  }
  if (reads(APContactFieldEmails)) {
    emails_ = arrayProperty(person.emails);
  }
  if (reads(APContactFieldPhonesWithLabels)) {
    phonesWithLabels_.reserve(person.phones.size());
    for (const ABLabeledText& phone : person.phones) {
      phonesWithLabels_.push_back({phone.value, ABAddressBookCopyLocalizedLabel(phone.label)});
    }
  }
  if (reads(APContactFieldAddresses)) {
    addresses_.reserve(person.addresses.size());
    for (const ABAddress& each : person.addresses) {
      addresses_.push_back(
          {each.street, each.city, each.state, each.zip, each.country, each.countryCode});
    }
  }
  if (reads(APContactFieldSocialProfiles)) {
    socialProfiles_.reserve(person.socialProfiles.size());
    for (const ABSocialProfile& each : person.socialProfiles) {
      socialProfiles_.push_back(APSocialProfile::initWithSocialDictionary(each));
    }
  }
}

void APContact::readNumbers(const ABPerson& person) {
  if (reads(APContactFieldRecordID)) {
    recordID_ = person.recordID;
  }
  if (reads(APContactFieldCreationDate)) {
    creationDate_ = dateOf(person.creationDate);
  }
  if (reads(APContactFieldModificationDate)) {
    modificationDate_ = dateOf(person.modificationDate);
  }
  if (reads(APContactFieldPhoto)) {
    photo_.read(person.fullSizeImage);
  }
  if (reads(APContactFieldThumbnail)) {
    thumbnail_.read(person.thumbnailImage);
  }
}

const std::string& APContact::firstNameOrCompositeName() const {
  return firstName_.empty() ? compositeName_ : firstName_;
}

const std::string& APContact::lastNameOrCompositeName() const {
  return lastName_.empty() ? compositeName_ : lastName_;
}

std::vector<std::string> APContact::sanitizedPhones() const {
  std::vector<std::string> digits;
  digits.reserve(phones_.size());
  std::transform(phones_.begin(), phones_.end(), std::back_inserter(digits), digitsOf);
  return digits;
}

}  // namespace zephyl
