// Which fields of a person are read into a contact: bits of a mask.

#pragma once

#include <cstdint>

namespace zephyl {

using APContactField = std::uint32_t;

inline constexpr APContactField APContactFieldFirstName = 1 << 0;
inline constexpr APContactField APContactFieldLastName = 1 << 1;
inline constexpr APContactField APContactFieldCompany = 1 << 2;
inline constexpr APContactField APContactFieldPhones = 1 << 3;
inline constexpr APContactField APContactFieldEmails = 1 << 4;
inline constexpr APContactField APContactFieldPhoto = 1 << 5;
inline constexpr APContactField APContactFieldThumbnail = 1 << 6;
inline constexpr APContactField APContactFieldPhonesWithLabels = 1 << 7;
inline constexpr APContactField APContactFieldCompositeName = 1 << 8;
inline constexpr APContactField APContactFieldAddresses = 1 << 9;
inline constexpr APContactField APContactFieldRecordID = 1 << 10;
inline constexpr APContactField APContactFieldCreationDate = 1 << 11;
inline constexpr APContactField APContactFieldModificationDate = 1 << 12;
inline constexpr APContactField APContactFieldMiddleName = 1 << 13;
inline constexpr APContactField APContactFieldSocialProfiles = 1 << 14;
// Every bit, also those that name no field.
inline constexpr APContactField APContactFieldAll = 0xFFFF;
// First name, last name and phones.
inline constexpr APContactField APContactFieldDefault =
    APContactFieldFirstName | APContactFieldLastName | APContactFieldPhones;

}  // namespace zephyl
