#pragma once

#include <QString>

// The kinds of setting a settings specification can describe. The numbering is the order
// of the keyword table and is printed in diagnostics, so it never changes.
enum ElementType : int
{
    etUnknown = 0,
    etAbout = 1,
    etAddressBook = 2,
    etButton = 3,
    etCheckbox = 4,
    etDateTime = 5,
    etDialEdit = 6,
    etEdit = 7,
    etEmailBook = 8,
    etEmpty = 9, // no TYPE attribute, read as a group
    etFloat = 10,
    etForm = 11,
    etGroup = 12,
    etInkCartridgeAlignMFP = 13,
    etInkCartridgeAlignMFP_XML = 14,
    etInkCartridgeAlignSFP = 15,
    etInkCartridgeAlignSFP_XML = 16,
    etInkCartridgeClean = 17,
    etInkCartridgeClean_XML = 18,
    etInkJetMaintenance = 19,
    etInkTestPagePrint = 20,
    etInkTestPagePrint_XML = 21,
    etInteger = 22,
    etIPAddress = 23,
    etList = 24,
    etPaperSize = 25,
    etPhoneBook = 26,
    etRadio = 27,
    etSlider = 28,
    etSubnetMask = 29,
    etTable = 30,
    etText = 31,
    etWirelessSetup = 32,
};

constexpr int kLastElementType = etWirelessSetup;

// The one table that maps TYPE keywords, codes and type names both ways.
namespace ElementTypes {

// Exact, case-sensitive. Missing or empty gives etEmpty; an unknown keyword etUnknown.
// "GROUP" and "SUBGROUP" both give etGroup.
ElementType fromKeyword(const QString& keyword);

// The keyword of a code; "UNKNOWN" for etUnknown, etEmpty and codes out of range.
QString keyword(int type);

// The type name an element reports ("stList", "stDateTIme", ...); "stUnknown" for etUnknown,
// etEmpty and codes out of range.
QString typeName(int type);

// Buttons whose press is reported to the device in a change document ("PRESSED").
bool isReportableButton(int type);

} // namespace ElementTypes

// Ids (tag names) with a fixed meaning in a settings specification.
namespace FixedIds {

inline const QString AboutElement = QStringLiteral("AboutElement");
inline const QString SubnetMask = QStringLiteral("SubnetMask");
inline const QString IPAddress = QStringLiteral("IPAddress");
inline const QString Gateway = QStringLiteral("Gateway");
inline const QString DateTime = QStringLiteral("DateTime");
inline const QString TollSaveStartTime = QStringLiteral("TollSaveStartTime");
inline const QString TollSaveEndTime = QStringLiteral("TollSaveEndTime");
inline const QString WirelessSetting = QStringLiteral("WirelessSetting");
inline const QString EasyWirelessSettings = QStringLiteral("EasyWirelessSettings");

// Never created, whatever their TYPE.
bool isIgnored(const QString& id);

// Sent by devices as "EDITBOX" although they hold a date and time.
bool isDateTimeWorkaround(const QString& id);

// Sent by devices as "BUTTON" although they start the wireless set-up.
bool isWirelessWorkaround(const QString& id);

} // namespace FixedIds
