#include "Decoders.h"
#include "WeekText.h"

#include <fmt/format.h>

namespace brackwater::inspect {

namespace {

enum class Form { Date, Number16, Number32, YesNo, NoYes, Text, Guid, Hours, Map };

struct KnownProperty {
    const char* name;
    Form form;
};

constexpr std::uint32_t kMinutesPerDay = 0x0240001D, kMinutesPerWeek = 0x0240001E, kDaysPerMonth = 0x0240138F;

const std::map<std::uint32_t, KnownProperty>& knownProperties() {
    static const std::map<std::uint32_t, KnownProperty> known{
        {0x024003E8, {"storages of rows", Form::Text}},
        {0x02400000, {"company", Form::Text}},
        {0x02400001, {"manager", Form::Text}},
        {0x02400002, {"start", Form::Date}},
        {0x02400003, {"finish", Form::Date}},
        {0x02400004, {"scheduled from start", Form::YesNo}},
        {0x02400005, {"comments", Form::Text}},
        {0x02400008, {"title", Form::Text}},
        {0x02400009, {"subject", Form::Text}},
        {0x0240000C, {"author", Form::Text}},
        {0x0240000D, {"keywords", Form::Text}},
        {0x0240000E, {"default calendar", Form::Text}},
        {0x02400010, {"currency symbol", Form::Text}},
        {0x02400011, {"currency symbol position", Form::Number16}},
        {0x02400012, {"currency digits", Form::Number16}},
        {0x02400015, {"duration format", Form::Number16}},
        {0x02400016, {"work format", Form::Number16}},
        {kMinutesPerDay, {"minutes per day", Form::Number32}},
        {kMinutesPerWeek, {"minutes per week", Form::Number32}},
        {0x02400025, {"first day of the week", Form::Number16}},
        {0x0240003A, {"honour constraints", Form::NoYes}},
        {0x02400049, {"category", Form::Text}},
        {0x0240004A, {"hyperlink base", Form::Text}},
        {0x02401388, {"default hours", Form::Hours}},
        {kDaysPerMonth, {"days per month", Form::Number16}},
        {0x024013BB, {"currency code", Form::Text}},
        {0x024013C2, {"GUID of the default calendar", Form::Guid}},
        {0x00020014, {"field map of tasks", Form::Map}},
        {0x00020015, {"field map of resources", Form::Map}},
        {0x00020016, {"field map of calendars", Form::Map}},
        {0x00020017, {"field map of assignments", Form::Map}},
        {0x00020018, {"field map of links", Form::Map}},
    };
    return known;
}

std::string optionalNumber(const std::optional<std::uint32_t>& number) {
    return number ? fmt::format("{}", *number) : "(cut off)";
}

// What does not fit in them is of no account: calendars have hours of their own.
std::string hoursText(ByteView hours) {
    if (hours.size() != kWeekSize)
        return fmt::format("{} bytes instead of {}", hours.size(), kWeekSize);
    return weekText(weekAt(hours, 0, [](std::string_view) {}));
}

std::string valueText(Form form, ByteView value, Complaints& complaints) {
    const auto number16 = value.u16(0);
    const auto narrow = number16 ? std::optional<std::uint32_t>(*number16) : std::nullopt;
    switch (form) {
    case Form::Date:
        return value.u32(0) ? textOf(dateFrom(*value.u32(0))) : "(cut off)";
    case Form::Number16:
        return optionalNumber(narrow);
    case Form::Number32:
        return optionalNumber(value.u32(0));
    case Form::YesNo:
        return narrow ? (*narrow != 0 ? "yes" : "no") : "(cut off)";
    case Form::NoYes:
        return narrow ? (*narrow == 0 ? "yes" : "no") : "(cut off)";
    case Form::Text:
        return value.text16();
    case Form::Guid:
        return value.guid(0) ? textOf(*value.guid(0)) : "(cut off)";
    case Form::Hours:
        return hoursText(value);
    case Form::Map: {
        const FieldMap map(value, "Props", complaints);
        return fmt::format("{} fields, rows of {} and {} bytes", map.places().size(), map.firstSize(),
                           map.secondSize());
    }
    }
    return {};
}

KnownProperty propertyOf(std::uint32_t type) {
    const auto found = knownProperties().find(type);
    if (found != knownProperties().end())
        return found->second;
    constexpr std::uint32_t firstSaveDate = 0x02401395, lastSaveDate = 0x0240139F;
    if (type >= firstSaveDate && type <= lastSaveDate)
        return {"baseline saved", Form::Date};
    return {nullptr, Form::Text};
}

std::string nameOf(std::uint32_t type, const KnownProperty& property) {
    constexpr std::uint32_t firstSaveDate = 0x02401395;
    if (property.name == nullptr)
        return {};
    if (std::string_view(property.name) == "baseline saved")
        return fmt::format("baseline {} saved", type - firstSaveDate);
    return property.name;
}

} // namespace

void decodeProperties(const DecodeContext& context, Extent extent) {
    // A map is read once more where its rows are; its faults are told there.
    Complaints ofMaps;
    for (const Property& property : context.props.properties()) {
        const KnownProperty known = propertyOf(property.type);
        if (extent == Extent::Plan && (known.name == nullptr || known.form == Form::Map))
            continue;
        constexpr std::size_t shownBytes = 24;
        std::string value = known.name != nullptr
                                ? valueText(known.form, property.payload, ofMaps)
                                : fmt::format("{} bytes {}", property.payload.size(), property.payload.hex(shownBytes));
        context.out.properties.push_back({property.type, nameOf(property.type, known), std::move(value)});
    }
    context.out.units = {.minutesPerDay = context.props.payload(kMinutesPerDay).u32(0).value_or(0),
                         .minutesPerWeek = context.props.payload(kMinutesPerWeek).u32(0).value_or(0),
                         .daysPerMonth = context.props.payload(kDaysPerMonth).u16(0).value_or(0)};
    if (!context.props.properties().empty() && context.out.units.minutesPerDay == 0)
        context.complaints().add("Props", "no minutes per day: readers show every duration as 0");
}

} // namespace brackwater::inspect
