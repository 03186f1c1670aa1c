#pragma once

#include "MPPXMLDOMFilter/Adapters/MSPEXMLAdapter.h"
#include "Platform/Time/Date.h"

#include <cstdint>
#include <optional>
#include <string>

namespace brackwater::conversions {

// The conversions of element texts, under the names that the vocabularies use. A missing text counts as an empty one,
// except for `text`. An unparsable text gives 0, 0.0, false or nothing.

/// The text unchanged.
[[nodiscard]] std::optional<std::string> text(ElementText text);
[[nodiscard]] std::int64_t integer(ElementText text) noexcept;
[[nodiscard]] std::int32_t int32(ElementText text) noexcept;
[[nodiscard]] double number(ElementText text) noexcept;
[[nodiscard]] bool boolean(ElementText text) noexcept;
/// An instant from local time in the system zone; a failed assertion if the text is not a date.
[[nodiscard]] std::optional<Date> date(ElementText text);
/// Seconds.
[[nodiscard]] double duration(ElementText text);
/// Hours of a duration without its minutes and seconds; a failed assertion if the text is not a duration.
[[nodiscard]] double wholeHours(ElementText text);

/// The text as shown in log lines and failures: "(null)" if missing.
[[nodiscard]] std::string_view shown(ElementText text) noexcept;

} // namespace brackwater::conversions
