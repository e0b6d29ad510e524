#include "xml/ElementType.h"

#include <array>

namespace {

struct TypeRow
{
    const char* keyword;
    const char* typeName;
};

// Indexed by ElementType. The keyword of etEmpty is matched by emptiness, not by text.
constexpr std::array<TypeRow, kLastElementType + 1> kTypes = {{
    {"UNKNOWN", "stUnknown"},
    {"ABOUT", "stAbout"},
    {"USERBASEDADDRESSBOOK", "stAddressBook"},
    {"BUTTON", "stButton"},
    {"CHECKBOX", "stCheckbox"},
    {"DATETIME", "stDateTIme"},
    {"DIALEDITBOX", "stDialEdit"},
    {"EDITBOX", "stEdit"},
    {"EMAILBOOK", "stEmailBook"},
    {"", "stUnknown"},
    {"FLOAT", "stFloat"},
    {"POPUP", "stForm"},
    {"GROUP", "stGroup"},
    {"CARTRIDGE_ALIGN_HP_INK_MFP", "stInkCartridgeAlignMFP"},
    {"CARTRIDGE_ALIGN_HP_INK_MFP_XML", "stInkCartridgeAlignMFP_XML"},
    {"CARTRIDGE_ALIGN_HP_INK_SFP", "stInkCartridgeAlignSFP"},
    {"CARTRIDGE_ALIGN_HP_INK_SFP_XML", "stInkCartridgeAlignSFP_XML"},
    {"CARTRIDGE_CLEAN_HP_INK", "stInkCartridgeClean"},
    {"CARTRIDGE_CLEAN_HP_INK_XML", "stInkCartridgeClean_XML"},
    {"MAINTENANCE", "stInkJetMaintenance"},
    {"BUTTON_TESTPAGE_HP_INK", "stInkTestPagePrint"},
    {"BUTTON_TESTPAGE_HP_INK_XML", "stInkTestPagePrint_XML"},
    {"INTEGER", "stInteger"},
    {"IPADDRESS", "stIPAddress"},
    {"COMBOBOX", "stList"},
    {"PAPERSIZE", "stPaperSize"},
    {"PHONEBOOK", "stPhoneBook"},
    {"RADIOBUTTON", "stRadio"},
    {"SLIDER", "stSlider"},
    {"SUBNETMASK", "stSubnetMask"},
    {"TABLE", "stTable"},
    {"STATICTEXT", "stText"},
    {"WIRELESSSETTING", "stWirelessSetup"},
}};

bool inRange(int type)
{
    return type > etUnknown && type <= kLastElementType && type != etEmpty;
}

} // namespace

namespace ElementTypes {

ElementType fromKeyword(const QString& keyword)
{
    if (keyword.isEmpty())
        return etEmpty;
    if (keyword == QLatin1String("SUBGROUP"))
        return etGroup;
    for (int type = etAbout; type <= kLastElementType; ++type) {
        if (type != etEmpty && keyword == QLatin1String(kTypes[size_t(type)].keyword))
            return ElementType(type);
    }
    return etUnknown;
}

QString keyword(int type)
{
    return QLatin1String(inRange(type) ? kTypes[size_t(type)].keyword : "UNKNOWN");
}

QString typeName(int type)
{
    return QLatin1String(inRange(type) ? kTypes[size_t(type)].typeName : "stUnknown");
}

bool isReportableButton(int type)
{
    return type == etButton || type == etInkTestPagePrint_XML || type == etInkCartridgeClean_XML ||
           type == etInkCartridgeAlignSFP_XML || type == etInkCartridgeAlignMFP_XML;
}

} // namespace ElementTypes

namespace FixedIds {

bool isIgnored(const QString& id)
{
    return id == QLatin1String("WIFIDirectSetting") || id == QLatin1String("WiFiDirectSetting") ||
           id == QLatin1String("RestoreNetwork");
}

bool isDateTimeWorkaround(const QString& id)
{
    return id == DateTime || id == TollSaveStartTime || id == TollSaveEndTime;
}

bool isWirelessWorkaround(const QString& id)
{
    return id == WirelessSetting || id == EasyWirelessSettings;
}

} // namespace FixedIds
