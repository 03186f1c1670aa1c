#pragma once

#include "MPPXMLDOMFilter/Buffers/MPPData.h"
#include "Platform/Values/Exception.h"

#include <fmt/format.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

/// Values of records as several storages take them.
namespace brackwater {

/// The text, or an empty one when there is none.
[[nodiscard]] inline std::string_view textOf(const std::optional<std::string>& text) {
    return text ? std::string_view(*text) : std::string_view();
}
[[nodiscard]] inline bool hasText(const std::optional<std::string>& text) { return text && !text->empty(); }

/// The notes of a task or resource that has some.
template <typename Record>
void writeNotes(MPPData& data, const Record& record) {
    if (record.notesAreRtf)
        data.writeRtf(*record.notes);
    else
        data.writeRtfString(*record.notes, MPPEncoding::ASCII);
}

/// The format holds work in thousandths of a minute. Two products, not one by 60000: they differ in the last bit.
[[nodiscard]] inline double thousandthsOfMinute(double hours) { return hours * 60.0 * 1000.0; }

/// `types[index - 1]`; outside of 1 to the table's size a failure of the given name, `reason` followed by the index.
[[nodiscard]] inline std::uint16_t typeForIndex(std::span<const std::uint16_t> types, std::size_t index,
                                                std::string_view name, std::string_view reason) {
    if (index < 1 || index > types.size())
        throw Exception(name, fmt::format("{} {}", reason, index));
    return types[index - 1];
}

inline constexpr std::string_view kUnknownTextFieldException = "UnknownTextFieldException";
inline constexpr std::string_view kTextFieldTypeUnknown = "Text field type is unknown for index";
inline constexpr std::string_view kTooManyBaselinesException = "TooManyBaselinesException";

/// The file holds the first baseline apart from the others: a record without one takes it out of its list.
template <typename Record>
void moveFirstBaselineOut(Record& record) {
    if (record.baseline0 || record.baselines.empty())
        return;
    record.baseline0 = record.baselines.front();
    record.baselines.erase(record.baselines.begin());
}

} // namespace brackwater
